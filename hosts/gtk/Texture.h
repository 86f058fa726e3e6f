// Pictures of the toolkit as textures of GTK.
#pragma once

#include "platform/toolkit/rendering/Image.h"

#include <gtk/gtk.h>

#include <memory>

namespace gtk {

struct ObjectUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Texture = std::unique_ptr<GdkTexture, ObjectUnref>;

/// Copies rows of premultiplied blue, green, red, alpha.
Texture makeTexture(const std::uint8_t* pixels, int width, int height, int bytesPerRow);
Texture makeTexture(const toolkit::Image& image);

} // namespace gtk
