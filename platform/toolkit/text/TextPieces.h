// Breaks a text into the pieces that are laid out one below the other.
#pragma once

#include "platform/toolkit/text/TextLayoutNative.h"

namespace toolkit {

/// Fills `native.pieces` from its text, style and width.
void makeTextPieces(TextLayout::Native& native);

/// Width and height of one piece in points.
Size sizeOfPiece(const TextLayout::Native::Piece& piece);

} // namespace toolkit
