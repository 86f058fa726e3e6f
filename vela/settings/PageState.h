// What the settings pages and their cells share: one copy for the process, as a page and the cells that it is
// given are made by different hands. Main thread only.
#pragma once

#include "platform/runtime/Object.h"

#include <memory>
#include <string>

namespace preferences {
class PSListController;
}

namespace vela {

class leftSizeLandscapeCell;
class leftSizePortraitCell;
class rightSizeLandscapeCell;
class rightSizePortraitCell;
class velaCell;

struct PageState {
    // Of the page that was laid out last, in points.
    double width = 0;
    double height = 0;

    std::string text;     // the lyric being edited
    std::string fileName; // device path of the artwork being previewed

    // The cells made last.
    runtime::WeakPtr<velaCell> header;
    std::shared_ptr<leftSizePortraitCell> leftPortraitCell;
    std::shared_ptr<leftSizeLandscapeCell> leftLandscapeCell;
    std::shared_ptr<rightSizePortraitCell> rightPortraitCell;
    std::shared_ptr<rightSizeLandscapeCell> rightLandscapeCell;
};

PageState& pageState();

/// For a page that has been laid out: records its size and reloads its rows, so that its cells are made for
/// it.
void measurePage(preferences::PSListController& page);
/// Lets the header cell, if there is one, show whether the product is on.
void animateHeader(bool enabled);

} // namespace vela
