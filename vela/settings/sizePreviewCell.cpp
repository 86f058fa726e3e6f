#include "vela/settings/sizePreviewCell.h"

#include "vela/settings/PageState.h"
#include "vela/settings/Pictures.h"
#include "vela/stores/PreferenceKeys.h"
#include "vela/stores/VelaSettingsManager.h"

using namespace toolkit;

namespace vela {

namespace {

constexpr double heightAroundPicture = 20; // points, half of it above

VisualEffect effectForStyle(const foundation::PropertyList& style) {
    return VisualEffect::blur(style.equals("dark") ? BlurEffectStyle::Dark : BlurEffectStyle::Light);
}

} // namespace

runtime::Class& sizePreviewCell::staticClass() {
    static auto& cls = runtime::ClassBuilder<sizePreviewCell>("sizePreviewCell", &PSTableCell::staticClass())
                           .method("refreshWithValue:", &sizePreviewCell::refreshWithValue)
                           .method("setBlurStyle:", &sizePreviewCell::setBlurStyle)
                           .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(sizePreviewCell)

void sizePreviewCell::initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
    PSTableCell::initWithSpecifier(specifier);
    setStyle(0, "headerCell");
    addPicture();
    const auto& settings = VelaSettingsManager::sharedInstance();
    blur_ = std::make_shared<UIVisualEffectView>(effectForStyle(settings.getPreferenceForKey(keys::blur)));
    back_->addSubview(blur_);
    darking_ = std::make_shared<UIView>();
    darking_->setBackgroundColor(Color::white(0.2, 0.45));
    back_->addSubview(darking_);
    refreshWithValue(settings.getPreferenceForKey(design_.firstPreference).floatValue());
}

void sizePreviewCell::addPicture() {
    const auto picture = pictures::ofBundle(design_.picture);
    const Size pictureSize = picture ? picture->size() : Size();
    const double height = design_.height - heightAroundPicture;
    const double width = height * pictureSize.width / pictureSize.height;
    back_ = std::make_shared<UIImageView>(
        Rect((pageState().width - width) * 0.5, (design_.height - height) * 0.5, width, height), picture);
    addSubview(back_);
}

void sizePreviewCell::refreshWithValue(float fraction) {
    const Size screen = back_->bounds().size();
    const double panel = fraction * screen.width;
    const double rest = screen.width - panel;
    const bool fromLeft = design_.edge == Edge::Left;
    blur_->setFrame({fromLeft ? 0 : rest, 0, panel, screen.height});
    darking_->setFrame({fromLeft ? panel : 0, 0, rest, screen.height});
}

void sizePreviewCell::setBlurStyle(const foundation::PropertyList& style) {
    blur_->setEffect(effectForStyle(style));
}

} // namespace vela
