// An application's icon on the home screen: picture, name, and the tap that opens it.
#pragma once

#include "platform/homescreen/SBIconView.h"
#include "platform/toolkit/views/UIImageView.h"
#include "platform/toolkit/views/UILabel.h"

namespace phone {

class HomeIcon : public homescreen::SBIconView {
    RUNTIME_CLASS()
public:
    HomeIcon(std::string bundleIdentifier, const std::string& name,
             std::shared_ptr<const toolkit::Image> picture, std::function<void(HomeIcon&)> tapped);

    const std::string& bundleIdentifier() const { return bundleIdentifier_; }
    /// The picture's rectangle on the screen, from which its application grows.
    toolkit::Rect pictureOnScreen() const;

    toolkit::Size sizeThatFits(toolkit::Size size) const override;
    void layoutSubviews() override;
    bool takesTouchAt(toolkit::Point point) const override { return pointInside(point); }
    void touchesBegan(const toolkit::Touch& touch) override;
    void touchesMoved(const toolkit::Touch& touch) override;
    void touchesEnded(const toolkit::Touch& touch) override;
    void touchesCancelled(const toolkit::Touch& touch) override;
    void describeProperties(nlohmann::json& properties) const override;

    static constexpr double labelHeight = 16; // points, under the picture
    static constexpr double labelGap = 5;

private:
    void setPressed(bool pressed);

    std::string bundleIdentifier_;
    std::function<void(HomeIcon&)> tapped_;
    std::shared_ptr<toolkit::UIImageView> picture_;
    std::shared_ptr<toolkit::UILabel> shadow_;
    std::shared_ptr<toolkit::UILabel> name_;
    bool pressed_ = false;
};

} // namespace phone
