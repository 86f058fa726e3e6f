#include "platform/web/HTMLDocument.h"

#include "platform/web/HTMLArena.h"
#include "platform/web/HTMLLimits.h"
#include "platform/web/HTMLSerializer.h"

#include <csetjmp>
#include <string_view>
#include <vector>

#include <glib.h>
#include <gumbo.h>

namespace web {

namespace {

constexpr std::string_view spaces = " \t\n\f\r";

/// The parser cannot do without memory that it asked for, so that the way out is past it.
struct Parsing {
    HTMLArena& arena;
    std::jmp_buf outOfMemory;
};

void* allocate(void* data, std::size_t size) {
    auto& parsing = *static_cast<Parsing*>(data);
    void* memory = parsing.arena.allocate(size);
    if (!memory)
        std::longjmp(parsing.outOfMemory, 1);
    return memory;
}

/// The arena goes as a whole.
void deallocate(void*, void*) {}

/// Null when the tree outgrows the arena. Nothing here needs a destructor: the way out leads past them.
const GumboOutput* parseInto(HTMLArena& arena, const char* text, std::size_t length) {
    Parsing parsing{arena, {}};
    GumboOptions options = kGumboDefaultOptions;
    options.allocator = allocate;
    options.deallocator = deallocate;
    options.userdata = &parsing;
    options.max_errors = 0;
    if (setjmp(parsing.outOfMemory) != 0)
        return nullptr;
    return gumbo_parse_with_options(&options, text, length);
}

/// Pages of the oldest kind do not tell upper from lower case in names of classes.
enum class NameComparison { Exact, WithoutCase };

bool hasClass(const GumboElement& element, const std::string& name, NameComparison comparison) {
    const GumboAttribute* attribute = gumbo_get_attribute(&element.attributes, "class");
    std::string_view rest = attribute ? attribute->value : "";
    while (!rest.empty()) {
        const std::string_view one = rest.substr(0, rest.find_first_of(spaces));
        rest.remove_prefix(std::min(rest.size(), one.size() + 1));
        if (one == name || (comparison == NameComparison::WithoutCase && one.size() == name.size() &&
                            g_ascii_strncasecmp(one.data(), name.data(), name.size()) == 0))
            return true;
    }
    return false;
}

} // namespace

struct HTMLDocument::Tree {
    std::string text; // which the tree points into
    HTMLArena arena{largestTree};
    const GumboOutput* output = nullptr;
};

HTMLDocument::HTMLDocument(std::unique_ptr<Tree> tree) : tree_(std::move(tree)) {}
HTMLDocument::~HTMLDocument() = default;

std::shared_ptr<const HTMLDocument> HTMLDocument::parse(std::string text) {
    if (!isWithinHTMLLimits(text))
        return nullptr;
    auto tree = std::make_unique<Tree>();
    tree->text = std::move(text);
    tree->output = parseInto(tree->arena, tree->text.data(), tree->text.size());
    if (!tree->output)
        return nullptr;
    return std::shared_ptr<const HTMLDocument>(new HTMLDocument(std::move(tree)));
}

std::vector<HTMLBlock> HTMLDocument::blocks() const {
    return readBlocks(*tree_->output->root);
}

std::optional<std::string> HTMLDocument::innerHTMLOfElement(const std::string& className,
                                                            std::size_t index) const {
    const bool quirks = tree_->output->document->v.document.doc_type_quirks_mode == GUMBO_DOCTYPE_QUIRKS;
    const auto comparison = quirks ? NameComparison::WithoutCase : NameComparison::Exact;
    std::vector<const GumboNode*> next{tree_->output->root};
    while (!next.empty()) {
        const GumboNode* node = next.back();
        next.pop_back();
        // What a template holds is no part of the page.
        if (node->type != GUMBO_NODE_ELEMENT && node->type != GUMBO_NODE_TEMPLATE)
            continue;
        if (hasClass(node->v.element, className, comparison) && index-- == 0)
            return innerHTML(*node);
        const GumboVector& children = node->v.element.children;
        for (unsigned child = children.length; child > 0 && node->type == GUMBO_NODE_ELEMENT; --child)
            next.push_back(static_cast<const GumboNode*>(children.data[child - 1]));
    }
    return std::nullopt;
}

} // namespace web
