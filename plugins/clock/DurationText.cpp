#include "DurationText.h"

namespace clockplugin {

namespace {

std::string twoDigits(std::int64_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

void appendCounted(std::string& text, int count, const std::string& unit) {
    if (count != 0)
        text += (text.empty() ? "" : " ") + std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
}

} // namespace

std::string countdownText(int seconds) {
    const int hours = seconds / 3600;
    const int minutes = seconds / 60 % 60;
    const std::string end = ":" + twoDigits(seconds % 60);
    return hours > 0 ? std::to_string(hours) + ":" + twoDigits(minutes) + end : std::to_string(minutes) + end;
}

std::string stopwatchText(std::int64_t hundredths) {
    const std::int64_t seconds = hundredths / 100;
    std::string text = seconds >= 3600 ? std::to_string(seconds / 3600) + ":" : "";
    return text + twoDigits(seconds / 60 % 60) + ":" + twoDigits(seconds % 60) + "." +
           twoDigits(hundredths % 100);
}

std::string spokenDuration(int seconds) {
    std::string text;
    appendCounted(text, seconds / 3600, "hour");
    appendCounted(text, seconds / 60 % 60, "minute");
    appendCounted(text, seconds % 60, "second");
    return text.empty() ? "0 seconds" : text;
}

} // namespace clockplugin
