#include "hosts/phone/applications/MusicView.h"

#include "hosts/phone/artwork/RecordArtwork.h"
#include "hosts/phone/screens/Labels.h"
#include "platform/toolkit/windows/UIScreen.h"

using namespace toolkit;

namespace phone {

namespace {

const Color tint = Color::rgba(0.93, 0.17, 0.38);
constexpr double sleeveSide = 168; // points

} // namespace

runtime::Class& MusicView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MusicView>("MusicView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MusicView)

MusicView::MusicView()
    : bar_(std::make_shared<NavigationBar>("Library", NavigationBarStyle::Light, tint)),
      picture_(std::make_shared<UIImageView>(Rect(), drawRecord(sleeveSide, UIScreen::mainScreen().scale()))),
      title_(makeLabel("No Music", Font::system(24, FontWeight::Semibold), Color::white(0.08),
                       TextAlignment::Center)),
      text_(makeLabel("Songs that you add to this phone appear here.", Font::system(16), Color::white(0.48),
                      TextAlignment::Center)) {
    setBackgroundColor(Color::white(0.985));
    text_->setNumberOfLines(0);
    for (const std::shared_ptr<UIView>& view :
         {std::shared_ptr<UIView>(picture_), std::shared_ptr<UIView>(title_), std::shared_ptr<UIView>(text_),
          std::shared_ptr<UIView>(bar_)})
        addSubview(view);
}

void MusicView::layoutSubviews() {
    const Size size = bounds().size();
    const double top = NavigationBar::heightFor(size);
    bar_->setFrame({0, 0, size.width, top});
    const Size picture = picture_->image()->size();
    const bool wide = size.width > size.height && size.height < 500;
    const double textWidth =
        wide ? std::min(280.0, size.width - picture.width - 80) : std::min(300.0, size.width - 48);
    const double textHeight = text_->sizeThatFits({textWidth, 0}).height;
    if (wide) {
        const double left = (size.width - picture.width - 28 - textWidth) / 2,
                     middle = top + (size.height - top) / 2;
        picture_->setFrame({left, middle - picture.height / 2, picture.width, picture.height});
        title_->setFrame({left + picture.width + 28, middle - 32, textWidth, 32});
        text_->setFrame({left + picture.width + 28, middle + 4, textWidth, textHeight});
        return;
    }
    double y = top + (size.height - top - picture.height - 34 - 32 - 6 - textHeight) * 0.44;
    picture_->setFrame({(size.width - picture.width) / 2, y, picture.width, picture.height});
    y += picture.height + 34;
    title_->setFrame({(size.width - textWidth) / 2, y, textWidth, 32});
    text_->setFrame({(size.width - textWidth) / 2, y + 38, textWidth, textHeight});
}

} // namespace phone
