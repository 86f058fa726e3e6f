// One note in the list: title, date and the beginning of what follows, on a card that shows a finger on it.
#pragma once

#include "NoteSummary.h"

#include "VelaPlugin.h"

#include <functional>
#include <memory>
#include <string>

namespace notesplugin {

class NoteRow {
public:
    static constexpr double height = 64; // points

    NoteRow(vela::plugin::Container& container, NoteSummary summary, std::string date,
            std::function<void(NoteId)> onOpen);
    NoteRow(const NoteRow&) = delete;
    NoteRow& operator=(const NoteRow&) = delete;

    void setFrame(vela::plugin::Rect frame) { area_->setFrame(frame); }

private:
    void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds) const;
    void touched(const vela::plugin::Touch& touch);
    void setPressed(bool pressed);

    NoteSummary summary_;
    std::string date_;
    std::function<void(NoteId)> onOpen_;
    bool pressed_ = false;
    std::unique_ptr<vela::plugin::DrawnArea> area_;
};

} // namespace notesplugin
