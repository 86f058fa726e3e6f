#include "hosts/phone/applications/EmptyMusicView.h"

#include "hosts/phone/artwork/RecordArtwork.h"
#include "hosts/phone/screens/Labels.h"
#include "platform/toolkit/windows/UIScreen.h"

#include <algorithm>

using namespace toolkit;

namespace phone {

namespace {

constexpr double sleeveSide = 168; // points

} // namespace

runtime::Class& EmptyMusicView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<EmptyMusicView>("EmptyMusicView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(EmptyMusicView)

EmptyMusicView::EmptyMusicView()
    : picture_(std::make_shared<UIImageView>(Rect(), drawRecord(sleeveSide, UIScreen::mainScreen().scale()))),
      title_(makeLabel("No Music", Font::system(24, FontWeight::Semibold), Color::white(0.08),
                       TextAlignment::Center)),
      text_(makeLabel("", Font::system(16), Color::white(0.48), TextAlignment::Center)) {
    text_->setNumberOfLines(0);
    addSubview(picture_);
    addSubview(title_);
    addSubview(text_);
}

void EmptyMusicView::setText(const std::string& text) {
    text_->setText(text);
    setNeedsLayout();
}

void EmptyMusicView::layoutSubviews() {
    const Size size = bounds().size(), picture = picture_->image()->size();
    const bool wide = size.width > size.height && size.height < 500;
    const double textWidth =
        wide ? std::min(280.0, size.width - picture.width - 80) : std::min(300.0, size.width - 48);
    const double textHeight = text_->sizeThatFits({textWidth, 0}).height;
    if (wide) {
        const double left = (size.width - picture.width - 28 - textWidth) / 2, middle = size.height / 2;
        picture_->setFrame({left, middle - picture.height / 2, picture.width, picture.height});
        title_->setFrame({left + picture.width + 28, middle - 32, textWidth, 32});
        text_->setFrame({left + picture.width + 28, middle + 4, textWidth, textHeight});
        return;
    }
    double y = (size.height - picture.height - 34 - 32 - 6 - textHeight) * 0.44;
    picture_->setFrame({(size.width - picture.width) / 2, y, picture.width, picture.height});
    y += picture.height + 34;
    title_->setFrame({(size.width - textWidth) / 2, y, textWidth, 32});
    text_->setFrame({(size.width - textWidth) / 2, y + 38, textWidth, textHeight});
}

} // namespace phone
