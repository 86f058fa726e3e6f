// The bar along an application's top: a title, and a button on either side. Reaches under the status bar.
#pragma once

#include "platform/toolkit/views/UIButton.h"

namespace phone {

enum class NavigationBarStyle { Light, Dark };

class NavigationBar : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    NavigationBar(const std::string& title, NavigationBarStyle style, toolkit::Color tint);

    void setTitle(const std::string& title);
    /// An empty title takes the button away; so may the button's own press.
    void setLeftButton(const std::string& title, std::function<void()> pressed);
    void setRightButton(const std::string& title, std::function<void()> pressed);

    void layoutSubviews() override;

    /// Height in points, the status bar's included, in a view of that size.
    static double heightFor(toolkit::Size view);

private:
    struct Side {
        std::shared_ptr<toolkit::UIButton> button;
        std::function<void()> pressed;
    };
    void makeButton(Side& side);
    void setButton(Side& side, const std::string& title, std::function<void()> pressed);

    toolkit::Color tint_;
    std::shared_ptr<toolkit::UILabel> title_;
    std::shared_ptr<toolkit::UIView> hairline_;
    Side left_;
    Side right_;
};

} // namespace phone
