#include "hosts/phone/program/PhoneScriptTarget.h"

#include "hosts/phone/program/PluginInstaller.h"
#include "hosts/phone/program/PreferencesFile.h"
#include "hosts/script/StateDump.h"
#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/rendering/ImageFile.h"

#include <fstream>

namespace phone {

namespace {

/// Script fingers must not be taken for those of a hand at the window.
constexpr std::int64_t firstScriptFinger = 1'000'000;

Button buttonFor(script::Button button) {
    switch (button) {
    case script::Button::Home:
        return Button::Home;
    case script::Button::HomeDouble:
        return Button::HomeDouble;
    case script::Button::Lock:
        return Button::Lock;
    case script::Button::VolumeUp:
        return Button::VolumeUp;
    case script::Button::VolumeDown:
        return Button::VolumeDown;
    }
    return Button::Home;
}

} // namespace

PhoneScriptTarget::PhoneScriptTarget(Phone& phone, const script::NotificationRecorder& recorder,
                                     double startTime, std::filesystem::path outputDirectory)
    : phone_(phone),
      recorder_(recorder),
      startTime_(startTime),
      outputDirectory_(std::move(outputDirectory)) {}

PhoneScriptTarget::Failure PhoneScriptTarget::touchDown(int finger, toolkit::Point point) {
    phone_.touchDown(firstScriptFinger + finger, point);
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::touchMove(int finger, toolkit::Point point) {
    phone_.touchMove(firstScriptFinger + finger, point);
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::touchUp(int finger) {
    phone_.touchUp(firstScriptFinger + finger);
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::press(script::Button button) {
    phone_.press(buttonFor(button));
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::open(const std::string& bundleIdentifier) {
    if (phone_.openApplication(bundleIdentifier))
        return std::nullopt;
    return "there is no application \"" + bundleIdentifier + "\"";
}

PhoneScriptTarget::Failure PhoneScriptTarget::rotate(toolkit::DeviceOrientation orientation) {
    phone_.rotate(orientation);
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::setKeyboardShown(bool shown) {
    phone_.setKeyboardShown(shown);
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::lock() {
    phone_.lock();
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::unlock() {
    phone_.unlock();
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::setPreference(const std::string& key,
                                                            const foundation::PropertyList& value) {
    if (PreferencesFile::set(key, value))
        return std::nullopt;
    return "the preferences file cannot be written";
}

PhoneScriptTarget::Failure PhoneScriptTarget::type(const std::string& text) {
    phone_.typeText(text);
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::installPlugIn(const std::string& path) {
    return phone::installPlugIn(path);
}

PhoneScriptTarget::Failure PhoneScriptTarget::writeScreenshot(const std::string& fileName) {
    const auto picture = phone_.captureScreen();
    const auto png = picture ? toolkit::encodePng(*picture) : std::vector<std::uint8_t>();
    if (png.empty())
        return "the screen's picture cannot be taken";
    return writeFile(fileName, png.data(), png.size());
}

PhoneScriptTarget::Failure PhoneScriptTarget::writeState(const std::string& fileName) {
    const script::HostState host{foundation::RunLoop::main().now() - startTime_,
                                 static_cast<int>(phone_.interfaceOrientation()),
                                 phone_.deviceOrientation(),
                                 phone_.frontmostIdentifier(),
                                 phone_.isLocked(),
                                 phone_.isDisplayOn(),
                                 phone_.visibleKeyboardFrame(),
                                 phone_.hudCount(),
                                 phone_.openedAddresses()};
    const std::string text = script::writeJson(script::describeState(host, recorder_.notifications()));
    return writeFile(fileName, text.data(), text.size());
}

PhoneScriptTarget::Failure PhoneScriptTarget::writeFile(const std::string& fileName, const void* bytes,
                                                        std::size_t count) const {
    const auto path = outputDirectory_ / fileName;
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(static_cast<const char*>(bytes), static_cast<std::streamsize>(count));
    stream.close();
    if (!stream)
        return path.string() + " cannot be written";
    return std::nullopt;
}

} // namespace phone
