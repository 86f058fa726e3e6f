// What all child views have in common: a toolkit view within the plug-in's, shown as long as the plug-in
// keeps the child.
#pragma once

#include "platform/plugins/Conversions.h"
#include "platform/plugins/PluginCall.h"
#include "platform/toolkit/views/UIView.h"

namespace plugins {

using CallerPointer = std::shared_ptr<Caller>;

template <class Interface, class View>
class PluginChild : public Interface {
public:
    PluginChild(toolkit::UIView& parent, CallerPointer caller, std::shared_ptr<View> view)
        : caller_(std::move(caller)), view_(std::move(view)) {
        parent.addSubview(view_);
    }
    ~PluginChild() override { view_->removeFromSuperview(); }
    PluginChild(const PluginChild&) = delete;
    PluginChild& operator=(const PluginChild&) = delete;

    sdk::Rect frame() const override { return toPlugin(view_->frame()); }
    void setFrame(sdk::Rect frame) override { view_->setFrame(toToolkit(frame)); }
    void setHidden(bool hidden) override { view_->setHidden(hidden); }
    void setAlpha(double alpha) override { view_->setAlpha(within(alpha, 0, 1)); }
    void setBackground(sdk::Color color) override { view_->setBackgroundColor(toToolkit(color)); }
    void setCornerRadius(double radius) override {
        view_->layer()->setCornerRadius(within(radius, 0, farthestCoordinate));
    }
    sdk::Size sizeThatFits(sdk::Size available) const override {
        return toPlugin(view_->sizeThatFits(toToolkit(available)));
    }
    void bringToFront() override {
        if (auto* parent = view_->superview())
            parent->bringSubviewToFront(*view_);
    }

protected:
    const CallerPointer& caller() const { return caller_; }
    View& view() const { return *view_; }

private:
    CallerPointer caller_;
    std::shared_ptr<View> view_;
};

} // namespace plugins
