#include "hosts/phone/screens/MonthView.h"

#include "platform/toolkit/text/TextLayout.h"

using namespace toolkit;

namespace phone {

namespace {
const Color accent = Color::rgba(0.96, 0.29, 0.27);
}

runtime::Class& MonthView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MonthView>("MonthView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MonthView)

MonthView::MonthView(MonthViewStyle style) : style_(style) {
    setUserInteractionEnabled(false);
}

void MonthView::setMonth(int year, int month, int markedDay) {
    if (year == year_ && month == month_ && markedDay == markedDay_)
        return;
    year_ = year;
    month_ = month;
    markedDay_ = markedDay;
    setNeedsDisplay();
}

int MonthView::daysInMonth(int year, int month) {
    static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return days[month] + (month == 1 && leap ? 1 : 0);
}

int MonthView::weekday(int year, int month, int day) {
    std::tm date{};
    date.tm_year = year - 1900;
    date.tm_mon = month;
    date.tm_mday = day;
    const std::time_t noon = timegm(&date) + 12 * 3600;
    gmtime_r(&noon, &date);
    return date.tm_wday;
}

void MonthView::drawContent(Canvas& canvas, Rect bounds) {
    static const char* const initials[] = {"S", "M", "T", "W", "T", "F", "S"};
    const int first = weekday(year_, month_, 1), days = daysInMonth(year_, month_);
    const int rows = (first + days + 6) / 7;
    const double cellWidth = bounds.width / 7, cellHeight = bounds.height / (rows + 1);
    dayFontSize_ = std::min({cellHeight * 0.56, cellWidth * 0.42, 20.0});
    const Color weekdays = style_ == MonthViewStyle::OnPaper ? Color::white(0.55) : Color::white(1, 0.65);
    for (int column = 0; column < 7; ++column)
        drawText(canvas, initials[column], {(column + 0.5) * cellWidth, cellHeight / 2}, true, weekdays,
                 std::max(10.0, dayFontSize_ * 0.75));
    for (int day = 1; day <= days; ++day) {
        const int cell = first + day - 1;
        drawDay(canvas, day, {(cell % 7 + 0.5) * cellWidth, (cell / 7 + 1.5) * cellHeight});
    }
}

void MonthView::drawDay(Canvas& canvas, int day, Point center) const {
    const bool marked = day == markedDay_;
    const int column = weekday(year_, month_, day);
    const Color ink = style_ == MonthViewStyle::OnPaper ? Color::white(0.10) : Color::white(1);
    if (marked) {
        const double radius = dayFontSize_ * 0.95;
        canvas.fillPath(Path::ellipse({center.x - radius, center.y - radius, 2 * radius, 2 * radius}),
                        style_ == MonthViewStyle::OnPaper ? accent : Color::white(1, 0.95));
    }
    const Color color =
        marked ? (style_ == MonthViewStyle::OnPaper ? Color::white(1) : Color::rgba(0.35, 0.2, 0.5))
               : ink.withAlpha(column == 0 || column == 6 ? 0.6 : 1);
    drawText(canvas, std::to_string(day), center, marked, color, dayFontSize_);
}

void MonthView::drawText(Canvas& canvas, const std::string& text, Point center, bool bold, Color color,
                         double size) const {
    TextStyle style;
    style.font = Font::system(size, bold ? FontWeight::Semibold : FontWeight::Regular);
    const TextLayout layout(text, style, -1);
    const Size extent = layout.size();
    canvas.drawText(layout, {center.x - extent.width / 2, center.y - extent.height / 2}, color);
}

} // namespace phone
