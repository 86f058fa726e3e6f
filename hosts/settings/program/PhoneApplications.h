// The applications that a phone comes with.
#pragma once

#include "hosts/settings/program/ApplicationList.h"

namespace settings {

class PhoneApplications final : public ApplicationList {
public:
    std::map<std::string, std::string> names() override;
    std::shared_ptr<const toolkit::Image> icon(const std::string& identifier, double points) override;
};

} // namespace settings
