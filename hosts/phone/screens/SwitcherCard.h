// An opened application in the switcher: what it showed last, under its icon and name.
#pragma once

#include "platform/toolkit/views/UIImageView.h"
#include "platform/toolkit/views/UILabel.h"

namespace phone {

class SwitcherCard : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    SwitcherCard(std::string bundleIdentifier, const std::string& name,
                 std::shared_ptr<const toolkit::Image> icon, std::shared_ptr<const toolkit::Image> picture);

    const std::string& bundleIdentifier() const { return bundleIdentifier_; }

    void layoutSubviews() override;
    void describeProperties(nlohmann::json& properties) const override;

    static constexpr double headerHeight = 40; // points, above the picture

private:
    std::string bundleIdentifier_;
    std::shared_ptr<toolkit::UIImageView> icon_;
    std::shared_ptr<toolkit::UILabel> name_;
    std::shared_ptr<toolkit::UIView> shadow_;
    std::shared_ptr<toolkit::UIImageView> picture_;
};

} // namespace phone
