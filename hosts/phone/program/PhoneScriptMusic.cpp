// The music of scripts played on the simulated phone.
#include "hosts/phone/music/PhoneMediaPort.h"
#include "hosts/phone/program/PhoneScriptTarget.h"
#include "platform/media/MPUNowPlayingController.h"
#include "platform/media/MPUSystemMediaControlsViewController.h"

#include <algorithm>

namespace phone {

namespace {

media::RemoteCommand commandFor(script::PlayerButton button) {
    switch (button) {
    case script::PlayerButton::Next:
        return media::RemoteCommand::NextTrack;
    case script::PlayerButton::Previous:
        return media::RemoteCommand::PreviousTrack;
    case script::PlayerButton::Pause:
        return media::RemoteCommand::Pause;
    case script::PlayerButton::Resume:
        return media::RemoteCommand::Play;
    }
    return media::RemoteCommand::Play;
}

} // namespace

PhoneScriptTarget::Failure PhoneScriptTarget::addMusic(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_directory(path, error))
        return "there is no directory \"" + path + "\"";
    const auto& library = phone_.music().library();
    if (!library)
        return "this phone has no music library";
    library->addDirectory(path);
    return std::nullopt;
}

bool PhoneScriptTarget::isReadingMusic() const {
    const auto& library = phone_.music().library();
    return library && library->isScanning();
}

PhoneScriptTarget::Failure PhoneScriptTarget::playSong(const std::string& title) {
    const auto songs = phone_.music().songs();
    const auto found = std::find_if(songs->begin(), songs->end(), [&](const auto& song) {
        const auto* itsTitle = song->storedProperty(media::MPMediaItemPropertyTitle);
        return itsTitle && itsTitle->equals(title);
    });
    if (found == songs->end())
        return "there is no song \"" + title + "\"";
    phone_.music().playFromLibrary(*found);
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::pressPlayer(script::PlayerButton button) {
    phone_.music().perform(commandFor(button));
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::seek(double seconds) {
    phone_.music().seek(seconds);
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::playRadio(const std::string& title, const std::string& artist) {
    phone_.music().player().playSilentStream({title, artist});
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::reportNowPlaying(const foundation::PropertyList& info) {
    auto& controller = media::MPUNowPlayingController::sharedController();
    // While the phone's players have nothing, these are the words of another one, which plays.
    if (!info.isNil() && !phone_.music().players().chosen() && !controller.isPlaying())
        controller.playbackStateDidChange(true);
    controller.infoDidChange(info);
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::reportElapsed(double seconds) {
    media::MPUNowPlayingController::sharedController().elapsedTimeDidChange(seconds);
    return std::nullopt;
}

PhoneScriptTarget::Failure PhoneScriptTarget::holdVolumeSlider(script::SliderMoment moment) {
    const auto controls = media::MPUNowPlayingController::sharedController().controls();
    if (controls.empty())
        return "there are no now-playing controls";
    for (const auto& each : controls) {
        const auto& volumeView = each->mediaControlsView()->volumeView();
        if (moment == script::SliderMoment::Begin)
            volumeView->_volumeSliderBeganChanging(volumeView->slider().get());
        else
            volumeView->_volumeSliderStoppedChanging(volumeView->slider().get());
    }
    return std::nullopt;
}

} // namespace phone
