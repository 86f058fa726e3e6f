// A sheet to write a message in: a card with the text, a button that gives it up and one that sends it.
#pragma once

#include "platform/toolkit/views/UIButton.h"
#include "platform/toolkit/views/UITextView.h"

namespace phone {

class ComposeSheet : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    /// One of the two is called, once.
    struct Answers {
        std::function<void()> cancelled;
        std::function<void(const std::string& text)> posted;
    };
    ComposeSheet(const std::string& text, Answers answers);

    /// Puts the caret behind the text, which brings the keyboard up.
    void beginWriting();
    void layoutSubviews() override;

private:
    std::shared_ptr<toolkit::UIButton> addButton(const std::string& title, toolkit::FontWeight weight,
                                                 std::function<void()> pressed);
    void finish(const std::function<void()>& answer);
    void textChanged();

    Answers answers_;
    bool answered_ = false;
    std::shared_ptr<toolkit::UIView> card_;
    std::shared_ptr<toolkit::UILabel> title_;
    std::shared_ptr<toolkit::UIView> hairline_;
    std::shared_ptr<toolkit::UITextView> editor_;
    std::shared_ptr<toolkit::UILabel> note_;
    std::shared_ptr<toolkit::UIButton> cancel_;
    std::shared_ptr<toolkit::UIButton> post_;
};

} // namespace phone
