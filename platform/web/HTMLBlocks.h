// A page as somebody reads it: headings, paragraphs, list items and preformatted texts, one after the other.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

struct GumboInternalNode;

namespace web {

struct HTMLBlock {
    enum class Kind { Heading, Paragraph, ListItem, Preformatted };
    enum class Style { Plain, Strong, Emphasis, Code };
    struct Run {
        Style style = Style::Plain;
        std::string text; // UTF-8
    };

    Kind kind = Kind::Paragraph;
    int level = 0; // of a heading, from 1; of a list item, how deep its list lies, from 1
    std::vector<Run> runs;
};

/// The most text that is taken from a page, in bytes: what comes after is left out.
inline constexpr std::size_t largestReading = 1024 * 1024;

/// The blocks of everything inside of an element. What is no text to read, scripts and forms, is left out, as
/// is what lies deeper than anybody nests texts.
std::vector<HTMLBlock> readBlocks(const GumboInternalNode& root);

} // namespace web
