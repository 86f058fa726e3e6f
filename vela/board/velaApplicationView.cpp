#include "vela/board/velaApplicationView.h"

#include "platform/media/MPUChronologicalProgressView.h"
#include "platform/toolkit/gestures/UITapGestureRecognizer.h"
#include "vela/board/velaAppHostingView.h"
#include "vela/board/velaBoard.h"
#include "vela/board/velaIconView.h"

#include <nlohmann/json.hpp>

using namespace toolkit;

namespace vela {

namespace {

constexpr double veilGrey = 190.0 / 255.0;
constexpr double veilAlpha = 0.5;
/// Points of the board that stay in sight above a tile that was scrolled to.
constexpr double scrollMargin = 20;
constexpr double turnedOffMargin = 14; // points beneath that line

Rect between(const Rect& open, const Rect& closed, double progress) {
    const auto mix = [progress](double from, double to) { return progress * to + (1 - progress) * from; };
    return {mix(open.x, closed.x), mix(open.y, closed.y), mix(open.width, closed.width),
            mix(open.height, closed.height)};
}

} // namespace

runtime::Class& velaApplicationView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<velaApplicationView>("velaApplicationView", &UIView::staticClass())
            .method("appClicked", &velaApplicationView::appClicked)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(velaApplicationView)

velaApplicationView::velaApplicationView(Rect frame)
    : UIView(frame),
      grayView_(std::make_shared<UIView>(bounds())),
      icon_(std::make_shared<velaIconView>(velaIconView::frameInTile(frame.size()))) {
    setBackgroundColor(Color::clear());
    layer()->setMasksToBounds(true);
    layer()->setCornerRadius(closedCornerRadius);
    grayView_->setAlpha(1);
    grayView_->setUserInteractionEnabled(true);
    grayView_->setBackgroundColor(Color::white(veilGrey, veilAlpha));
    addSubview(grayView_);
    addSubview(icon_);
    addGestureRecognizer(std::make_shared<UITapGestureRecognizer>(this, "appClicked"));
}

void velaApplicationView::setBoard(velaBoard* board) {
    board_ = board;
}

void velaApplicationView::showTurnedOff() {
    turnedOff_ = media::MPUChronologicalProgressView(2)._createTimeLabelWithStyle(0);
    turnedOff_->setText("turned off after a crash");
    turnedOff_->setTextAlignment(TextAlignment::Center);
    grayView_->addSubview(turnedOff_);
    placeTurnedOff();
}

void velaApplicationView::placeTurnedOff() {
    if (!turnedOff_)
        return;
    const double height = turnedOff_->sizeThatFits(bounds().size()).height;
    turnedOff_->setFrame({0, bounds().height - height - turnedOffMargin, bounds().width, height});
}

std::int32_t velaApplicationView::indexOnBoard() const {
    const auto& apps = board_->apps();
    for (std::size_t index = 0; index < apps.size(); ++index)
        if (apps[index].get() == this)
            return static_cast<std::int32_t>(index);
    return 0;
}

void velaApplicationView::markAllAnimating() {
    for (const auto& tile : board_->apps())
        tile->setIsAnimating(true);
}

void velaApplicationView::openAllOn(std::int32_t openIndex) {
    for (const auto& tile : board_->apps())
        tile->animationToOpenToAppIndex(openIndex);
}

void velaApplicationView::appClicked() {
    if (isOpen_ || !board_)
        return;
    markAllAnimating();
    clickedIndex_ = indexOnBoard();
    board_->setIndexOfOpenedApp(clickedIndex_);
    waiting_ = board_->contentOffset().y >= frame().y;
    if (waiting_)
        board_->setContentOffsetAnimated({0, frame().y - scrollMargin});
    if (!hostingView_)
        makeHostingView();
    hostingView_->setAlpha(0);
    hostingView_->appWillBecomeFirstResponder();
    if (!waiting_)
        openAllOn(clickedIndex_);
}

void velaApplicationView::makeHostingView() {
    hostingView_ = std::make_shared<velaAppHostingView>(identifier_);
    hostingView_->label()->setText(icon_->lbl()->text());
    hostingView_->setAppView(this);
    hostingView_->setFrame(board_->bounds());
    hostingView_->setTransform(AffineTransform::scale(board_->scaleFactor(), board_->scaleFactor()));
    centreHostingView();
    addSubview(hostingView_);
    sendSubviewToBack(*hostingView_);
}

void velaApplicationView::finishScrollingAnimation() {
    waiting_ = false;
    openAllOn(clickedIndex_);
}

void velaApplicationView::animateCornerRadius(double from, double to) {
    layer()->setCornerRadius(to);
    layer()->addAnimation("cornerRadius", {.property = LayerProperty::CornerRadius,
                                           .from = from,
                                           .to = to,
                                           .duration = animationDuration,
                                           .curve = AnimationCurve::Linear});
}

void velaApplicationView::placeIcon() {
    icon_->setFrame(velaIconView::frameInTile(frame().size()));
}

void velaApplicationView::centreHostingView() {
    if (hostingView_)
        hostingView_->setCenter({frame().width / 2, frame().height / 2});
}

void velaApplicationView::animationToOpenToAppIndex(std::int32_t openIndex) {
    const std::int32_t index = indexOnBoard();
    originalFrame_ = frame();
    animateCornerRadius(closedCornerRadius, 0);
    UIView::animate(
        animationDuration, 0, AnimationCurve::EaseInOut,
        [&] {
            const Rect board = board_->bounds();
            setFrame({0, (index - openIndex) * board.height + board_->contentOffset().y, board.width,
                      board.height});
            grayView_->setFrame(bounds());
            if (hostingView_)
                hostingView_->setTransform({});
            centreHostingView();
            grayView_->setAlpha(0);
            icon_->setAlpha(0);
            if (index == openIndex && hostingView_)
                hostingView_->setAlpha(1);
            placeIcon();
        },
        [self = runtime::WeakPtr<velaApplicationView>(this), openIndex](bool finished) {
            if (finished && self)
                self->opened(openIndex);
        });
}

void velaApplicationView::comeToRest(bool open) {
    isAnimating_ = false;
    isOpen_ = open;
    if (board_)
        board_->setScrollEnabled(!open);
    if (hostingView_)
        hostingView_->setUserInteractionEnabled(open);
}

void velaApplicationView::opened(std::int32_t openIndex) {
    trasformedFrame_ = frame();
    comeToRest(true);
    if (!board_)
        return;
    // Every tile tells the open one, which hears it as often as there are tiles.
    const auto& apps = board_->apps();
    if (const auto open = static_cast<std::size_t>(openIndex);
        open < apps.size() && apps[open]->hostingView())
        apps[open]->hostingView()->appBecomeActive();
}

void velaApplicationView::openOpenedApp() {
    markAllAnimating();
    animateCornerRadius(closedCornerRadius, 0);
    UIView::animate(
        animationDuration, 0, AnimationCurve::EaseInOut,
        [&] {
            setFrame(trasformedFrame_);
            grayView_->setFrame(bounds());
            if (hostingView_)
                hostingView_->setTransform({});
            centreHostingView();
            grayView_->setAlpha(0);
            icon_->setAlpha(0);
            if (hostingView_ && hostingView_->alpha() != 0)
                hostingView_->setAlpha(1);
            placeIcon();
        },
        [self = runtime::WeakPtr<velaApplicationView>(this)](bool finished) {
            if (finished && self)
                self->comeToRest(true);
        });
}

void velaApplicationView::closeOpenedApp() {
    markAllAnimating();
    animateCornerRadius(layer()->cornerRadius(), closedCornerRadius);
    UIView::animate(
        animationDuration, 0, AnimationCurve::EaseInOut,
        [&] {
            setFrame(originalFrame_);
            grayView_->setFrame(bounds());
            const double factor = board_->mainFactor();
            if (hostingView_)
                hostingView_->setTransform(AffineTransform::scale(factor, factor));
            centreHostingView();
            grayView_->setAlpha(1);
            icon_->setAlpha(1);
            if (hostingView_)
                hostingView_->setAlpha(0);
            placeIcon();
        },
        [self = runtime::WeakPtr<velaApplicationView>(this)](bool finished) {
            if (finished && self)
                self->comeToRest(false);
        });
}

void velaApplicationView::followClosing(float progress) {
    grayView_->setAlpha(progress);
    icon_->setAlpha(progress);
    layer()->setCornerRadius(closedCornerRadius * static_cast<double>(progress));
    setFrame(between(trasformedFrame_, originalFrame_, progress));
}

void velaApplicationView::layoutSubviews() {
    if (isAnimating_)
        return;
    grayView_->setFrame(bounds());
    placeTurnedOff();
    placeIcon();
    if (!hostingView_ || !board_)
        return;
    const Rect board = board_->frame();
    if (board.isEmpty())
        return;
    hostingView_->setTransform({});
    hostingView_->setFrame(board_->bounds());
    hostingView_->setTransform(
        AffineTransform::scale(frame().width / board.width, frame().height / board.height));
    centreHostingView();
}

void velaApplicationView::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    const auto array = [](const Rect& rect) {
        return nlohmann::json{rect.x, rect.y, rect.width, rect.height};
    };
    properties["clickedIndex"] = clickedIndex_;
    properties["isAnimating"] = isAnimating_;
    properties["isOpen"] = isOpen_;
    properties["waiting"] = waiting_;
    properties["identifier"] = identifier_;
    properties["originalFrame"] = array(originalFrame_);
    properties["trasformedFrame"] = array(trasformedFrame_);
}

} // namespace vela
