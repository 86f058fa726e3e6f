#include "platform/web/HTMLSerializer.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

#include <gumbo.h>

namespace web {

namespace {

constexpr std::string_view hardSpace = "\xC2\xA0";

bool isElement(const GumboNode& node) {
    return node.type == GUMBO_NODE_ELEMENT || node.type == GUMBO_NODE_TEMPLATE;
}

template <std::size_t Count>
bool isOneOf(const GumboTag (&tags)[Count], GumboTag tag) {
    return std::find(std::begin(tags), std::end(tags), tag) != std::end(tags);
}

/// Elements that can hold nothing, and so have no end.
bool isVoid(const GumboElement& element) {
    static constexpr GumboTag tags[] = {
        GUMBO_TAG_AREA,   GUMBO_TAG_BASE,   GUMBO_TAG_BASEFONT, GUMBO_TAG_BGSOUND, GUMBO_TAG_BR,
        GUMBO_TAG_COL,    GUMBO_TAG_EMBED,  GUMBO_TAG_FRAME,    GUMBO_TAG_HR,      GUMBO_TAG_IMG,
        GUMBO_TAG_INPUT,  GUMBO_TAG_KEYGEN, GUMBO_TAG_LINK,     GUMBO_TAG_META,    GUMBO_TAG_PARAM,
        GUMBO_TAG_SOURCE, GUMBO_TAG_TRACK,  GUMBO_TAG_WBR};
    return element.tag_namespace == GUMBO_NAMESPACE_HTML && isOneOf(tags, element.tag);
}

/// Elements whose text is no markup.
bool holdsPlainText(const GumboNode* node) {
    static constexpr GumboTag tags[] = {GUMBO_TAG_STYLE,    GUMBO_TAG_SCRIPT,  GUMBO_TAG_XMP,
                                        GUMBO_TAG_IFRAME,   GUMBO_TAG_NOEMBED, GUMBO_TAG_NOFRAMES,
                                        GUMBO_TAG_PLAINTEXT};
    return node && isElement(*node) && isOneOf(tags, node->v.element.tag);
}

std::string tagName(const GumboElement& element) {
    if (element.tag != GUMBO_TAG_UNKNOWN)
        return gumbo_normalized_tagname(element.tag);
    GumboStringPiece original = element.original_tag;
    gumbo_tag_from_original_text(&original);
    std::string name(original.data ? original.data : "", original.length);
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    std::transform(name.begin(), name.end(), name.begin(), lower);
    return name;
}

const char* prefixOf(GumboAttributeNamespaceEnum space) {
    switch (space) {
    case GUMBO_ATTR_NAMESPACE_XLINK:
        return "xlink:";
    case GUMBO_ATTR_NAMESPACE_XML:
        return "xml:";
    default:
        return "";
    }
}

enum class Escaping { Text, Attribute };

void appendEscaped(std::string& out, std::string_view text, Escaping escaping) {
    while (!text.empty()) {
        const char c = text.front();
        std::size_t length = 1;
        if (c == '&')
            out += "&amp;";
        else if (text.starts_with(hardSpace))
            out += "&nbsp;", length = hardSpace.size();
        else if (c == '"' && escaping == Escaping::Attribute)
            out += "&quot;";
        else if (c == '<' && escaping == Escaping::Text)
            out += "&lt;";
        else if (c == '>' && escaping == Escaping::Text)
            out += "&gt;";
        else
            out += c;
        text.remove_prefix(length);
    }
}

void appendStart(std::string& out, const GumboElement& element) {
    out += "<" + tagName(element);
    for (unsigned index = 0; index < element.attributes.length; ++index) {
        const auto& attribute = *static_cast<const GumboAttribute*>(element.attributes.data[index]);
        out += std::string(" ") + prefixOf(attribute.attr_namespace) + attribute.name + "=\"";
        appendEscaped(out, attribute.value, Escaping::Attribute);
        out += '"';
    }
    out += '>';
}

/// Everything that is no element.
void appendLeaf(std::string& out, const GumboNode& node) {
    if (node.type == GUMBO_NODE_COMMENT)
        out += std::string("<!--") + node.v.text.text + "-->";
    else if (holdsPlainText(node.parent))
        out += node.v.text.text;
    else
        appendEscaped(out, node.v.text.text, Escaping::Text);
}

} // namespace

std::optional<std::string> innerHTML(const GumboNode& root) {
    struct Level {
        const GumboNode* node;
        unsigned next; // child
    };
    std::string out;
    // A stack of its own: a tree may be far deeper than the thread's.
    std::vector<Level> levels{{&root, 0}};
    while (!levels.empty()) {
        if (out.size() > largestMarkup)
            return std::nullopt;
        const GumboElement& element = levels.back().node->v.element;
        if (levels.back().next == element.children.length) {
            if (levels.size() > 1)
                out += "</" + tagName(element) + ">";
            levels.pop_back();
            continue;
        }
        const auto& child = *static_cast<const GumboNode*>(element.children.data[levels.back().next++]);
        if (!isElement(child)) {
            appendLeaf(out, child);
            continue;
        }
        appendStart(out, child.v.element);
        if (!isVoid(child.v.element))
            levels.push_back({&child, 0});
    }
    return out;
}

} // namespace web
