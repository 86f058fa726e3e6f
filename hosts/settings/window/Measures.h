// Sizes that the window's parts agree upon, in GTK's units, which are the pages' points.
#pragma once

namespace settings {

/// The narrowest window is a phone.
inline constexpr int narrowestWindow = 320;
inline constexpr int firstWidth = 460;
inline constexpr int firstHeight = 780;
/// A page's rows stand in one column, with a margin on both sides.
inline constexpr int widestColumn = 600;
inline constexpr int columnMargin = 12;

/// The width of the column in a window of this width.
inline int columnWidth(int windowWidth) {
    const int width = windowWidth < widestColumn ? windowWidth : widestColumn;
    return width - 2 * columnMargin;
}

} // namespace settings
