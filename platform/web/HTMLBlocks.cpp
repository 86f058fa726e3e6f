#include "platform/web/HTMLBlocks.h"

#include <gumbo.h>

#include <algorithm>
#include <string_view>

namespace web {

namespace {

constexpr int deepestNesting = 200;

using Kind = HTMLBlock::Kind;
using Style = HTMLBlock::Style;

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool isUnread(GumboTag tag) {
    constexpr GumboTag unread[] = {GUMBO_TAG_HEAD,   GUMBO_TAG_SCRIPT,   GUMBO_TAG_STYLE, GUMBO_TAG_NOSCRIPT,
                                   GUMBO_TAG_SELECT, GUMBO_TAG_TEXTAREA, GUMBO_TAG_SVG,   GUMBO_TAG_IFRAME};
    return std::find(std::begin(unread), std::end(unread), tag) != std::end(unread);
}

/// Elements that stand in a line of text; all others begin a block.
bool isInline(GumboTag tag) {
    constexpr GumboTag within[] = {
        GUMBO_TAG_A,    GUMBO_TAG_ABBR, GUMBO_TAG_B,    GUMBO_TAG_CITE,   GUMBO_TAG_CODE, GUMBO_TAG_EM,
        GUMBO_TAG_I,    GUMBO_TAG_KBD,  GUMBO_TAG_MARK, GUMBO_TAG_Q,      GUMBO_TAG_S,    GUMBO_TAG_SMALL,
        GUMBO_TAG_SPAN, GUMBO_TAG_SUB,  GUMBO_TAG_SUP,  GUMBO_TAG_STRONG, GUMBO_TAG_TIME, GUMBO_TAG_TT,
        GUMBO_TAG_U,    GUMBO_TAG_VAR,  GUMBO_TAG_TD,   GUMBO_TAG_TH};
    return std::find(std::begin(within), std::end(within), tag) != std::end(within);
}

Style styleWithin(GumboTag tag, Style outer) {
    switch (tag) {
    case GUMBO_TAG_B:
    case GUMBO_TAG_STRONG:
        return Style::Strong;
    case GUMBO_TAG_I:
    case GUMBO_TAG_EM:
        return Style::Emphasis;
    case GUMBO_TAG_CODE:
    case GUMBO_TAG_KBD:
    case GUMBO_TAG_TT:
        return Style::Code;
    default:
        return outer;
    }
}

class Reader {
public:
    std::vector<HTMLBlock> read(const GumboNode& root) {
        visit(root, {}, 0);
        endBlock();
        return std::move(blocks_);
    }

private:
    struct Context {
        Kind kind = Kind::Paragraph;
        int level = 0;
        int listDepth = 0;
        Style style = Style::Plain;
    };

    void visit(const GumboNode& node, Context context, int depth) {
        if (depth > deepestNesting || bytes_ >= largestReading)
            return;
        if (node.type == GUMBO_NODE_TEXT || node.type == GUMBO_NODE_WHITESPACE ||
            node.type == GUMBO_NODE_CDATA)
            add(node.v.text.text, context);
        else if (node.type == GUMBO_NODE_ELEMENT && !isUnread(node.v.element.tag))
            visitElement(node.v.element, context, depth);
    }

    void visitElement(const GumboElement& element, Context context, int depth) {
        const GumboTag tag = element.tag;
        if (tag == GUMBO_TAG_BR)
            return add("\n", {Kind::Preformatted, 0, 0, context.style}, context);
        const bool begins = !isInline(tag);
        if (begins) {
            endBlock();
            enter(tag, context);
        } else
            context.style = styleWithin(tag, context.style);
        if (const bool isCell = tag == GUMBO_TAG_TD || tag == GUMBO_TAG_TH; isCell && !current_.runs.empty())
            add(" · ", context);
        for (unsigned child = 0; child < element.children.length; ++child)
            visit(*static_cast<const GumboNode*>(element.children.data[child]), context, depth + 1);
        if (begins)
            endBlock();
    }

    static void enter(GumboTag tag, Context& context) {
        if (tag >= GUMBO_TAG_H1 && tag <= GUMBO_TAG_H6) {
            context.kind = Kind::Heading;
            context.level = tag - GUMBO_TAG_H1 + 1;
        } else if (tag == GUMBO_TAG_UL || tag == GUMBO_TAG_OL)
            ++context.listDepth;
        else if (tag == GUMBO_TAG_LI) {
            context.kind = Kind::ListItem;
            context.level = context.listDepth;
        } else if (tag == GUMBO_TAG_PRE) {
            context.kind = Kind::Preformatted;
            context.style = Style::Code;
        }
    }

    void add(std::string_view text, const Context& context) { add(text, context, context); }

    /// `spacing` says whether white space is kept, `block` what the text belongs to.
    void add(std::string_view text, const Context& spacing, const Context& block) {
        std::string kept;
        for (const char c : text.substr(0, largestReading - bytes_)) {
            const bool folds = spacing.kind != Kind::Preformatted && isSpace(c);
            if (folds && endsInSpace_)
                continue;
            kept += folds ? ' ' : c;
            endsInSpace_ = isSpace(c);
        }
        if (kept.empty())
            return;
        bytes_ += kept.size();
        if (current_.runs.empty()) {
            current_.kind = block.kind;
            current_.level = block.level;
        }
        if (current_.runs.empty() || current_.runs.back().style != block.style)
            current_.runs.push_back({block.style, {}});
        current_.runs.back().text += kept;
    }

    void endBlock() {
        while (!current_.runs.empty() && trimEnd(current_.runs.back().text))
            current_.runs.pop_back();
        if (!current_.runs.empty())
            blocks_.push_back(std::move(current_));
        current_ = {};
        endsInSpace_ = true;
    }

    /// Answers whether nothing is left.
    static bool trimEnd(std::string& text) {
        while (!text.empty() && isSpace(text.back()))
            text.pop_back();
        return text.empty();
    }

    std::vector<HTMLBlock> blocks_;
    HTMLBlock current_;
    bool endsInSpace_ = true;
    std::size_t bytes_ = 0;
};

} // namespace

std::vector<HTMLBlock> readBlocks(const GumboInternalNode& root) {
    return Reader().read(root);
}

} // namespace web
