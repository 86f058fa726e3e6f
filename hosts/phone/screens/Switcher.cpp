#include "hosts/phone/screens/Switcher.h"

#include "platform/toolkit/gestures/UITapGestureRecognizer.h"

using namespace toolkit;

namespace phone {

namespace {

constexpr double cardFraction = 0.60; // of the screen's width and height
constexpr double cardGap = 22;        // points

} // namespace

runtime::Class& Switcher::staticClass() {
    static runtime::Class& cls = runtime::ClassBuilder<Switcher>("Switcher", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(Switcher)

Switcher::Switcher(std::shared_ptr<const Image> background, std::function<void(const SwitcherCard*)> chosen)
    : chosen_(std::move(chosen)),
      background_(std::make_shared<UIImageView>(Rect(), std::move(background))),
      shade_(std::make_shared<UIView>()),
      row_(std::make_shared<UIScrollView>()) {
    setBackgroundColor(Color::black());
    setClipsToBounds(true);
    background_->setContentMode(ContentGravity::AspectFill);
    shade_->setBackgroundColor(Color::rgba(0.02, 0.02, 0.08, 0.55));
    addSubview(background_);
    addSubview(shade_);
    addSubview(row_);
    auto tap = std::make_shared<UITapGestureRecognizer>(nullptr, runtime::Selector("tapped:"));
    tap->addHandler([this](UIGestureRecognizer& recognizer) {
        if (recognizer.state() == GestureState::Ended)
            handleTap(recognizer.locationInView(row_.get()));
    });
    row_->addGestureRecognizer(tap);
}

void Switcher::setCards(std::vector<std::shared_ptr<SwitcherCard>> cards) {
    for (const auto& card : cards_)
        card->removeFromSuperview();
    cards_ = std::move(cards);
    for (const auto& card : cards_)
        row_->addSubview(card);
    row_->setContentOffset({0, 0});
    setNeedsLayout();
}

void Switcher::layoutSubviews() {
    const Size size = bounds().size();
    background_->setFrame({0, 0, size.width, size.height});
    shade_->setFrame(background_->frame());
    row_->setBounds({row_->contentOffset(), size});
    row_->setCenter({size.width / 2, size.height / 2});
    const double width = size.width * cardFraction;
    const double height = size.height * cardFraction + SwitcherCard::headerHeight;
    const double margin = (size.width - width) / 2;
    double x = margin;
    for (const auto& card : cards_) {
        card->setFrame({x, (size.height - height) / 2 - SwitcherCard::headerHeight / 4, width, height});
        x += width + cardGap;
    }
    row_->setContentSize({x - cardGap + margin, size.height});
}

void Switcher::handleTap(Point point) {
    for (const auto& card : cards_)
        if (card->frame().contains(point))
            return chosen_(card.get());
    chosen_(nullptr);
}

} // namespace phone
