#include "tests/session/HeadlessCompositor.h"

#include "tests/session/Patience.h"

#include <fstream>

#include <unistd.h>

namespace tests {

namespace {

namespace fs = std::filesystem;

constexpr uid_t nobody = 65534;

bool isRoot() {
    return geteuid() == 0;
}

} // namespace

HeadlessCompositor::HeadlessCompositor(Screen screen, Kind kind) : screen_(std::move(screen)), kind_(kind) {
    fs::permissions(directory_.path(), fs::perms::owner_all);
    if (isRoot() && chown(directory_.path().c_str(), nobody, nobody) != 0)
        return;
    if (screen_.hasTouch) {
        screen_.parent = directory_.path() / "parent";
        parent_ = std::make_unique<ParentCompositor>(screen_.parent, screen_.width, screen_.height);
    }
    writeConfiguration();
    start();
}

void HeadlessCompositor::writeConfiguration() const {
    const std::string mode = std::to_string(screen_.width) + "x" + std::to_string(screen_.height);
    const std::string output = screen_.parent.empty() ? "HEADLESS-1" : "WL-1";
    std::ofstream sway(directory_.path() / "sway.conf");
    sway << "output " << output << " mode " << mode << " position 0 0 scale " << screen_.scale
         << " transform " << screen_.transform << " bg #336699 solid_color\n"
         << "default_border none\nfocus_follows_mouse no\nxwayland disable\n";
    std::ofstream phoc(directory_.path() / "phoc.ini");
    phoc << "[core]\nxwayland=false\n[output:" << output << "]\nmode=" << mode << "\nscale=" << screen_.scale
         << "\nrotate=" << screen_.transform << "\n";
}

std::vector<std::string> HeadlessCompositor::commandLine() const {
    std::vector<std::string> command;
    if (isRoot())
        command = {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"};
    const std::vector<std::string> program =
        kind_ == Kind::Sway ? std::vector<std::string>{"sway", "-c", directory_.path() / "sway.conf"}
                            : std::vector<std::string>{"phoc", "-C", directory_.path() / "phoc.ini"};
    command.insert(command.end(), program.begin(), program.end());
    return command;
}

std::vector<std::string> HeadlessCompositor::variables() const {
    const std::string directory = directory_.path();
    return {"XDG_RUNTIME_DIR=" + directory,
            "HOME=" + directory,
            "SWAYSOCK=" + directory + "/ipc",
            "WLR_RENDERER=pixman",
            "WLR_LIBINPUT_NO_DEVICES=1",
            std::string("WLR_BACKENDS=") + (screen_.parent.empty() ? "headless" : "wayland"),
            "WAYLAND_DISPLAY=" + screen_.parent};
}

bool HeadlessCompositor::start() {
    std::error_code error;
    fs::remove(socket(), error);
    fs::remove(socket().native() + ".lock", error);
    process_ = std::make_unique<support::BackgroundProcess>(commandLine(), variables());
    // Once a picture can be taken the output stands.
    started_ =
        process_->started() &&
        eventually([&] { return fs::exists(socket()) && takePicture(directory_.path() / "first.png"); }) &&
        (!parent_ || plugInTouch());
    return started_;
}

/// Not before the compositor stands: it takes no touch screen that was there earlier.
bool HeadlessCompositor::plugInTouch() {
    parent_->perform([](ParentSeat& seat) { seat.plugIn(); });
    return eventually([&] {
        bool heard = false;
        parent_->perform([&](ParentSeat& seat) { heard = seat.isHeard(); });
        return heard;
    });
}

void HeadlessCompositor::stop() {
    process_.reset();
    started_ = false;
}

void HeadlessCompositor::kill() {
    process_->killNow();
    stop();
}

std::vector<std::string> HeadlessCompositor::environment() const {
    return {"WAYLAND_DISPLAY=" + display(), "XDG_RUNTIME_DIR=" + directory_.path().string()};
}

bool HeadlessCompositor::command(const std::string& text) const {
    auto variables = environment();
    variables.push_back("SWAYSOCK=" + (directory_.path() / "ipc").string());
    return support::ChildProcess::run({"/usr/bin/env", "swaymsg", text}, variables).exitCode == 0;
}

bool HeadlessCompositor::takePicture(const fs::path& file) const {
    return support::ChildProcess::run({"/usr/bin/env", "grim", file}, environment()).exitCode == 0;
}

} // namespace tests
