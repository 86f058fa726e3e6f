#include "vela/settings/PageState.h"

#include "platform/preferences/PSListController.h"
#include "vela/settings/velaCell.h"

namespace vela {

PageState& pageState() {
    static auto& state = *new PageState; // never torn down
    return state;
}

void measurePage(preferences::PSListController& page) {
    const toolkit::Rect frame = page.view()->frame();
    pageState().width = frame.width;
    pageState().height = frame.height;
    page.reloadSpecifiers();
}

void animateHeader(bool enabled) {
    velaCell* header = pageState().header.get();
    if (!header)
        return;
    if (enabled)
        header->animateViews();
    else
        header->animateViewsForDisbaled();
}

} // namespace vela
