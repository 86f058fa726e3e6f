// A month as a table of days, one day marked. Painted once, and again when the month or the day changes.
#pragma once

#include "platform/toolkit/views/UIView.h"

#include <ctime>

namespace phone {

enum class MonthViewStyle { OnWallpaper, OnPaper };

class MonthView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    explicit MonthView(MonthViewStyle style);

    /// `month` from 0 to 11, `markedDay` from 1, or 0 for none.
    void setMonth(int year, int month, int markedDay);

    bool drawsContent() const override { return true; }
    void drawContent(toolkit::Canvas& canvas, toolkit::Rect bounds) override;

    static int daysInMonth(int year, int month);
    /// 0 is Sunday.
    static int weekday(int year, int month, int day);

private:
    void drawDay(toolkit::Canvas& canvas, int day, toolkit::Point center) const;
    void drawText(toolkit::Canvas& canvas, const std::string& text, toolkit::Point center, bool bold,
                  toolkit::Color color, double size) const;

    MonthViewStyle style_;
    int year_ = 2016;
    int month_ = 0;
    int markedDay_ = 0;
    double dayFontSize_ = 14;
};

} // namespace phone
