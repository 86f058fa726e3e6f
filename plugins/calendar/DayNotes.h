// A line of text for each day that has one, kept in one file, a line "2026-05-06 text" each.
//
// The file ends with a line that says how many there are, so that a file that was cut off is noticed. A
// damaged one is set aside under another name before anything is written; what can still be read of it is
// used.
#pragma once

#include "CalendarDate.h"

#include "VelaPlugin.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace calendarplugin {

/// Blanks for line ends and other characters that are not to be seen, none at the ends; at most 400 bytes,
/// cut between characters.
std::string singleLine(std::string_view text);

class DayNotes {
public:
    static constexpr const char* fileName = "days.txt";

    /// Loads them. `storage` lives longer; `log` gets a line when something is wrong.
    DayNotes(vela::plugin::Storage& storage, std::function<void(std::string_view)> log);

    /// Empty for none.
    std::string of(Date date) const;
    bool has(Date date) const { return notes_.contains(date); }
    /// An empty text takes the note away. Not written before save().
    void set(Date date, std::string_view text);
    /// Writes what has changed since; true when there was nothing, or it is written.
    bool save();
    bool isUnsaved() const { return unsaved_; }

private:
    void load();
    bool parse(std::string_view contents);
    bool setAside(const std::string& contents);

    vela::plugin::Storage& storage_;
    std::function<void(std::string_view)> log_;
    std::map<Date, std::string> notes_;
    bool unsaved_ = false;
    /// A damaged file that could not be set aside yet: until that works nothing is written.
    std::string damaged_;
    bool unreadable_ = false;
};

} // namespace calendarplugin
