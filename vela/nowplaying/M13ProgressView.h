// What every progress indicator has: two colours, a progress from 0 to 1, and a mode for progress that nobody
// knows. Alone it draws nothing. Main thread only.
#pragma once

#include "platform/toolkit/views/UIView.h"

#include <cstdint>

namespace vela {

/// What an indicator can be asked to show instead of a progress.
enum M13ProgressViewAction : std::int32_t {
    M13ProgressViewActionNone = 0,
    M13ProgressViewActionSuccess = 1,
    M13ProgressViewActionFailure = 2,
};

class M13ProgressView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    explicit M13ProgressView(toolkit::Rect frame = {});

    toolkit::Color primaryColor() const { return primaryColor_; }
    virtual void setPrimaryColor(toolkit::Color color) { primaryColor_ = color; }
    toolkit::Color secondaryColor() const { return secondaryColor_; }
    virtual void setSecondaryColor(toolkit::Color color) { secondaryColor_ = color; }
    bool indeterminate() const { return indeterminate_; }
    virtual void setIndeterminate(bool indeterminate) { indeterminate_ = indeterminate; }
    /// Length of fades and of animated progress, seconds.
    double animationDuration() const { return animationDuration_; }
    void setAnimationDuration(double duration) { animationDuration_ = duration; }

    double progress() const { return progress_; }
    /// setProgress:animated:
    virtual void setProgress(double progress, bool animated);
    /// performAction:animated: Any number but those of the actions does nothing.
    virtual void performAction(std::int32_t action, bool animated);

    void describeProperties(nlohmann::json& properties) const override;

protected:
    void storeProgress(double progress) { progress_ = progress; }

private:
    toolkit::Color primaryColor_;
    toolkit::Color secondaryColor_;
    bool indeterminate_ = false;
    double animationDuration_ = 0.3;
    double progress_ = 0;
};

} // namespace vela
