// A long text as a stack of blocks that are laid out one by one, and only when they are looked at.
//
// A block is some lines of text, a few kilobytes. The beginning of a text is measured at once; beyond that a
// block's height is an estimate until it is looked at, so that a megabyte costs no more than some pages. A
// line that is longer than a block is broken where the block ends. Coordinates are points from the top left
// corner of the first block; indexes are bytes. Main thread only.
#pragma once

#include "platform/toolkit/text/TextLayout.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace toolkit {

class TextBlocks {
public:
    TextBlocks();
    ~TextBlocks();

    static constexpr std::size_t blockBytes = 4096;
    /// How much of a text is measured at once.
    static constexpr std::size_t measuredBytes = 16384;
    /// The longest word that is kept in one piece: the time to break one into lines grows with its square.
    static constexpr std::size_t longestWord = 256;
    /// How many blocks keep their layouts.
    static constexpr std::size_t keptLayouts = 8;

    const std::string& text() const { return text_; }
    /// `text` is whole UTF-8.
    void setText(std::string text);
    /// Lines are as many as it takes, whatever the style says.
    void setStyle(const TextStyle& style);
    void setWidth(double width);
    /// Replaces the `removed` bytes at `begin`, and lays out only the blocks concerned.
    void replace(std::size_t begin, std::size_t removed, const std::string& inserted);

    double width() const { return width_; }
    /// The height of all blocks; of those not yet looked at, the estimated one.
    double height() const;
    /// The width of the widest line measured so far.
    double usedWidth() const;
    /// Measures the blocks that lie within the band; true when that has changed the height.
    bool measure(double top, double bottom);
    /// Whether the blocks within the band have been measured already.
    bool isMeasured(double top, double bottom) const;

    /// Visits the blocks that lie within the band, top down, each with the y of its top edge.
    void forEachWithin(double top, double bottom,
                       const std::function<void(const TextLayout& layout, double top)>& visit);
    /// The caret's rectangle before the byte at `index`.
    Rect caretRect(std::size_t index);
    /// The index nearest to a point.
    std::size_t indexAt(Point point);
    /// How many blocks have been laid out so far: what the text has cost.
    std::uint64_t layoutsMade() const { return layoutsMade_; }

private:
    struct Block;
    void rebuild();
    void measureBeginning();
    std::vector<Block> split(std::size_t begin, std::size_t end) const;
    Block makeBlock(std::size_t begin, std::size_t end) const;
    std::size_t forcedCut(std::size_t begin, std::size_t limit) const;
    std::size_t endlessWord(std::size_t begin, std::size_t end) const;
    const TextLayout& layoutOf(Block& block);
    void dropOldLayouts();
    double heightOf(const Block& block) const;
    std::size_t blockAt(std::size_t index) const;
    double topOf(std::size_t block) const;

    std::string text_;
    TextStyle style_;
    double width_ = 0;
    double lineHeight_ = 0;
    double bytesPerLine_ = 40; // a guess until something is measured
    std::vector<Block> blocks_;
    std::uint64_t useCounter_ = 0;
    std::uint64_t layoutsMade_ = 0;
};

} // namespace toolkit
