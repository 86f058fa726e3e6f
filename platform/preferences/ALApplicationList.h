// The list of installed applications, as the host tells it.
#pragma once

#include "platform/runtime/Class.h"
#include "platform/toolkit/rendering/Image.h"

#include <map>
#include <memory>
#include <string>

namespace preferences {

class ALApplicationList : public runtime::Object {
    RUNTIME_CLASS()
public:
    static ALApplicationList& sharedApplicationList();

    /// Display names by bundle identifier, hidden services included.
    std::map<std::string, std::string> applications() const;
    /// iconOfSize:forDisplayIdentifier:, in points; null when there is none.
    std::shared_ptr<const toolkit::Image> iconOfSize(double points,
                                                     const std::string& displayIdentifier) const;
};

} // namespace preferences
