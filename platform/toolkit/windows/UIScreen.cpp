#include "platform/toolkit/windows/UIScreen.h"

namespace toolkit {

UIScreen& UIScreen::mainScreen() {
    // Never torn down: views with static storage may still ask for it at exit.
    static auto& screen = *new UIScreen;
    return screen;
}

} // namespace toolkit
