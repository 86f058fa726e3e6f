// The header cell of the root page: fifty bars, like those of a spectrum.
//
// While the product is on, the coloured bars stand still and form one fixed figure; while it is off, all bars
// are small and of random height. What the bars do, they do once, so that a page that is only looked at draws
// nothing.
#pragma once

#include "platform/preferences/PSTableCell.h"

namespace vela {

class velaCell : public preferences::PSTableCell {
    RUNTIME_CLASS()
public:
    void initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) override;
    double preferredHeightForWidth(double) const override { return 200; }

    /// The coloured bars form their figure, then the others move.
    void animateViews();
    /// Every bar lies down, then all of them move.
    void animateViewsForDisbaled();

private:
    void addBars();
    void moveDefaultBars();
    void moveAllBars();
};

} // namespace vela
