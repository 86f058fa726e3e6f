#include "platform/plugins/PluginView.h"

#include "platform/foundation/RunLoop.h"
#include "platform/plugins/BundleInformation.h"
#include "platform/plugins/CallRecord.h"
#include "platform/plugins/PluginCanvas.h"
#include "platform/plugins/PluginHost.h"
#include "platform/toolkit/views/TextInput.h"
#include "platform/toolkit/views/UILabel.h"

#include <nlohmann/json.hpp>

#include <unordered_map>
#include <utility>
#include <vector>

namespace plugins {

// ---- Class

runtime::Class& PluginView::classFor(const sdk::PrincipalClass& principalClass) {
    // Not announced by name: what a plug-in calls its class must not stand in for a class of the host's.
    static auto& classes = *new std::unordered_map<const sdk::PrincipalClass*, runtime::Class>;
    const auto [entry, isNew] =
        classes.try_emplace(&principalClass, principalClass.name, &UIView::staticClass());
    runtime::Class& cls = entry->second;
    if (!isNew)
        return cls;
    for (const auto& method : principalClass.methods)
        if (method.call)
            cls.setMethod(method.name,
                          runtime::Implementation::of(std::function<void(Object&)>(
                              [&method](Object& self) { static_cast<PluginView&>(self).perform(method); })));
    return cls;
}

// ---- Life

PluginView::PluginView(const BundleInformation& bundle, const sdk::PrincipalClass& principalClass)
    : principalClass_(principalClass), class_(classFor(principalClass)) {
    caller_->identifier = bundle.identifier;
    host_ = std::make_unique<PluginHost>(*this, caller_, bundle.directory);
}

std::shared_ptr<PluginView> PluginView::make(const BundleInformation& bundle,
                                             const sdk::PrincipalClass& principalClass) {
    const std::shared_ptr<PluginView> made(new PluginView(bundle, principalClass));
    made->caller_->view = made;
    PluginCall::run(made->caller_, "its view's creation",
                    [&] { made->view_.reset(principalClass.create(*made->host_)); });
    if (!made->view_)
        return nullptr;
    made->caller_->onEnd = [view = made.get()] { view->showEnd(); };
    return made;
}

PluginView::~PluginView() {
    caller_->onEnd = nullptr;
    if (caller_->ended)
        keepForever();
    else if (view_)
        PluginCall::run(caller_, "its view's destruction", [this] { view_.reset(); });
}

/// The code of what has ended is not called any more, its destructors included, and they would need the host.
void PluginView::keepForever() {
    using Ended = std::pair<std::unique_ptr<sdk::View>, std::unique_ptr<PluginHost>>;
    static auto& kept = *new std::vector<Ended>;
    kept.emplace_back(std::move(view_), std::move(host_));
}

void PluginView::showEnd() {
    host_->stopTimers();
    auto* typingInto = dynamic_cast<UIView*>(toolkit::TextInput::current());
    if (typingInto && typingInto->isDescendantOf(*this))
        toolkit::TextInput::current()->resignFirstResponder();
    for (const auto& subview : subviews())
        subview->setHidden(true);
    endLabel_ = std::make_shared<toolkit::UILabel>();
    endLabel_->setText("This plug-in has stopped.");
    endLabel_->setTextColor(toToolkit(sdk::colors::secondary));
    endLabel_->setTextAlignment(toolkit::TextAlignment::Center);
    addSubview(endLabel_);
    setNeedsDisplay();
}

// ---- Calls

void PluginView::perform(const sdk::PrincipalClass::Method& method) {
    if (!view_ || caller_->ended)
        return;
    recordCall({identifier(), method.name, foundation::RunLoop::main().now()});
    PluginCall::run(caller_, method.name, [&] { method.call(*view_); });
}

bool PluginView::drawsContent() const {
    return principalClass_.draws && view_ && !caller_->ended;
}

void PluginView::drawContent(toolkit::Canvas& canvas, toolkit::Rect bounds) {
    PluginCanvas pluginCanvas(canvas);
    PluginCall::run(caller_, "draw", [&] { view_->draw(pluginCanvas, {0, 0, bounds.width, bounds.height}); });
}

void PluginView::layoutSubviews() {
    if (endLabel_)
        endLabel_->setFrame({0, 0, bounds().width, bounds().height});
    if (view_ && !bounds().isEmpty())
        PluginCall::run(caller_, "layout", [this] { view_->layout(host_->bounds()); });
}

void PluginView::pass(const toolkit::Touch& touch) {
    const auto call = [&](const char* name, void (sdk::View::*method)(const sdk::Touch&)) {
        PluginCall::run(caller_, name, [&] { (*view_.*method)(toPlugin(touch, *this)); });
    };
    if (!view_)
        return;
    switch (touch.phase) {
    case toolkit::TouchPhase::Began:
        return call("touchBegan", &sdk::View::touchBegan);
    case toolkit::TouchPhase::Moved:
        return call("touchMoved", &sdk::View::touchMoved);
    case toolkit::TouchPhase::Ended:
        return call("touchEnded", &sdk::View::touchEnded);
    case toolkit::TouchPhase::Cancelled:
        return call("touchCancelled", &sdk::View::touchCancelled);
    }
}

void PluginView::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["pluginIdentifier"] = identifier();
    properties["pluginHasEnded"] = hasEnded();
}

} // namespace plugins
