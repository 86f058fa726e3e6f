#include "vela/nowplaying/songsCollectionView.h"

namespace vela {

runtime::Class& songsCollectionView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<songsCollectionView>("songsCollectionView", &UIScrollView::staticClass())
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(songsCollectionView)

songsCollectionView::songsCollectionView(toolkit::Rect frame) : UIScrollView(frame) {
    setShowsHorizontalScrollIndicator(false);
    setShowsVerticalScrollIndicator(false);
    setBackgroundColor(toolkit::Color::clear());
}

void songsCollectionView::reloadSection(int) {
    ++reloads_;
}

} // namespace vela
