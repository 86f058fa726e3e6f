#include "hosts/phone/program/RunningPhone.h"

#include "hosts/device/ExtensionLoader.h"
#include "hosts/device/InstalledFiles.h"
#include "hosts/phone/program/MusicSetup.h"
#include "platform/foundation/RunLoop.h"
#include "platform/plugins/TimeOfDay.h"
#include "platform/toolkit/text/Font.h"
#include "platform/toolkit/windows/WindowServer.h"

namespace phone {

PhoneConfiguration RunningPhone::configurationOf(const Options& options) {
    PhoneConfiguration configuration;
    configuration.screenSize = options.screenSize;
    configuration.screenScale = options.screenScale;
    configuration.model = options.model;
    configuration.systemVersion = options.systemVersion;
    setUpMusic(options, configuration);
    return configuration;
}

RunningPhone::RunningPhone(const Options& options, PhoneConfiguration configuration)
    : phone_(configuration),
      scriptTarget_(phone_, notifications_, foundation::RunLoop::main().now(), options.outputDirectory) {
    toolkit::setFontDirectory((device::resourceDirectory() / "fonts").c_str(), false);
    toolkit::WindowServer::shared().attachToMainRunLoop();
    if (configuration.wallClock)
        plugins::setTimeOfDaySource([configuration]() -> plugins::TimeOfDay {
            return {static_cast<double>(configuration.wallClock()),
                    static_cast<int>(configuration.secondsFromUtc)};
        });
    if (options.loadExtension)
        device::loadExtension(options.extension.value_or(device::installedExtension()));
    phone_.launch();
    if (options.headless)
        return;
    sessionMusic_ = std::make_unique<SessionMusic>(phone_.music());
    if (!options.musicDirectory)
        demonstration_ = std::make_unique<DemonstrationMusic>(
            configuration.musicLibrary, device::resourceDirectory() / "music" / "songs");
}

} // namespace phone
