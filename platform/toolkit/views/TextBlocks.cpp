#include "platform/toolkit/views/TextBlocks.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace toolkit {

/// The bytes from `begin` to `end`; a line feed that ends it stands between it and the next block.
struct TextBlocks::Block {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t lineFeeds = 0;
    std::optional<Size> size; // once measured
    std::unique_ptr<TextLayout> layout;
    std::uint64_t lastUse = 0;
};

namespace {
/// The start of the code point that the byte at `index` belongs to.
std::size_t startOfCharacter(const std::string& text, std::size_t index) {
    while (index > 0 && index < text.size() && (static_cast<unsigned char>(text[index]) & 0xC0) == 0x80)
        --index;
    return index;
}
} // namespace

TextBlocks::TextBlocks() {
    setStyle({});
}

TextBlocks::~TextBlocks() = default;

// Building

void TextBlocks::setText(std::string text) {
    text_ = std::move(text);
    rebuild();
}

void TextBlocks::setStyle(const TextStyle& style) {
    style_ = style;
    style_.lineBreak = LineBreak::WordWrap;
    style_.numberOfLines = 0;
    lineHeight_ = std::max(1.0, TextLayout("X", style_, -1).size().height);
    rebuild();
}

void TextBlocks::setWidth(double width) {
    if (width == width_)
        return;
    width_ = width;
    rebuild();
}

void TextBlocks::rebuild() {
    blocks_ = split(0, text_.size());
    measureBeginning();
}

void TextBlocks::measureBeginning() {
    // A view that has no size yet would have a line for each letter.
    if (width_ < 1)
        return;
    std::size_t bytes = 0;
    double height = 0;
    for (Block& block : blocks_) {
        if (block.begin >= measuredBytes)
            break;
        layoutOf(block);
        bytes += block.end - block.begin;
        height += block.size->height;
    }
    if (bytes > 0)
        bytesPerLine_ = std::max(1.0, static_cast<double>(bytes) * lineHeight_ / height);
}

TextBlocks::Block TextBlocks::makeBlock(std::size_t begin, std::size_t end) const {
    Block block;
    block.begin = begin;
    block.end = end;
    const auto* bytes = text_.data();
    block.lineFeeds = static_cast<std::size_t>(std::count(bytes + begin, bytes + end, '\n'));
    return block;
}

std::vector<TextBlocks::Block> TextBlocks::split(std::size_t begin, std::size_t end) const {
    std::vector<Block> blocks;
    for (;;) {
        const std::size_t limit = std::min(end, begin + blockBytes);
        const std::size_t wordCut = endlessWord(begin, limit);
        if (wordCut == limit && limit == end)
            break;
        std::size_t cut = wordCut;
        std::size_t next = wordCut;
        if (wordCut == limit) {
            const std::size_t lineFeed = text_.rfind('\n', limit);
            const bool atLine = lineFeed != std::string::npos && lineFeed >= begin;
            cut = atLine ? lineFeed : forcedCut(begin, limit);
            next = atLine ? cut + 1 : cut;
        }
        blocks.push_back(makeBlock(begin, cut));
        begin = next;
    }
    blocks.push_back(makeBlock(begin, end));
    return blocks;
}

/// Where a block has to end within a word that is too long to be kept whole; `end` when there is none.
std::size_t TextBlocks::endlessWord(std::size_t begin, std::size_t end) const {
    std::size_t word = begin;
    for (std::size_t i = begin; i < end; ++i) {
        const auto byte = static_cast<unsigned char>(text_[i]);
        // Lines may be broken at white space and, near enough, in all writing of three bytes a character.
        if (byte <= ' ' || byte >= 0xE0)
            word = i + 1;
        else if (i - word >= longestWord)
            return startOfCharacter(text_, i);
    }
    return end;
}

std::size_t TextBlocks::forcedCut(std::size_t begin, std::size_t limit) const {
    const std::size_t space = text_.rfind(' ', limit - 1);
    if (space != std::string::npos && space > begin)
        return space + 1;
    return std::max(begin + 1, startOfCharacter(text_, limit));
}

void TextBlocks::replace(std::size_t begin, std::size_t removed, const std::string& inserted) {
    begin = std::min(begin, text_.size());
    removed = std::min(removed, text_.size() - begin);
    const std::size_t first = blockAt(begin);
    const std::size_t last = blockAt(begin + removed);
    text_.replace(begin, removed, inserted);
    const auto shifted = [&](std::size_t index) { return index - removed + inserted.size(); };
    for (std::size_t i = last + 1; i < blocks_.size(); ++i) {
        blocks_[i].begin = shifted(blocks_[i].begin);
        blocks_[i].end = shifted(blocks_[i].end);
    }
    auto fresh = split(blocks_[first].begin, shifted(blocks_[last].end));
    // What is left empty of a long line broken into blocks is not a line of its own.
    const bool joinsPrevious = first > 0 && blocks_[first - 1].end == fresh.front().begin;
    const bool joinsNext = last + 1 < blocks_.size() && blocks_[last + 1].begin == fresh.back().end;
    if (fresh.size() == 1 && fresh.front().begin == fresh.front().end && (joinsPrevious || joinsNext))
        fresh.clear();
    for (Block& block : fresh)
        if (width_ >= 1 && block.begin - fresh.front().begin < measuredBytes)
            layoutOf(block);
    const auto at = blocks_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto next = blocks_.erase(at, at + static_cast<std::ptrdiff_t>(last - first + 1));
    blocks_.insert(next, std::make_move_iterator(fresh.begin()), std::make_move_iterator(fresh.end()));
    dropOldLayouts();
}

// Measuring

const TextLayout& TextBlocks::layoutOf(Block& block) {
    block.lastUse = ++useCounter_;
    if (!block.layout) {
        ++layoutsMade_;
        block.layout = std::make_unique<TextLayout>(text_.substr(block.begin, block.end - block.begin),
                                                    style_, std::max(1.0, width_));
        block.size = block.layout->size();
        dropOldLayouts();
    }
    return *block.layout;
}

void TextBlocks::dropOldLayouts() {
    std::vector<Block*> holders;
    for (Block& block : blocks_)
        if (block.layout)
            holders.push_back(&block);
    if (holders.size() <= keptLayouts)
        return;
    std::sort(holders.begin(), holders.end(), [](auto* a, auto* b) { return a->lastUse > b->lastUse; });
    for (std::size_t i = keptLayouts; i < holders.size(); ++i)
        holders[i]->layout.reset();
}

double TextBlocks::heightOf(const Block& block) const {
    if (block.size)
        return block.size->height;
    const double wrapped = std::ceil(static_cast<double>(block.end - block.begin) / bytesPerLine_);
    return lineHeight_ * std::max(static_cast<double>(block.lineFeeds + 1), wrapped);
}

double TextBlocks::height() const {
    return topOf(blocks_.size());
}

double TextBlocks::usedWidth() const {
    double width = 0;
    for (const Block& block : blocks_)
        if (block.size)
            width = std::max(width, block.size->width);
    return width;
}

double TextBlocks::topOf(std::size_t block) const {
    double top = 0;
    for (std::size_t i = 0; i < block; ++i)
        top += heightOf(blocks_[i]);
    return top;
}

bool TextBlocks::measure(double top, double bottom) {
    bool changed = false;
    double y = 0;
    for (Block& block : blocks_) {
        if (y >= bottom)
            break;
        const double before = heightOf(block);
        if (y + before > top && !block.size) {
            layoutOf(block);
            changed = changed || heightOf(block) != before;
        }
        y += heightOf(block);
    }
    return changed;
}

bool TextBlocks::isMeasured(double top, double bottom) const {
    double y = 0;
    for (const Block& block : blocks_) {
        const double end = y + heightOf(block);
        if (y < bottom && end > top && !block.size)
            return false;
        y = end;
    }
    return true;
}

// Looking

void TextBlocks::forEachWithin(double top, double bottom,
                               const std::function<void(const TextLayout& layout, double top)>& visit) {
    double y = 0;
    for (Block& block : blocks_) {
        if (y >= bottom)
            break;
        double height = heightOf(block);
        if (y + height > top) {
            const TextLayout& layout = layoutOf(block);
            height = heightOf(block);
            visit(layout, y);
        }
        y += height;
    }
}

std::size_t TextBlocks::blockAt(std::size_t index) const {
    const auto after = std::upper_bound(blocks_.begin(), blocks_.end(), index,
                                        [](std::size_t i, const Block& block) { return i < block.begin; });
    return static_cast<std::size_t>(after - blocks_.begin()) - 1;
}

Rect TextBlocks::caretRect(std::size_t index) {
    index = std::min(index, text_.size());
    const std::size_t number = blockAt(index);
    Block& block = blocks_[number];
    const Rect caret = layoutOf(block).caretRect(std::min(index, block.end) - block.begin);
    return caret.offsetBy(0, topOf(number));
}

std::size_t TextBlocks::indexAt(Point point) {
    measure(point.y, point.y + lineHeight_);
    double y = 0;
    for (std::size_t i = 0; i < blocks_.size(); ++i) {
        const double height = heightOf(blocks_[i]);
        if (point.y < y + height || i + 1 == blocks_.size())
            return blocks_[i].begin + layoutOf(blocks_[i]).indexAt({point.x, point.y - y});
        y += height;
    }
    return text_.size();
}

} // namespace toolkit
