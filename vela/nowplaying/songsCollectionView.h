// The strip of songs above the now-playing controls, scrolling sideways.
#pragma once

#include "platform/toolkit/scrolling/UIScrollView.h"

namespace vela {

class songsCollectionView : public toolkit::UIScrollView {
    RUNTIME_CLASS()
public:
    explicit songsCollectionView(toolkit::Rect frame = {});

    /// Makes the cells of a section anew.
    void reloadSection(int section);
    /// How often that has been done.
    int reloads() const { return reloads_; }

private:
    int reloads_ = 0;
};

} // namespace vela
