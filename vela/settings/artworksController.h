// The artworks that are kept; each leads to its preview.
#pragma once

#include "vela/settings/storedSongsPage.h"

namespace vela {

class artworksController : public storedSongsPage {
    RUNTIME_CLASS()
public:
    /// Removes the first file whose name contains the row's; others of the same song may stay.
    void removedSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier);

protected:
    Specifiers makeSpecifiers() override;
};

} // namespace vela
