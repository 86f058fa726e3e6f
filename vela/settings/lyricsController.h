// The lyrics that are kept, by their keys; each leads to its editor.
#pragma once

#include "vela/settings/storedSongsPage.h"

namespace vela {

class lyricsController : public storedSongsPage {
    RUNTIME_CLASS()
public:
    void removedSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier);

protected:
    Specifiers makeSpecifiers() override;
};

} // namespace vela
