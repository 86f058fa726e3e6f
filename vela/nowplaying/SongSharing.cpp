#include "vela/nowplaying/SongSharing.h"

#include "platform/homescreen/SBUIController.h"
#include "platform/homescreen/SBUserAgent.h"
#include "platform/homescreen/SpringBoard.h"
#include "platform/preferences/Presentation.h"
#include "platform/preferences/SLComposeViewController.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/startup/MediaItemProperties.h"
#include "vela/startup/ModuleState.h"
#include "vela/startup/SpringBoardMessages.h"

using media::MPMediaItem;
using preferences::SLComposeViewController;

namespace vela {

namespace {

void closePanelsAndGoHome() {
    const ModuleState& state = moduleState();
    messages::dismissVela(state.spring);
    // The dismissal still runs; the button is to go home all the same.
    if (state.leftGrabber)
        state.leftGrabber->setShowed(false);
    if (state.rightGrabber)
        state.rightGrabber->setShowed(false);
    homescreen::SBUIController::sharedInstance().clickedMenuButton();
}

std::string titleOf(const MPMediaItem& song) {
    if (const auto* title = song.storedProperty(media::MPMediaItemPropertyTitle); title && title->string())
        return *title->string();
    return mediaitem::songTitle(const_cast<MPMediaItem&>(song)).value_or(std::string());
}

/// Of the library's entry alone: the artist of a song that is not in the library is left out.
std::string artistOf(const MPMediaItem& song) {
    const auto* artist = song.storedProperty(media::MPMediaItemPropertyArtist);
    return artist && artist->string() ? *artist->string() : song.artist();
}

std::string textFor(const MPMediaItem& song) {
    return "Listening to " + titleOf(song) + " by " + artistOf(song) + " with #Vela3";
}

} // namespace

void shareSong(const MPMediaItem& song) {
    if (homescreen::SBUserAgent::sharedUserAgent().deviceIsLocked() ||
        !SLComposeViewController::isAvailableForServiceType(SLComposeViewController::serviceTypeTwitter))
        return;
    closePanelsAndGoHome();
    const auto sheet = std::make_shared<SLComposeViewController>(SLComposeViewController::serviceTypeTwitter);
    sheet->setCompletionHandler([weak = std::weak_ptr(sheet)](SLComposeViewController::Result) {
        if (const auto completed = weak.lock())
            preferences::dismiss(*completed, true);
    });
    sheet->setInitialText(textFor(song));
    preferences::presentFromKeyWindow(sheet, true);
}

} // namespace vela
