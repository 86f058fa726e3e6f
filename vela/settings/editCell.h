// The editor of a lyric: lines of text that fill the page.
#pragma once

#include "platform/preferences/PSTableCell.h"
#include "platform/toolkit/views/UITextView.h"

namespace vela {

class editCell : public preferences::PSTableCell {
    RUNTIME_CLASS()
public:
    void initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) override;
    /// That of the page less its bar's.
    double preferredHeightForWidth(double) const override;
    /// Keeps what has been written for the page.
    void textViewDidChange(const std::shared_ptr<toolkit::UITextView>& textView);
};

} // namespace vela
