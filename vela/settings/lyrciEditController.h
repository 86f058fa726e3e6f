// The page that edits one lyric: that of the key which is its title.
#pragma once

#include "platform/preferences/PSListController.h"

namespace vela {

class lyrciEditController : public preferences::PSListController {
    RUNTIME_CLASS()
public:
    void viewWillAppear(bool animated) override;
    void viewDidLayoutSubviews() override;
    /// Leaves the page, then stores the text.
    void saveLyric();

protected:
    Specifiers makeSpecifiers() override;
};

} // namespace vela
