// Sharing the song that plays, which a browser of the session does.
#include "tests/session/SessionTest.h"
#include "tests/support/FakePlayer.h"

#include <gmock/gmock.h>

#include <array>
#include <fstream>
#include <iterator>

namespace tests {

namespace {

constexpr const char* portal = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* portalInterface = "org.freedesktop.portal.OpenURI";
constexpr const char* mock = "org.freedesktop.DBus.Mock";
/// A song that is not of the library is shared without its artist.
constexpr const char* page = "https://social.example/intent/tweet?text="
                             "Listening%20to%20A%20%26%20B%24%28x%29%20by%20%20with%20%23Vela3";

/// The middle of the first view of a class, in points of the screen.
std::optional<std::array<double, 2>> centreOf(const nlohmann::json& view, const std::string& cls) {
    const std::array<double, 4> frame = view["frame"];
    if (view["class"] == cls)
        return std::array{frame[0] + frame[2] / 2, frame[1] + frame[3] / 2};
    for (const auto& subview : view["subviews"])
        if (const auto found = centreOf(subview, cls))
            return std::array{frame[0] + (*found)[0], frame[1] + (*found)[1]};
    return std::nullopt;
}

} // namespace

class SessionSharing : public SessionTest {
protected:
    SessionSharing() {
        writeFile(std::filesystem::path(root()) / "Library/Application Support/Vela/configuration.plist",
                  R"(<?xml version="1.0"?><plist version="1.0"><dict><key>Lyrics</key>)"
                  R"(<string>http://127.0.0.1</string><key>Catalogue</key><string>http://127.0.0.1</string>)"
                  R"(<key>Social web host</key><string>https://social.example</string></dict></plist>)");
    }
    static void writeFile(const std::filesystem::path& file, const std::string& content) {
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file) << content;
    }
    /// A browser that writes down what it is asked to open.
    void installBrowser() {
        const auto program = dataDirectory() / "browser", folder = dataDirectory() / "applications";
        writeFile(program, "#!/bin/sh\nprintf '%s\\n' \"$@\" >> '" + openedFile().string() + "'\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        writeFile(folder / "browser.desktop",
                  "[Desktop Entry]\nType=Application\nName=Browser\nExec=" + program.string() +
                      " %u\nMimeType=x-scheme-handler/https;\n");
        writeFile(folder / "mimeapps.list",
                  "[Default Applications]\nx-scheme-handler/https=browser.desktop\n");
    }
    /// What the browser was asked to open, a line for each.
    std::string opened() const {
        std::ifstream stream(openedFile());
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    void startPortal(const std::string& code) {
        startMock({portal, portalPath, portalInterface}, portal);
        take(bus().call(portal, portalPath, mock, "AddMethod",
                        g_variant_new("(sssss)", portalInterface, "OpenURI", "ssa{sv}", "o", code.c_str())));
    }
    std::string portalCalls() {
        GVariant* answer = bus().call(portal, portalPath, mock, "GetCalls");
        char* text = answer ? g_variant_print(answer, FALSE) : g_strdup("");
        std::string calls = text;
        g_free(text);
        if (answer)
            g_variant_unref(answer);
        return calls;
    }
    void shareTheSong() {
        player_ = std::make_unique<support::FakePlayer>(bus().address(), "odd");
        player_->set("PlaybackStatus", "'Playing'");
        player_->set("Metadata", "{'mpris:trackid': <objectpath '/t'>, 'mpris:length': <int64 60000000>, "
                                 "'xesam:title': <'A & B$(x)'>, 'xesam:artist': <['Somebody']>}");
        player_->appear();
        ASSERT_TRUE(eventually([&] { return request("Show", "right"); }));
        ASSERT_TRUE(waitForRest("right"));
        ASSERT_TRUE(eventually([&] { return cover().has_value(); }));
        const auto place = *cover();
        tap(place[0], place[1]);
    }

private:
    std::filesystem::path openedFile() const { return dataDirectory() / "opened"; }
    std::optional<std::array<double, 2>> cover() {
        return centreOf(window("rightController"), "songCollectionViewCell");
    }

    std::unique_ptr<support::FakePlayer> player_;
};

TEST_F(SessionSharing, OpensTheNetworksPageInTheBrowser) {
    installBrowser();
    start();
    shareTheSong();
    EXPECT_TRUE(eventually([&] { return opened() == std::string(page) + "\n"; })) << opened();
    EXPECT_TRUE(waitForShown("")) << "the page is not to lie beneath a panel";
}

TEST_F(SessionSharing, LeavesThePageToTheDesktopsPortal) {
    installBrowser();
    startPortal("ret = dbus.ObjectPath('/request')");
    start();
    shareTheSong();
    EXPECT_TRUE(eventually([&] { return portalCalls().find(page) != std::string::npos; })) << portalCalls();
    EXPECT_TRUE(waitForRest(""));
    EXPECT_EQ(opened(), "");
}

TEST_F(SessionSharing, APortalThatRefusesIsPassedBy) {
    installBrowser();
    startPortal("raise dbus.exceptions.DBusException('not here', name='org.example.No')");
    start();
    shareTheSong();
    EXPECT_TRUE(eventually([&] { return opened() == std::string(page) + "\n"; })) << opened();
}

} // namespace tests
