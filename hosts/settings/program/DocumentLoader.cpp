#include "hosts/settings/program/DocumentLoader.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/RunLoop.h"
#include "platform/web/HTMLDocument.h"
#include "platform/web/HTMLText.h"

#include <gio/gio.h>

namespace settings {

namespace {

using Blocks = std::optional<std::vector<web::HTMLBlock>>;

constexpr std::size_t largestDocument = 2 * 1024 * 1024; // bytes
constexpr int statusOk = 200;

Blocks blocksOf(std::span<const std::uint8_t> bytes, const std::string& contentType) {
    const auto document = web::HTMLDocument::parse(web::htmlText(bytes, contentType));
    return document ? Blocks(document->blocks()) : std::nullopt;
}

Blocks readFile(const std::string& address) {
    gchar* path = g_filename_from_uri(address.c_str(), nullptr, nullptr);
    if (!path)
        return std::nullopt;
    const auto bytes = foundation::FileManager::shared().read(path, largestDocument);
    g_free(path);
    return bytes ? blocksOf(*bytes, "") : std::nullopt;
}

void complete(const std::weak_ptr<DocumentLoader::Completion>& weak, Blocks blocks) {
    foundation::RunLoop::main().performOnMain([weak, blocks = std::move(blocks)]() mutable {
        if (const auto completion = weak.lock())
            (*completion)(std::move(blocks));
    });
}

} // namespace

void DocumentLoader::load(const std::string& address, Completion completion) {
    completion_ = std::make_shared<Completion>(std::move(completion));
    const std::weak_ptr weak(completion_);
    if (address.starts_with("file:"))
        return complete(weak, readFile(address));
    foundation::URLRequest request;
    request.url = address;
    request.maximumBytes = largestDocument;
    task_ = session_.dataTask(request, [weak](const auto& answer) {
        const bool came = !answer.error && answer.response.statusCode == statusOk;
        const auto type = answer.response.headers.find("content-type");
        complete(weak, came ? blocksOf(answer.body, type == answer.response.headers.end() ? "" : type->second)
                            : std::nullopt);
    });
    task_.resume();
}

} // namespace settings
