// An editable list of what is kept for songs, read anew whenever the page appears. Abstract.
#pragma once

#include "platform/preferences/PSEditableListController.h"

#include <string>

namespace vela {

class storedSongsPage : public preferences::PSEditableListController {
    RUNTIME_CLASS()
public:
    void viewWillAppear(bool animated) override;

protected:
    /// A row that leads to the page of that class and, deleted, sends "removedSpecifier:" to this one.
    std::shared_ptr<preferences::PSSpecifier> songRow(const std::string& name, const std::string& pageClass);
};

} // namespace vela
