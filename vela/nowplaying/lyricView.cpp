#include "vela/nowplaying/lyricView.h"

#include "vela/nowplaying/LyricResult.h"

#include <nlohmann/json.hpp>

#include <limits>

using namespace toolkit;

namespace vela {

namespace {

constexpr double fadeDuration = 0.3; // seconds
constexpr double lyricFontSize = 16; // points
constexpr double placeholderFontSize = 20;
constexpr double ringSide = 50;
constexpr const char* atRest = "Lyric";
constexpr const char* noLyric = "No lyric";
constexpr const char* songNotUsable = "Error with song";
constexpr const char* transferFailed = "An error as occured"; // the misspelling is known to users, and stays

} // namespace

runtime::Class& lyricView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<lyricView>("lyricView", &UITextView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(lyricView)

lyricView::lyricView(Rect frame) : UITextView(frame), ring_(std::make_shared<M13ProgressViewRing>()) {
    setUserInteractionEnabled(true);
    setShowsHorizontalScrollIndicator(false);
    setShowsVerticalScrollIndicator(false);
    setEditable(false);
    setSelectable(false);
    setTextAlignment(TextAlignment::Center);
    setFont(Font::system(placeholderFontSize));
    setTextColor(Color::white(1));
    setBackgroundColor(Color::clear());
    setDelegate(this);
    setText(atRest);
    addRing();
    addMask();
}

lyricView::~lyricView() {
    setDelegate(nullptr);
}

void lyricView::addRing() {
    ring_->setPrimaryColor(Color::white(1));
    ring_->setSecondaryColor(Color::white(1, 0.6));
    ring_->setShowPercentage(false);
    ring_->setAlpha(0);
    addSubview(ring_);
}

void lyricView::addMask() {
    GradientMask mask;
    mask.stops = {{0.0, Color::clear()}, {0.2, Color::black()}, {1.0, Color::black()}, {1.0, Color::clear()}};
    mask.bounds = layer()->bounds();
    layer()->setMask(std::move(mask));
}

// Texts

void lyricView::setText(const std::string& text, int withError) {
    stopAnimatingRing();
    UIView::transitionCrossDissolve(
        *this, fadeDuration, [&] { show(text, withError); },
        [self = runtime::WeakPtr<lyricView>(this)](bool finished) {
            if (finished && self)
                self->setContentSize(
                    self->sizeThatFits({self->bounds().width, std::numeric_limits<double>::max()}));
        });
}

void lyricView::show(const std::string& text, int code) {
    switch (static_cast<LyricResult>(code)) {
    case LyricResult::TransferFailed:
        return showPlaceholder(transferFailed);
    case LyricResult::NoLyric:
        return showPlaceholder(noLyric);
    case LyricResult::TextPresent:
        break;
    default:
        return showPlaceholder(songNotUsable);
    }
    if (text == noLyric || text == atRest)
        return showPlaceholder(text);
    setFont(Font::system(lyricFontSize));
    setScrollEnabled(true);
    setText(text);
}

void lyricView::showPlaceholder(const std::string& text) {
    setFont(Font::system(placeholderFontSize));
    setScrollEnabled(false);
    setText(text);
}

// Ring

void lyricView::startAnimatingRing() {
    ring_->setHidden(false);
    ring_->setIndeterminate(true);
    ring_->setShowPercentage(false);
    UIView::transitionCrossDissolve(*this, fadeDuration, [&] { setText(""); });
    UIView::animate(fadeDuration, 0, AnimationCurve::EaseInOut, [&] { ring_->setAlpha(1); });
}

void lyricView::stopAnimatingRing() {
    UIView::animate(
        fadeDuration, 0, AnimationCurve::EaseInOut, [&] { ring_->setAlpha(0); },
        [ring = ring_](bool finished) {
            if (finished) {
                ring->setIndeterminate(false);
                ring->setShowPercentage(false);
            }
            ring->setHidden(true);
        });
}

// Geometry

void lyricView::setContentSize(Size size) {
    UITextView::setContentSize(size);
    const double top = std::max(0.0, (bounds().height - size.height * zoomScale()) * 0.5);
    setContentInset({top, 0, 0, 0});
    ring_->setFrame(
        {(frame().width - ringSide) * 0.5, (frame().height - ringSide) * 0.5 - top, ringSide, ringSide});
}

void lyricView::setFrame(Rect frame) {
    UITextView::setFrame(frame);
    layer()->setMaskBounds(bounds());
}

void lyricView::scrollViewDidScroll(UIScrollView&) {
    layer()->setMaskPosition({0, contentOffset().y});
}

// Dragging

void lyricView::scrollViewWillBeginDragging(UIScrollView&) {
    canAutoScroll_ = false;
}

void lyricView::scrollViewWillEndDragging(UIScrollView&, Point, Point&) {
    canAutoScroll_ = true;
}

void lyricView::describeProperties(nlohmann::json& properties) const {
    UITextView::describeProperties(properties);
    properties["canAutoScroll"] = canAutoScroll_;
}

} // namespace vela
