#include "vela/nowplaying/songCollectionViewCell.h"

using namespace toolkit;

namespace vela {

namespace {

constexpr double shadowOpacity = 0.2;
constexpr double shadowRadius = 4; // points
constexpr Size shadowOffset{0, -3};

} // namespace

runtime::Class& songCollectionViewCell::staticClass() {
    static runtime::Class& cls = runtime::ClassBuilder<songCollectionViewCell>(
                                     "songCollectionViewCell", &UICollectionViewCell::staticClass())
                                     .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(songCollectionViewCell)

songCollectionViewCell::songCollectionViewCell(Rect frame)
    : UICollectionViewCell(frame), artwork_(std::make_shared<UIImageView>(bounds())) {
    artwork_->setClipsToBounds(true);
    artwork_->setContentMode(ContentGravity::AspectFill);
    contentView()->addSubview(artwork_);
    castShadow();
    setUserInteractionEnabled(true);
}

void songCollectionViewCell::castShadow() {
    layer()->setShadow({Color::black(), shadowOpacity, shadowRadius, shadowOffset, bounds()});
}

void songCollectionViewCell::showCover(const Cover& cover, const Cover& otherwise, double side) {
    const Size size{side, side};
    const auto show = [this, otherwise, size](media::MPMediaItemArtwork::Picture picture) {
        if (!picture && otherwise)
            picture = otherwise->imageWithSize(size);
        artwork_->setImage(picture);
    };
    if (cover)
        loading_ = cover->loadImage(size, show);
    else
        show(nullptr);
}

void songCollectionViewCell::prepareForReuse() {
    UICollectionViewCell::prepareForReuse();
    loading_.reset();
    artwork_->setImage(nullptr);
}

void songCollectionViewCell::layoutSubviews() {
    UICollectionViewCell::layoutSubviews();
    artwork_->setFrame(bounds());
    castShadow();
}

} // namespace vela
