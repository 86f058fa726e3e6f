// One place of the world clock: its name, how far its day is ahead, and its time.
#pragma once

#include "platform/toolkit/views/UILabel.h"

#include <ctime>

namespace phone {

class WorldClockRow : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    WorldClockRow(const std::string& place, long secondsFromUtc);

    long secondsFromUtc() const { return secondsFromUtc_; }
    /// The place's own time, and the phone's, to compare with.
    void setTimes(const std::tm& there, const std::tm& here, long hereFromUtc);

    void layoutSubviews() override;

    static constexpr double height = 68; // points

private:
    long secondsFromUtc_;
    std::shared_ptr<toolkit::UILabel> place_;
    std::shared_ptr<toolkit::UILabel> difference_;
    std::shared_ptr<toolkit::UILabel> time_;
    std::shared_ptr<toolkit::UIView> hairline_;
};

} // namespace phone
