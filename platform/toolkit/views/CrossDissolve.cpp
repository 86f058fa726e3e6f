// UIView's cross-fade between two looks: a picture of the old one fades out over the new one, which fades in.
#include "platform/toolkit/layers/LayerSnapshot.h"
#include "platform/toolkit/views/UIView.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/UIWindow.h"

#include <algorithm>

namespace toolkit {

namespace {

/// A layer with the picture of what `view` shows now, in front of it. A view in no tree, one that shows
/// nothing, or one in a hidden window gets a layer that nobody sees: it still carries the transition's time.
std::shared_ptr<Layer> coverWithPicture(const UIView& view) {
    auto cover = std::make_shared<Layer>();
    Layer* parent = view.layer()->superlayer();
    const UIWindow* window = view.window();
    if (!parent || (window && window->isHidden()))
        return cover;
    const auto snapshot = LayerSnapshot::take(view.layer(), UIScreen::mainScreen().scale());
    if (!snapshot)
        return cover;
    cover->setBounds({{}, snapshot->frame.size()});
    cover->setPosition(snapshot->frame.center());
    cover->setContents(snapshot->image);
    const auto& siblings = parent->sublayers();
    const auto place = std::find(siblings.begin(), siblings.end(), view.layer());
    parent->insertSublayer(cover, static_cast<std::size_t>(place - siblings.begin()) + 1);
    return cover;
}

} // namespace

void UIView::transitionCrossDissolve(UIView& view, double duration, const std::function<void()>& changes,
                                     AnimationCompletion completion) {
    auto& engine = AnimationEngine::shared();
    std::shared_ptr<Layer> cover;
    engine.withoutAnimation([&] {
        cover = coverWithPicture(view);
        if (changes)
            changes();
    });
    Layer::BasicAnimation fadeIn{LayerProperty::Opacity, 0.0, view.layer_->presented(LayerProperty::Opacity)};
    fadeIn.duration = duration;
    view.layer_->addAnimation("crossDissolve", fadeIn);
    // The cover carries the time: the view itself may be changed further, or go, without ending the
    // transition.
    engine.animate(
        duration, 0, AnimationCurve::Linear, [&cover] { cover->setOpacity(0); },
        [cover, completion = std::move(completion)](bool finished) {
            cover->removeFromSuperlayer();
            if (completion)
                completion(finished);
        });
}

} // namespace toolkit
