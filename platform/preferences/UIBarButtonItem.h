// A button in a page's navigation bar: a title or a picture, and the message that it sends.
#pragma once

#include "platform/runtime/Class.h"
#include "platform/toolkit/rendering/Image.h"

#include <memory>
#include <string>

namespace preferences {

class UIBarButtonItem : public runtime::Object {
    RUNTIME_CLASS()
public:
    enum class Style { Plain, Done };

    /// `action` is a method of `target` (not owned) without arguments.
    UIBarButtonItem(std::string title, Style style, runtime::Object* target, runtime::Selector action)
        : title_(std::move(title)), style_(style), target_(target), action_(action) {}
    /// A null image makes an empty button.
    UIBarButtonItem(std::shared_ptr<const toolkit::Image> image, Style style, runtime::Object* target,
                    runtime::Selector action)
        : image_(std::move(image)), style_(style), target_(target), action_(action) {}

    const std::string& title() const { return title_; }
    const std::shared_ptr<const toolkit::Image>& image() const { return image_; }
    Style style() const { return style_; }
    runtime::Selector action() const { return action_; }
    /// What a tap does.
    void performAction();

private:
    std::string title_;
    std::shared_ptr<const toolkit::Image> image_;
    Style style_;
    runtime::WeakPtr<runtime::Object> target_;
    runtime::Selector action_;
};

} // namespace preferences
