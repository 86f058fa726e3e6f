// Scripts played on the simulated phone.
#pragma once

#include "hosts/phone/Phone.h"
#include "hosts/script/NotificationRecorder.h"
#include "hosts/script/ScriptTarget.h"

#include <filesystem>

namespace phone {

class PhoneScriptTarget final : public script::ScriptTarget {
public:
    /// `startTime` is the run loop's time that the state counts from. Phone and recorder outlive this object.
    PhoneScriptTarget(Phone& phone, const script::NotificationRecorder& recorder, double startTime,
                      std::filesystem::path outputDirectory);

    Failure touchDown(int finger, toolkit::Point point) override;
    Failure touchMove(int finger, toolkit::Point point) override;
    Failure touchUp(int finger) override;
    Failure press(script::Button button) override;
    Failure open(const std::string& bundleIdentifier) override;
    Failure rotate(toolkit::DeviceOrientation orientation) override;
    Failure setKeyboardShown(bool shown) override;
    Failure lock() override;
    Failure unlock() override;
    Failure setPreference(const std::string& key, const foundation::PropertyList& value) override;
    Failure type(const std::string& text) override;
    Failure installPlugIn(const std::string& path) override;
    Failure addMusic(const std::string& path) override;
    bool isReadingMusic() const override;
    Failure playSong(const std::string& title) override;
    Failure pressPlayer(script::PlayerButton button) override;
    Failure seek(double seconds) override;
    Failure playRadio(const std::string& title, const std::string& artist) override;
    Failure reportNowPlaying(const foundation::PropertyList& info) override;
    Failure reportElapsed(double seconds) override;
    Failure holdVolumeSlider(script::SliderMoment moment) override;
    Failure writeScreenshot(const std::string& fileName) override;
    Failure writeState(const std::string& fileName) override;

private:
    Failure writeFile(const std::string& fileName, const void* bytes, std::size_t count) const;

    Phone& phone_;
    const script::NotificationRecorder& recorder_;
    double startTime_;
    std::filesystem::path outputDirectory_;
};

} // namespace phone
