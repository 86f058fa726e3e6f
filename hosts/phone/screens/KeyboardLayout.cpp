#include "hosts/phone/screens/KeyboardLayout.h"

#include <array>

using namespace toolkit;

namespace phone {

namespace {

constexpr double rows = 4;
constexpr double columns = 10;

/// Measures of one keyboard, in points.
struct Grid {
    Size size;
    double gap;
    double margin;
    double top;
    double keyWidth;
    double keyHeight;
    double rowPitch;

    explicit Grid(Size keyboard) : size(keyboard) {
        gap = keyboard.width > 600 ? 8 : 6;
        margin = 3;
        top = keyboard.height > 180 ? 10 : 6;
        rowPitch = (keyboard.height - top) / rows;
        keyHeight = rowPitch - (keyboard.height > 180 ? 11 : 7);
        keyWidth = (keyboard.width - 2 * margin - (columns - 1) * gap) / columns;
    }
    double rowTop(int row) const { return top + rowPitch * row; }
};

/// "q w e r": the texts of a row.
std::vector<std::string> split(const std::string& row) {
    std::vector<std::string> texts;
    std::string text;
    for (char c : row + ' ') {
        if (c != ' ') {
            text += c;
        } else if (!text.empty()) {
            texts.push_back(std::move(text));
            text.clear();
        }
    }
    return texts;
}

std::array<std::string, 3> textRows(KeyboardPage page) {
    switch (page) {
    case KeyboardPage::Letters:
        return {"q w e r t y u i o p", "a s d f g h j k l", "z x c v b n m"};
    case KeyboardPage::Digits:
        return {"1 2 3 4 5 6 7 8 9 0", "- / : ; ( ) € & @ \"", ". , ? ! '"};
    case KeyboardPage::Symbols:
        return {"[ ] { } # % ^ * + =", "_ \\ | ~ < > $ £ ¥ •", ". , ? ! '"};
    }
    return {};
}

/// One row of text keys, centred between `left` and `right`.
void addTextRow(std::vector<KeyPlace>& keys, const Grid& grid, int row, const std::vector<std::string>& texts,
                double keyWidth) {
    const double count = static_cast<double>(texts.size());
    double x = (grid.size.width - count * keyWidth - (count - 1) * grid.gap) / 2;
    for (const std::string& text : texts) {
        keys.push_back({KeyRole::Text, text, {}, {x, grid.rowTop(row), keyWidth, grid.keyHeight}});
        x += keyWidth + grid.gap;
    }
}

void addThirdRow(std::vector<KeyPlace>& keys, const Grid& grid, KeyboardPage page) {
    const auto texts = split(textRows(page)[2]);
    const bool letters = page == KeyboardPage::Letters;
    const double edgeWidth = grid.keyWidth * 1.32;
    // The few marks of the other pages share the width of seven letters.
    const double letterRow = 7 * grid.keyWidth + 6 * grid.gap;
    const double count = static_cast<double>(texts.size());
    addTextRow(keys, grid, 2, texts, letters ? grid.keyWidth : (letterRow - (count - 1) * grid.gap) / count);
    const double y = grid.rowTop(2);
    const KeyboardPage other = page == KeyboardPage::Digits ? KeyboardPage::Symbols : KeyboardPage::Digits;
    keys.push_back(
        {letters ? KeyRole::Shift : KeyRole::Page, "", other, {grid.margin, y, edgeWidth, grid.keyHeight}});
    keys.push_back({KeyRole::Backspace,
                    "",
                    {},
                    {grid.size.width - grid.margin - edgeWidth, y, edgeWidth, grid.keyHeight}});
}

void addBottomRow(std::vector<KeyPlace>& keys, const Grid& grid, KeyboardPage page) {
    const double y = grid.rowTop(3);
    const double pageWidth = grid.keyWidth * 1.32, hideWidth = grid.keyWidth * 1.1;
    const double returnWidth = grid.keyWidth * 2.4;
    const KeyboardPage other = page == KeyboardPage::Letters ? KeyboardPage::Digits : KeyboardPage::Letters;
    double x = grid.margin;
    keys.push_back({KeyRole::Page, "", other, {x, y, pageWidth, grid.keyHeight}});
    x += pageWidth + grid.gap;
    keys.push_back({KeyRole::Hide, "", {}, {x, y, hideWidth, grid.keyHeight}});
    x += hideWidth + grid.gap;
    const double returnX = grid.size.width - grid.margin - returnWidth;
    keys.push_back({KeyRole::Space, " ", {}, {x, y, returnX - grid.gap - x, grid.keyHeight}});
    keys.push_back({KeyRole::Return, "\n", {}, {returnX, y, returnWidth, grid.keyHeight}});
}

} // namespace

std::vector<KeyPlace> layOutKeys(KeyboardPage page, Size size) {
    const Grid grid(size);
    const auto texts = textRows(page);
    std::vector<KeyPlace> keys;
    addTextRow(keys, grid, 0, split(texts[0]), grid.keyWidth);
    addTextRow(keys, grid, 1, split(texts[1]), grid.keyWidth);
    addThirdRow(keys, grid, page);
    addBottomRow(keys, grid, page);
    return keys;
}

} // namespace phone
