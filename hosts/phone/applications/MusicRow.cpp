#include "hosts/phone/applications/MusicRow.h"

#include "hosts/phone/screens/Labels.h"
#include "platform/toolkit/rendering/Canvas.h"
#include "platform/toolkit/text/Utf8.h"

#include <algorithm>

using namespace toolkit;

namespace phone {

namespace {

constexpr double margin = 16; // points
constexpr double removeWidth = 38;
constexpr std::size_t longestLine = 400; // bytes

} // namespace

/// A white bar on a red disc.
class MusicRow::RemoveButton : public UIControl {
public:
    std::function<void()> remove;

    RemoveButton() {
        addHandler(ControlEvent::TouchUpInside, [this] {
            if (const auto taken = remove)
                taken();
        });
    }
    bool drawsContent() const override { return true; }
    void drawContent(Canvas& canvas, Rect bounds) override {
        const Point c = bounds.center();
        canvas.fillPath(Path::ellipse({c.x - 11, c.y - 11, 22, 22}), Color::rgba(1, 0.23, 0.19));
        canvas.fillRoundedRect({c.x - 5.5, c.y - 1, 11, 2}, 1, Color::white(1));
    }
};

runtime::Class& MusicRow::staticClass() {
    static runtime::Class& cls = runtime::ClassBuilder<MusicRow>("MusicRow", &ListRow::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MusicRow)

MusicRow::MusicRow(Color tint)
    : ListRow(Color::white(0, 0.08)),
      tint_(tint),
      removeButton_(std::make_shared<RemoveButton>()),
      cover_(std::make_shared<UIImageView>()),
      title_(makeLabel("", Font::system(16), Color::black())),
      subtitle_(makeLabel("", Font::system(13), Color::white(0.48))),
      remark_(makeLabel("", Font::system(13), Color::white(0.55), TextAlignment::Right)),
      hairline_(std::make_shared<UIView>()) {
    Font digits = remark_->font();
    digits.monospacedDigits = true;
    remark_->setFont(digits);
    cover_->setContentMode(ContentGravity::AspectFill);
    cover_->setClipsToBounds(true);
    cover_->layer()->setCornerRadius(3);
    hairline_->setBackgroundColor(Color::white(0.85));
    removeButton_->setHidden(true);
    for (const std::shared_ptr<UIView>& part : std::initializer_list<std::shared_ptr<UIView>>{
             cover_, title_, subtitle_, remark_, hairline_, removeButton_})
        addSubview(part);
}

void MusicRow::setText(const std::string& title, const std::string& subtitle, const std::string& remark) {
    title_->setText(singleLine(title, longestLine));
    subtitle_->setText(singleLine(subtitle, longestLine));
    remark_->setText(singleLine(remark, longestLine));
    setNeedsLayout();
}

void MusicRow::setCover(const std::shared_ptr<media::MPMediaItemArtwork>& artwork,
                        std::shared_ptr<const Image> placeholder) {
    loading_.reset();
    cover_->setImage(placeholder);
    if (artwork)
        loading_ = artwork->loadImage({coverSide, coverSide}, [this](const auto& picture) {
            if (picture)
                cover_->setImage(picture);
        });
}

void MusicRow::setCurrent(bool current) {
    title_->setTextColor(current ? tint_ : Color::black());
    remark_->setTextColor(current ? tint_ : Color::white(0.55));
}

void MusicRow::setRemoveHandler(std::function<void()> remove) {
    removeButton_->setHidden(!remove);
    removeButton_->remove = std::move(remove);
    setNeedsLayout();
}

void MusicRow::layoutSubviews() {
    const Size size = bounds().size();
    double x = margin;
    if (!removeButton_->isHidden()) {
        removeButton_->setFrame({margin - 8, 0, removeWidth, size.height});
        x += removeWidth - 4;
    }
    cover_->setFrame({x, (size.height - coverSide) / 2, coverSide, coverSide});
    x += coverSide + 12;
    const double remarkWidth =
        remark_->text().empty() ? 0 : remark_->sizeThatFits({120, size.height}).width + 2;
    const double textWidth = std::max(0.0, size.width - x - remarkWidth - margin - 8);
    title_->setFrame({x, 10, textWidth, 21});
    subtitle_->setFrame({x, 31, textWidth, 18});
    remark_->setFrame({size.width - margin - remarkWidth, 0, remarkWidth, size.height});
    hairline_->setFrame({x, size.height - 0.5, size.width - x, 0.5});
}

} // namespace phone
