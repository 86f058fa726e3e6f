// Where a plug-in's child views are made: an implementation of the contract's Container, or of an interface
// that goes on from it, for one toolkit view.
#pragma once

#include "platform/plugins/PluginChild.h"

namespace plugins {

std::unique_ptr<sdk::Label> makeLabel(toolkit::UIView& parent, const CallerPointer& caller,
                                      std::string_view text);
std::unique_ptr<sdk::Button> makeButton(toolkit::UIView& parent, const CallerPointer& caller,
                                        std::string_view title);
std::unique_ptr<sdk::DrawnArea> makeDrawnArea(toolkit::UIView& parent, const CallerPointer& caller);
std::unique_ptr<sdk::ScrollArea> makeScrollArea(toolkit::UIView& parent, const CallerPointer& caller);
std::unique_ptr<sdk::TextView> makeTextView(toolkit::UIView& parent, const CallerPointer& caller);
std::unique_ptr<sdk::TextField> makeTextField(toolkit::UIView& parent, const CallerPointer& caller);

template <class Interface>
class PluginContainer : public Interface {
public:
    PluginContainer(toolkit::UIView& parent, CallerPointer caller)
        : parent_(parent), caller_(std::move(caller)) {}

    std::unique_ptr<sdk::Label> addLabel(std::string_view text) override {
        return makeLabel(parent_, caller_, text);
    }
    std::unique_ptr<sdk::Button> addButton(std::string_view title) override {
        return makeButton(parent_, caller_, title);
    }
    std::unique_ptr<sdk::DrawnArea> addDrawnArea() override { return makeDrawnArea(parent_, caller_); }
    std::unique_ptr<sdk::ScrollArea> addScrollArea() override { return makeScrollArea(parent_, caller_); }
    std::unique_ptr<sdk::TextView> addTextView() override { return makeTextView(parent_, caller_); }
    std::unique_ptr<sdk::TextField> addTextField() override { return makeTextField(parent_, caller_); }

protected:
    ~PluginContainer() = default;
    toolkit::UIView& parent() const { return parent_; }
    const CallerPointer& caller() const { return caller_; }

private:
    toolkit::UIView& parent_; // owns this, directly or through the plug-in
    CallerPointer caller_;
};

} // namespace plugins
