// Brings a document from an address: a file of the device, or a page of the web.
#pragma once

#include "platform/foundation/URLSession.h"
#include "platform/web/HTMLBlocks.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace settings {

class DocumentLoader {
public:
    using Completion = std::function<void(std::optional<std::vector<web::HTMLBlock>> blocks)>;

    /// Calls `completion` on the main loop, in a later turn, unless this object goes before: with the
    /// document, or with nothing when it cannot be read.
    void load(const std::string& address, Completion completion);

private:
    foundation::URLSession session_;
    foundation::URLSessionTask task_;
    std::shared_ptr<Completion> completion_;
};

} // namespace settings
