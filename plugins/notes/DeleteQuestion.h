// Asks before a note is deleted: a card over everything else, which takes all touches while it is up.
#pragma once

#include "VelaPlugin.h"

#include <functional>
#include <memory>
#include <string_view>

namespace notesplugin {

class DeleteQuestion {
public:
    DeleteQuestion(vela::plugin::Host& host, std::function<void()> onConfirm);

    void ask();
    void cancel() { setHidden(true); }
    /// Keeps the question up and says why the note is still there.
    void showFailure();
    bool isUp() const { return !hidden_; }
    void layout(vela::plugin::Rect bounds);

private:
    void setHidden(bool hidden);

    std::unique_ptr<vela::plugin::DrawnArea> shade_;
    std::unique_ptr<vela::plugin::Label> card_;
    std::unique_ptr<vela::plugin::Label> question_;
    std::unique_ptr<vela::plugin::Button> delete_;
    std::unique_ptr<vela::plugin::Button> cancel_;
    bool hidden_ = true;
};

} // namespace notesplugin
