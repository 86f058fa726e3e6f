// The first screen: all notes, the latest changed on top, and the button for a new one.
#pragma once

#include "NoteRow.h"
#include "Notebook.h"

#include "VelaPlugin.h"

#include <functional>
#include <memory>
#include <vector>

namespace notesplugin {

class NoteList {
public:
    struct Actions {
        std::function<void()> onNew;
        std::function<void(NoteId)> onOpen;
    };

    /// `host` and `notebook` live longer.
    NoteList(vela::plugin::Host& host, const Notebook& notebook, Actions actions);

    void layout(vela::plugin::Rect bounds);
    void setHidden(bool hidden);
    /// Shows the notes as they are now.
    void reload();
    void scrollToTop();

private:
    void placeRows();
    void showCount(std::size_t count);

    vela::plugin::Host& host_;
    const Notebook& notebook_;
    Actions actions_;
    std::unique_ptr<vela::plugin::Label> count_;
    std::unique_ptr<vela::plugin::Button> newButton_;
    std::unique_ptr<vela::plugin::Label> empty_;
    std::unique_ptr<vela::plugin::ScrollArea> scroll_;
    std::vector<std::unique_ptr<NoteRow>> rows_; // let go of before the area that they lie in
    bool hidden_ = false;
};

} // namespace notesplugin
