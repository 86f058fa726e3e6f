// The strip of covers above the now-playing controls: the song that plays, and songs related to it.
//
// One cover stands in the middle, its neighbours look in from the sides, and both edges fade out. A tap on
// another song plays it; a tap on the one that plays shares it. Its measures are reckoned in single
// precision. Main thread only.
#pragma once

#include "platform/media/MPMediaItem.h"
#include "platform/toolkit/scrolling/UICollectionView.h"

#include <cstdint>
#include <string>

namespace vela {

class songsCollectionView : public toolkit::UICollectionView,
                            private toolkit::CollectionViewDataSource,
                            private toolkit::CollectionViewDelegate {
    RUNTIME_CLASS()
public:
    /// initWithFrame:collectionViewLayout:
    songsCollectionView(toolkit::Rect frame,
                        std::shared_ptr<toolkit::UICollectionViewFlowLayout> collectionViewLayout);
    ~songsCollectionView() override;

    /// The songs shown; the first one plays.
    const media::MediaItems& array() const { return array_; }
    /// Empties everything else that is kept along with the songs, and reloads.
    void setArray(media::MediaItems array);
    std::int32_t playingIndex() const { return playingIndex_; }
    /// Brings a song to the middle, and takes it for the one that plays.
    void setOffsetToMusicIndex(int index);

    // Kept for others along with the songs.
    foundation::PropertyList::Dictionary& dictionary() { return dictionary_; }
    const std::string& radioSongName() const { return radioSongName_; }
    void setRadioSongName(std::string name) { radioSongName_ = std::move(name); }
    const std::string& radioArtistName() const { return radioArtistName_; }
    void setRadioArtistName(std::string name) { radioArtistName_ = std::move(name); }

    void setFrame(toolkit::Rect frame) override;
    void describeProperties(nlohmann::json& properties) const override;

    static constexpr const char* cellIdentifier = "velaArtWorkCell";

private:
    using Layout = toolkit::UICollectionViewFlowLayout;
    void addMask();
    /// Height and width of a cover, points; may be negative.
    float coverSide() const;
    toolkit::EdgeInsets coverInsets() const;
    float coverSpacing() const;
    std::shared_ptr<media::MPMediaItem> song(int row) const;
    void play(const std::shared_ptr<media::MPMediaItem>& song);

    int numberOfSectionsInCollectionView(UICollectionView& view) override;
    int numberOfItemsInSection(UICollectionView& view, int section) override;
    std::shared_ptr<toolkit::UICollectionViewCell>
    cellForItemAtIndexPath(UICollectionView& view, toolkit::IndexPath indexPath) override;
    void didSelectItemAtIndexPath(UICollectionView& view, toolkit::IndexPath indexPath) override;
    toolkit::Size sizeForItemAtIndexPath(UICollectionView& view, Layout& layout,
                                         toolkit::IndexPath indexPath) override;
    double minimumLineSpacingForSectionAtIndex(UICollectionView& view, Layout& layout, int section) override;
    toolkit::EdgeInsets insetForSectionAtIndex(UICollectionView& view, Layout& layout, int section) override;
    void scrollViewDidScroll(UIScrollView& view) override;

    media::MediaItems array_;
    std::int32_t playingIndex_ = 0;
    foundation::PropertyList::Dictionary dictionary_;
    std::string radioSongName_;
    std::string radioArtistName_;
};

} // namespace vela
