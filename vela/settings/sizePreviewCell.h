// A picture of a phone's screen with a blurred strip where a panel would lie, and a veil over the rest.
//
// One design in four cells, which differ in their picture, their height, the preference that they begin with
// and the side that the strip lies on. Abstract.
#pragma once

#include "platform/preferences/PSTableCell.h"
#include "platform/toolkit/views/UIImageView.h"
#include "platform/toolkit/views/UIVisualEffectView.h"

namespace vela {

class sizePreviewCell : public preferences::PSTableCell {
    RUNTIME_CLASS()
public:
    void initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) override;
    double preferredHeightForWidth(double) const override { return design_.height; }

    /// Shows a panel of this fraction of the screen. The cell does not keep it.
    void refreshWithValue(float fraction);
    /// "dark" for the dark blur; anything else is light.
    void setBlurStyle(const foundation::PropertyList& style);

    const std::shared_ptr<toolkit::UIImageView>& back() const { return back_; }
    const std::shared_ptr<toolkit::UIView>& darking() const { return darking_; }
    const std::shared_ptr<toolkit::UIVisualEffectView>& blur() const { return blur_; }

protected:
    enum class Edge { Left, Right };
    struct Design {
        const char* picture;         // file name in the settings bundle
        const char* firstPreference; // key of the fraction shown first
        double height;               // of the row, in points
        Edge edge;                   // that the panel comes from
    };
    explicit sizePreviewCell(const Design& design) : design_(design) {}

private:
    void addPicture();

    Design design_;
    std::shared_ptr<toolkit::UIImageView> back_;        // the screen
    std::shared_ptr<toolkit::UIView> darking_;          // the veil over what the panel leaves visible
    std::shared_ptr<toolkit::UIVisualEffectView> blur_; // the panel
};

} // namespace vela
