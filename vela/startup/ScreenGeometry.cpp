#include "vela/startup/ScreenGeometry.h"

#include "platform/toolkit/windows/UIScreen.h"
#include "vela/stores/PreferenceKeys.h"
#include "vela/stores/VelaSettingsManager.h"

using runtime::Object;
using toolkit::Rect;

namespace vela::geometry {

namespace {

Rect screenBounds() {
    return toolkit::UIScreen::mainScreen().bounds();
}

float fraction(const char* key) {
    return VelaSettingsManager::sharedInstance().getPreferenceForKey(key).floatValue();
}

} // namespace

bool isLandscape(std::int64_t orientation) {
    return orientation == 3 || orientation == 4;
}

Rect screenFrame(std::int64_t orientation) {
    const Rect bounds = screenBounds();
    const bool landscape = isLandscape(orientation);
    if ((landscape && bounds.width < bounds.height) || (!landscape && bounds.width > bounds.height))
        return {0, 0, bounds.height, bounds.width};
    return bounds;
}

float panelWidth(double screenWidth, float fraction) {
    return static_cast<float>(screenWidth * static_cast<double>(fraction));
}

GrabberStrip grabberStrip(double screenHeight) {
    const auto setting = VelaSettingsManager::sharedInstance().grabberHeight();
    if (setting.equals("half_bottom"))
        return {static_cast<float>(screenHeight * 0.5), screenHeight * 0.5};
    if (setting.equals("half_top"))
        return {static_cast<float>(screenHeight * 0.5), 0};
    return {static_cast<float>(screenHeight), 0};
}

Rect getScreenFrameByOrientation(Object&, std::int64_t orientation) {
    return screenFrame(orientation);
}

float leftScalePortrait(Object&) {
    return fraction(keys::leftSizePortrait);
}
float leftScaleLandscape(Object&) {
    return fraction(keys::leftSizeLandscape);
}
float rightScalePortrait(Object&) {
    return fraction(keys::rightSizePortrait);
}
float rightScaleLandscape(Object&) {
    return fraction(keys::rightSizeLandscape);
}

float leftSize(Object& self) {
    const Rect bounds = screenBounds();
    return panelWidth(bounds.width,
                      bounds.width > bounds.height ? leftScaleLandscape(self) : leftScalePortrait(self));
}

float rightSize(Object& self) {
    const Rect bounds = screenBounds();
    return panelWidth(bounds.width,
                      bounds.width > bounds.height ? rightScaleLandscape(self) : rightScalePortrait(self));
}

float leftSizeForOrientation(Object& self, std::int64_t orientation) {
    return panelWidth(screenBounds().width,
                      isLandscape(orientation) ? leftScaleLandscape(self) : leftScalePortrait(self));
}

float rightSizeForOrientation(Object& self, std::int64_t orientation) {
    return panelWidth(screenBounds().width,
                      isLandscape(orientation) ? rightScaleLandscape(self) : rightScalePortrait(self));
}

} // namespace vela::geometry
