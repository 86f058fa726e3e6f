// The applications that a desktop offers, known by the identifiers of their desktop entries, under which the
// session host knows the one in front.
#pragma once

#include "hosts/desktop/DesktopEntries.h"
#include "hosts/settings/program/ApplicationList.h"

namespace settings {

class DesktopApplications final : public ApplicationList {
public:
    explicit DesktopApplications(ThemeIcon themeIcon) : themeIcon_(std::move(themeIcon)) {}

    std::map<std::string, std::string> names() override;
    std::shared_ptr<const toolkit::Image> icon(const std::string& identifier, double points) override;

private:
    ThemeIcon themeIcon_;
    desktop::DesktopEntries entries_;
    std::map<std::string, desktop::DesktopEntry> listed_; // as last asked for
};

} // namespace settings
