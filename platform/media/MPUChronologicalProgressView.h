// The time line of now-playing controls: the time that has passed, the line, and the time that remains.
// Others borrow the style of its time labels.
#pragma once

#include "platform/media/MPUTimeScrubber.h"
#include "platform/toolkit/views/UILabel.h"

#include <cstdint>

namespace media {

class MPUChronologicalProgressView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    /// initWithStyle:
    explicit MPUChronologicalProgressView(std::int64_t style);

    /// A label as the time line shows times with: white, and edged so that it can be read on glass of any
    /// brightness.
    std::shared_ptr<toolkit::UILabel> _createTimeLabelWithStyle(std::int64_t style) const;

    /// Seconds; 0 for a song without a known end, which cannot be wound.
    void setTotalDuration(double seconds);
    double totalDuration() const { return duration_; }
    /// Seconds. While a finger holds the mark, the time shown is the finger's.
    void setElapsedTime(double seconds);
    double elapsedTime() const { return elapsed_; }
    /// Whether what plays comes as it is made, so that there are no times to be shown.
    void setAlwaysLive(bool alwaysLive);
    bool alwaysLive() const { return alwaysLive_; }
    /// Called with the seconds that the finger has chosen, once it is lifted.
    void setSeekHandler(std::function<void(double)> seek) { seek_ = std::move(seek); }
    void setColor(toolkit::Color color);

    const std::shared_ptr<MPUTimeScrubber>& scrubber() const { return scrubber_; }
    const std::shared_ptr<toolkit::UILabel>& elapsedLabel() const { return elapsedLabel_; }
    const std::shared_ptr<toolkit::UILabel>& remainingLabel() const { return remainingLabel_; }

    void layoutSubviews() override;
    void describeProperties(nlohmann::json& properties) const override;

    /// "3:05", or "1:02:45" from an hour on.
    static std::string timeText(double seconds);

private:
    void show();
    void showTimes(double elapsed);

    double duration_ = 0;
    double elapsed_ = 0;
    bool alwaysLive_ = false;
    std::function<void(double)> seek_;
    std::shared_ptr<MPUTimeScrubber> scrubber_;
    std::shared_ptr<toolkit::UILabel> elapsedLabel_;
    std::shared_ptr<toolkit::UILabel> remainingLabel_;
    std::shared_ptr<toolkit::UILabel> liveLabel_;
};

} // namespace media
