// A plug-in's view as the toolkit sees it.
//
// Its class is made for the plug-in: it is named as the principal class, goes on from UIView, and responds to
// exactly those of the optional methods that the plug-in has. An exception ends the plug-in: its children are
// hidden, its timers stopped, and a line says so in its place.
#pragma once

#include "platform/plugins/PluginCall.h"
#include "platform/plugins/TouchedView.h"
#include "sdk/VelaPlugin.h"

namespace toolkit {
class UILabel;
}

namespace plugins {

class PluginHost;
struct BundleInformation;

class PluginView final : public TouchedView {
public:
    /// A view with a zero frame; null when the plug-in cannot make its own. `principalClass` stays for good.
    static std::shared_ptr<PluginView> make(const BundleInformation& bundle,
                                            const vela::plugin::PrincipalClass& principalClass);
    ~PluginView() override;

    runtime::Class& isa() const override { return class_; }
    const std::string& identifier() const { return caller_->identifier; }
    /// An exception has left the plug-in.
    bool hasEnded() const { return caller_->ended; }

    bool drawsContent() const override;
    void drawContent(toolkit::Canvas& canvas, toolkit::Rect bounds) override;
    void layoutSubviews() override;
    void describeProperties(nlohmann::json& properties) const override;

private:
    PluginView(const BundleInformation& bundle, const vela::plugin::PrincipalClass& principalClass);
    static runtime::Class& classFor(const vela::plugin::PrincipalClass& principalClass);
    void perform(const vela::plugin::PrincipalClass::Method& method);
    void pass(const toolkit::Touch& touch) override;
    void showEnd();
    void keepForever();

    const vela::plugin::PrincipalClass& principalClass_;
    runtime::Class& class_;
    std::shared_ptr<Caller> caller_ = std::make_shared<Caller>();
    std::unique_ptr<PluginHost> host_;
    std::unique_ptr<vela::plugin::View> view_; // null only while it is being made
    std::shared_ptr<toolkit::UILabel> endLabel_;
};

} // namespace plugins
