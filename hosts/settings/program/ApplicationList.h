// The applications that the settings know, those of the phone or of the desktop.
#pragma once

#include "hosts/settings/program/Options.h"
#include "platform/toolkit/rendering/Image.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace settings {

class ApplicationList {
public:
    /// What a desktop's icon looks like, `points` wide and high: one of its theme's by name, or a file by its
    /// path. Null when there is no such icon.
    using ThemeIcon =
        std::function<std::shared_ptr<const toolkit::Image>(const std::string& icon, double points)>;
    /// `themeIcon` may be empty; then the desktop's applications have no icons.
    static std::unique_ptr<ApplicationList> make(Options::Applications which, ThemeIcon themeIcon);

    virtual ~ApplicationList() = default;

    /// Display names by identifier, hidden services included.
    virtual std::map<std::string, std::string> names() = 0;
    /// `points` wide and high; the generic icon for one that has none of its own; null for one that is not
    /// installed or whose icon cannot be made.
    virtual std::shared_ptr<const toolkit::Image> icon(const std::string& identifier, double points) = 0;
};

} // namespace settings
