// An analogue clock: a face that is painted once, and hands that turn over it.
#pragma once

#include "platform/toolkit/views/UIView.h"

#include <ctime>

namespace phone {

enum class ClockFaceStyle { Light, Dark };
enum class SecondHand { Shown, Hidden };

class ClockFace : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    ClockFace(ClockFaceStyle style, SecondHand secondHand);

    void setTime(const std::tm& time);

    bool drawsContent() const override { return true; }
    void drawContent(toolkit::Canvas& canvas, toolkit::Rect bounds) override;
    void layoutSubviews() override;

private:
    class Hand;
    std::shared_ptr<Hand> addHand(toolkit::Color color);

    ClockFaceStyle style_;
    SecondHand secondHand_;
    std::shared_ptr<Hand> hour_;
    std::shared_ptr<Hand> minute_;
    std::shared_ptr<Hand> second_;
};

} // namespace phone
