#include "vela/nowplaying/songsCollectionView.h"

#include "platform/media/MPMusicPlayerController.h"
#include "vela/nowplaying/SongSharing.h"
#include "vela/nowplaying/songCollectionViewCell.h"
#include "vela/startup/MediaItemProperties.h"

#include <nlohmann/json.hpp>

using namespace toolkit;
using media::MPMediaItem;

namespace vela {

namespace {

constexpr float coverMargin = 10; // points, above and below a cover together

} // namespace

runtime::Class& songsCollectionView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<songsCollectionView>("songsCollectionView", &UICollectionView::staticClass())
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(songsCollectionView)

songsCollectionView::songsCollectionView(Rect frame, std::shared_ptr<Layout> collectionViewLayout)
    : UICollectionView(frame, std::move(collectionViewLayout)) {
    setBackgroundColor(Color::clear());
    setShowsHorizontalScrollIndicator(false);
    setShowsVerticalScrollIndicator(false);
    setDataSource(this);
    setCollectionViewDelegate(this);
    addMask();
}

songsCollectionView::~songsCollectionView() {
    setDataSource(nullptr);
    setCollectionViewDelegate(nullptr);
}

// Songs

void songsCollectionView::setArray(media::MediaItems array) {
    array_ = std::move(array);
    playingIndex_ = 0;
    dictionary_.clear();
    radioSongName_.clear();
    radioArtistName_.clear();
    reloadSections({0});
}

std::shared_ptr<MPMediaItem> songsCollectionView::song(int row) const {
    const auto index = static_cast<std::size_t>(row);
    return row >= 0 && index < array_.size() ? array_[index] : nullptr;
}

int songsCollectionView::numberOfSectionsInCollectionView(UICollectionView&) {
    return 1;
}

int songsCollectionView::numberOfItemsInSection(UICollectionView&, int) {
    return static_cast<int>(array_.size());
}

std::shared_ptr<UICollectionViewCell> songsCollectionView::cellForItemAtIndexPath(UICollectionView&,
                                                                                  IndexPath indexPath) {
    const auto dequeued = dequeueReusableCell(cellIdentifier);
    const auto cell = std::dynamic_pointer_cast<songCollectionViewCell>(dequeued);
    if (!cell)
        return dequeued;
    if (const auto shown = song(indexPath.row()))
        cell->showCover(shown->artwork(), mediaitem::songArtwork(*shown), coverSide());
    cell->setBackgroundColor(Color::clear());
    return cell;
}

void songsCollectionView::didSelectItemAtIndexPath(UICollectionView&, IndexPath indexPath) {
    const auto selected = song(indexPath.row());
    if (!selected)
        return;
    if (indexPath.row() == playingIndex_)
        shareSong(*selected);
    else
        play(selected);
}

void songsCollectionView::play(const std::shared_ptr<MPMediaItem>& song) {
    auto& player = media::MPMusicPlayerController::systemMusicPlayer();
    player.setQueueWithItemCollection(media::MPMediaItemCollection({song}));
    player.setNowPlayingItem(song);
    player.prepareToPlay();
    player.play();
    setContentOffsetAnimated({0, 0});
}

// Geometry

float songsCollectionView::coverSide() const {
    return static_cast<float>(frame().height) - coverMargin;
}

EdgeInsets songsCollectionView::coverInsets() const {
    const double side = (frame().width - coverSide()) * 0.5;
    return {0, side, 0, side};
}

float songsCollectionView::coverSpacing() const {
    const auto spacing = static_cast<float>((frame().width - coverSide()) * 0.25);
    return spacing > 0 ? spacing : 0;
}

Size songsCollectionView::sizeForItemAtIndexPath(UICollectionView&, Layout&, IndexPath) {
    const double side = coverSide() > 0 ? coverSide() : 1;
    return {side, side};
}

double songsCollectionView::minimumLineSpacingForSectionAtIndex(UICollectionView&, Layout&, int) {
    return coverSpacing();
}

EdgeInsets songsCollectionView::insetForSectionAtIndex(UICollectionView&, Layout&, int) {
    return coverInsets();
}

void songsCollectionView::setOffsetToMusicIndex(int index) {
    if (array_.empty())
        return;
    playingIndex_ = index;
    const double step = (coverInsets().left + coverSide()) - coverSpacing();
    setContentOffsetAnimated({static_cast<float>(index * step), 0});
}

// Edges

void songsCollectionView::addMask() {
    GradientMask mask;
    mask.start = {0, 1};
    mask.end = {1, 1};
    mask.stops = {{0.0, Color::clear()}, {0.1, Color::black()}, {0.9, Color::black()}, {1.0, Color::clear()}};
    mask.bounds = layer()->bounds();
    layer()->setMask(std::move(mask));
}

void songsCollectionView::setFrame(Rect frame) {
    UICollectionView::setFrame(frame);
    layer()->setMaskBounds(bounds());
}

void songsCollectionView::scrollViewDidScroll(UIScrollView&) {
    layer()->setMaskPosition({contentOffset().x, 0});
}

void songsCollectionView::describeProperties(nlohmann::json& properties) const {
    UICollectionView::describeProperties(properties);
    properties["playingIndex"] = playingIndex_;
    properties["songs"] = array_.size();
}

} // namespace vela
