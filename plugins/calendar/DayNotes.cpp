#include "DayNotes.h"

#include "DateText.h"

#include <algorithm>
#include <optional>

namespace calendarplugin {

namespace {
constexpr std::string_view signature = "vela calendar 1";
constexpr std::string_view lastLine = "days: ";
constexpr std::size_t longestText = 400; // bytes
constexpr std::size_t dateLength = 10;

std::string_view takeLine(std::string_view& rest) {
    const std::size_t length = std::min(rest.find('\n'), rest.size());
    const std::string_view line = rest.substr(0, length);
    rest.remove_prefix(std::min(length + 1, rest.size()));
    return line;
}

bool isContinuation(char character) {
    return (static_cast<unsigned char>(character) & 0xC0) == 0x80;
}
} // namespace

std::string singleLine(std::string_view text) {
    std::string line(text);
    for (char& character : line)
        if (static_cast<unsigned char>(character) < ' ' || character == '\x7f')
            character = ' ';
    line.erase(0, std::min(line.find_first_not_of(' '), line.size()));
    if (line.size() > longestText) {
        std::size_t length = longestText;
        while (length > 0 && isContinuation(line[length]))
            --length;
        line.resize(length);
    }
    line.resize(line.find_last_not_of(' ') + 1);
    return line;
}

DayNotes::DayNotes(vela::plugin::Storage& storage, std::function<void(std::string_view)> log)
    : storage_(storage), log_(std::move(log)) {
    load();
}

void DayNotes::load() {
    const auto contents = storage_.read(fileName);
    if (!contents) {
        const auto names = storage_.names();
        unreadable_ = std::find(names.begin(), names.end(), fileName) != names.end();
        if (unreadable_)
            log_("The notes of the days cannot be read; nothing will be written over them");
        return;
    }
    if (parse(*contents))
        return;
    damaged_ = *contents;
    if (setAside(damaged_))
        damaged_.clear();
}

/// Takes in every line that is a day's; false when anything else is amiss.
bool DayNotes::parse(std::string_view contents) {
    bool sound = takeLine(contents) == signature;
    bool ended = false;
    while (!contents.empty()) {
        const std::string_view line = takeLine(contents);
        if (line.starts_with(lastLine)) {
            ended = contents.empty() && line.substr(lastLine.size()) == std::to_string(notes_.size());
            continue;
        }
        const auto date = dateFromIsoText(line.substr(0, std::min(dateLength, line.size())));
        const std::string text =
            date && line.size() > dateLength ? singleLine(line.substr(dateLength + 1)) : "";
        if (text.empty() || line[dateLength] != ' ')
            sound = false;
        else
            notes_[*date] = text;
    }
    return sound && ended;
}

bool DayNotes::setAside(const std::string& contents) {
    const auto names = storage_.names();
    std::string copy;
    for (int number = 1; copy.empty(); ++number) {
        const std::string candidate = "damaged-" + std::to_string(number) + "-" + fileName;
        const bool isTaken = std::find(names.begin(), names.end(), candidate) != names.end();
        if (!isTaken || storage_.read(candidate) == contents)
            copy = candidate;
    }
    const bool kept = storage_.write(copy, contents);
    log_(kept ? "The notes of the days are damaged; the file was set aside as " + copy
              : "The notes of the days are damaged, and the file could not be set aside");
    return kept;
}

std::string DayNotes::of(Date date) const {
    const auto note = notes_.find(date);
    return note == notes_.end() ? std::string() : note->second;
}

void DayNotes::set(Date date, std::string_view text) {
    std::string line = singleLine(text);
    if (line == of(date))
        return;
    if (line.empty())
        notes_.erase(date);
    else
        notes_[date] = std::move(line);
    unsaved_ = true;
}

bool DayNotes::save() {
    if (!unsaved_)
        return true;
    if (unreadable_ || (!damaged_.empty() && !setAside(damaged_)))
        return false;
    damaged_.clear();
    std::string contents(signature);
    contents += '\n';
    for (const auto& [date, text] : notes_)
        contents += isoText(date) + " " + text + "\n";
    contents += std::string(lastLine) + std::to_string(notes_.size()) + "\n";
    unsaved_ = !storage_.write(fileName, contents);
    return !unsaved_;
}

} // namespace calendarplugin
