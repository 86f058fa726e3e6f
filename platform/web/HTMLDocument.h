// A page as a tree of elements, and the questions that are asked about it.
//
// Pages are hostile: what the tree takes up is bounded while it is built. Immutable once made; any thread.
#pragma once

#include "platform/web/HTMLBlocks.h"

#include <memory>
#include <optional>
#include <string>

namespace web {

class HTMLDocument {
public:
    /// The most that a tree may take up, in bytes.
    static constexpr std::size_t largestTree = 96 * 1024 * 1024;

    /// Any text is some page; null only for one that passes the limits. `text` is UTF-8.
    static std::shared_ptr<const HTMLDocument> parse(std::string text);

    ~HTMLDocument();
    HTMLDocument(const HTMLDocument&) = delete;
    HTMLDocument& operator=(const HTMLDocument&) = delete;

    /// The markup inside of the element that is the `index`-th, in the page's order, of those with a class;
    /// nothing when there are fewer.
    std::optional<std::string> innerHTMLOfElement(const std::string& className, std::size_t index) const;
    /// The page as it is read from top to bottom.
    std::vector<HTMLBlock> blocks() const;

private:
    struct Tree;
    explicit HTMLDocument(std::unique_ptr<Tree> tree);
    std::unique_ptr<Tree> tree_;
};

} // namespace web
