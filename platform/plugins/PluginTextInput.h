// What a plug-in's text views and text fields have in common.
//
// `View` is a toolkit text input that reports when its editing begins and ends.
#pragma once

#include "platform/plugins/Handler.h"
#include "platform/plugins/PluginChild.h"

namespace plugins {

/// A toolkit text input that tells of its editing.
template <class Base>
class ReportingTextInput : public Base {
public:
    void becameFirstResponder() override {
        Base::becameFirstResponder();
        if (editingChanged)
            editingChanged(true);
    }
    void resignedFirstResponder() override {
        Base::resignedFirstResponder();
        if (editingChanged)
            editingChanged(false);
    }

    std::function<void(bool)> editingChanged;
};

template <class Interface, class Base>
class PluginTextInput : public PluginChild<Interface, ReportingTextInput<Base>> {
    using Child = PluginChild<Interface, ReportingTextInput<Base>>;

public:
    PluginTextInput(toolkit::UIView& parent, CallerPointer caller)
        : Child(parent, std::move(caller), std::make_shared<ReportingTextInput<Base>>()) {
        this->view().setTextColor(toToolkit(sdk::colors::primary));
        this->view().editingChanged = [editing = std::weak_ptr(editing_),
                                       calls = this->caller()](bool isEditing) {
            if (const auto handler = editing.lock())
                handler->call(calls, "an editing handler", isEditing);
        };
    }
    ~PluginTextInput() override {
        // The keyboard goes with the view, but what that means is no longer the plug-in's business.
        this->view().editingChanged = nullptr;
        this->view().resignFirstResponder();
    }

    std::string text() const override { return this->view().text(); }
    void setText(std::string_view text) override { this->view().setText(std::string(text)); }
    void setFont(sdk::Font font) override { this->view().setFont(toToolkit(font)); }
    void setColor(sdk::Color color) override { this->view().setTextColor(toToolkit(color)); }
    void setAlignment(sdk::Alignment alignment) override {
        this->view().setTextAlignment(toToolkit(alignment));
    }
    bool isEditing() const override { return this->view().isFirstResponder(); }
    void setEditing(bool editing) override {
        if (editing)
            this->view().becomeFirstResponder();
        else
            this->view().resignFirstResponder();
    }
    void onChange(std::function<void()> handler) override { change_->set(std::move(handler)); }
    void onEditing(std::function<void(bool)> handler) override { editing_->set(std::move(handler)); }

protected:
    /// What the toolkit is to call after an edit.
    std::function<void()> changeReport() const {
        return [change = std::weak_ptr(change_), calls = this->caller()] {
            if (const auto handler = change.lock())
                handler->call(calls, "a change handler");
        };
    }

private:
    std::shared_ptr<Handler<>> change_ = std::make_shared<Handler<>>();
    std::shared_ptr<Handler<bool>> editing_ = std::make_shared<Handler<bool>>();
};

} // namespace plugins
