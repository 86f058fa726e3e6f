// One photograph over the whole screen; a swipe to the side shows the next one.
#pragma once

#include "platform/toolkit/views/UIImageView.h"

namespace toolkit {
class UIPanGestureRecognizer;
}

namespace phone {

class PhotoViewer : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    PhotoViewer(int count, std::function<void(int)> shown);

    int number() const { return number_; }
    void show(int number);

    void layoutSubviews() override;
    void describeProperties(nlohmann::json& properties) const override;

private:
    void handlePan(toolkit::UIPanGestureRecognizer& pan);
    void draw();

    int count_;
    std::function<void(int)> shown_;
    int number_ = 0;
    toolkit::Size drawn_;
    std::shared_ptr<toolkit::UIImageView> picture_;
};

} // namespace phone
