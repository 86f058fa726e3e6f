// The one phone of a benchmark's process, launched with the extension on a device of its own, with 60 keys in
// its preferences and no plug-ins but those that the benchmark puts there.
#pragma once

#include "hosts/device/DeviceRoot.h"
#include "hosts/device/ExtensionLoader.h"
#include "hosts/phone/Phone.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/VirtualRunLoop.h"
#include "platform/toolkit/windows/WindowServer.h"

namespace bench {

struct RunningPhone {
    static RunningPhone& shared() {
        static auto& running = *new RunningPhone; // a phone is never torn down
        return running;
    }

    /// One frame of a finger's movement: the clock goes on, the touch arrives, what it leads to is composed.
    void step(toolkit::Point point) {
        phone->touchMove(1, point);
        loop.turn();
        toolkit::WindowServer::shared().composeFrame();
    }
    /// Time in which nothing is measured.
    void settle(double seconds) {
        loop.advance(seconds);
        toolkit::WindowServer::shared().composeFrame();
    }

    foundation::VirtualRunLoop loop;
    device::DeviceRoot root;
    std::unique_ptr<phone::Phone> phone;

private:
    RunningPhone() : root(std::nullopt) {
        foundation::setLogToStandardError(false);
        foundation::RunLoop::setMain(&loop);
        root.fill(std::filesystem::path(VELA_SOURCE_DIR) / "resources/device");
        foundation::FileManager::shared().writeDictionaryAtomically(
            "/var/mobile/Library/Preferences/org.lanternhub.vela3.plist", sixtyPreferences());
        phone = std::make_unique<phone::Phone>(phone::PhoneConfiguration{});
        device::loadExtension(std::filesystem::path(VELA_BINARY_DIR) / "lib/Vela3.dylib");
        phone->launch();
        settle(2);
    }

    /// As someone has them who has switched the product off in many applications.
    static foundation::PropertyList::Dictionary sixtyPreferences() {
        foundation::PropertyList::Dictionary values{{"Enable", true},
                                                    {"Blur", "auto"},
                                                    {"Grabber height", "full"},
                                                    {"Sensibility", "normal"},
                                                    {"Autoscroll", true},
                                                    {"left_size_portrait", 0.8},
                                                    {"left_size_landscape", 0.5},
                                                    {"right_size_portrait", 0.8},
                                                    {"right_size_landscape", 0.5}};
        for (int i = 0; values.size() < 60; ++i)
            values["com.example.application" + std::to_string(i)] = i % 2 == 0;
        return values;
    }
};

} // namespace bench
