// One of the product's windows on the stage: its colour, its glass and its picture, each a piece of its own.
#pragma once

#include "hosts/session/surfaces/Glass.h"
#include "hosts/session/surfaces/PictureBuffers.h"
#include "hosts/session/surfaces/SurfacePiece.h"
#include "platform/toolkit/windows/SeparateWindows.h"

namespace session {

class WindowPieces {
public:
    /// Everything outlives this object.
    WindowPieces(Globals& globals, SolidPixels& pixels, Glass& glass, wl_surface& stage);

    /// Brings the pieces in line with the window, on a screen of `screen` points.
    void show(const toolkit::TreePicture& window, toolkit::Size screen);
    void hide();
    /// Puts the pieces right above another surface of the stage; answers the highest one of them.
    wl_surface& stackAbove(wl_surface& other);

private:
    void showColor(const toolkit::TreePicture::Look& look, const PointRect& seen);
    void showGlass(const toolkit::TreePicture::Look& look, const PointRect& seen);
    void showContent(const toolkit::TreePicture& window, const PointRect& frame);

    Glass& glassPictures_;
    SurfacePiece color_;
    SurfacePiece glass_;
    SurfacePiece content_;
    PictureBuffers buffers_;
    ShmBuffer* shown_ = nullptr; // of the content
    double shownOpacity_ = 1;
};

} // namespace session
