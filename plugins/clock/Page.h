// One of the clock's pages. It is made when it is shown and destroyed when another one is; what has to last
// is in the model.
#pragma once

#include "VelaPlugin.h"

namespace clockplugin {

class Page {
public:
    virtual ~Page() = default;
    /// In the coordinates of the plug-in's view. Called before it is first made active, and when the size
    /// changes.
    virtual void layout(vela::plugin::Rect area) = 0;
    /// Whether anybody can see it: only then may it work.
    virtual void setActive(bool active) = 0;
};

/// What pages ask for. The page that asks is destroyed by that.
class Navigation {
public:
    /// Shows the page that fits the model.
    virtual void reload() = 0;
    virtual void showCityPicker() = 0;

protected:
    ~Navigation() = default;
};

/// Whether a page puts its parts side by side.
inline bool isWide(vela::plugin::Rect area) {
    return area.width > area.height * 1.15;
}

} // namespace clockplugin
