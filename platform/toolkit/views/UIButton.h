// A control with a title or a picture.
#pragma once

#include "platform/toolkit/views/UIControl.h"
#include "platform/toolkit/views/UIImageView.h"
#include "platform/toolkit/views/UILabel.h"

namespace toolkit {

class UIButton : public UIControl {
    RUNTIME_CLASS()
public:
    explicit UIButton(Rect frame = {});

    void setTitle(std::string title);
    const std::string& title() const { return titleLabel_->text(); }
    void setImage(std::shared_ptr<const Image> image);
    const std::shared_ptr<UILabel>& titleLabel() const { return titleLabel_; }
    const std::shared_ptr<UIImageView>& imageView() const { return imageView_; }

    Size sizeThatFits(Size size) const override;
    void layoutSubviews() override;

protected:
    void highlightChanged() override;
    void enabledChanged() override;

private:
    double contentAlpha() const;
    void showState();
    std::shared_ptr<UIImageView> imageView_;
    std::shared_ptr<UILabel> titleLabel_;
};

} // namespace toolkit
