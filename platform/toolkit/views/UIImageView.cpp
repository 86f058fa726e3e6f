#include "platform/toolkit/views/UIImageView.h"

namespace toolkit {

runtime::Class& UIImageView::staticClass() {
    static auto& cls = runtime::ClassBuilder<UIImageView>("UIImageView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UIImageView)

namespace {
/// A picture without a frame of its own brings its size along.
Rect frameFor(Rect frame, const Image* image) {
    return image && frame == Rect() ? Rect({}, image->size()) : frame;
}
} // namespace

UIImageView::UIImageView(Rect frame, std::shared_ptr<const Image> image)
    : UIView(frameFor(frame, image.get())) {
    setUserInteractionEnabled(false);
    layer()->setContents(std::move(image));
}

void UIImageView::setImage(std::shared_ptr<const Image> image) {
    if (image != layer()->contents())
        layer()->setContents(std::move(image));
}

Size UIImageView::sizeThatFits(Size) const {
    return image() ? image()->size() : Size();
}

} // namespace toolkit
