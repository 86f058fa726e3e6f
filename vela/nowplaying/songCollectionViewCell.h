// A cover in the strip of songs, which casts a light shadow.
#pragma once

#include "platform/media/MPMediaItemArtwork.h"
#include "platform/toolkit/scrolling/UICollectionViewCell.h"
#include "platform/toolkit/views/UIImageView.h"

namespace vela {

class songCollectionViewCell : public toolkit::UICollectionViewCell {
    RUNTIME_CLASS()
public:
    explicit songCollectionViewCell(toolkit::Rect frame = {});

    const std::shared_ptr<toolkit::UIImageView>& artwork() const { return artwork_; }
    using Cover = std::shared_ptr<media::MPMediaItemArtwork>;
    /// Shows `cover` in the size `side` × `side` points as soon as it has been read, or `otherwise` when
    /// there is none or it cannot be read; both may be null, which leaves the cell empty.
    void showCover(const Cover& cover, const Cover& otherwise, double side);

    void prepareForReuse() override;
    void layoutSubviews() override;

private:
    void castShadow();

    std::shared_ptr<toolkit::UIImageView> artwork_;
    foundation::Handle loading_;
};

} // namespace vela
