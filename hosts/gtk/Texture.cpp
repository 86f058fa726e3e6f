#include "hosts/gtk/Texture.h"

namespace gtk {

Texture makeTexture(const std::uint8_t* pixels, int width, int height, int bytesPerRow) {
    GBytes* bytes = g_bytes_new(pixels, static_cast<gsize>(height) * static_cast<gsize>(bytesPerRow));
    Texture texture(gdk_memory_texture_new(width, height, GDK_MEMORY_B8G8R8A8_PREMULTIPLIED, bytes,
                                           static_cast<gsize>(bytesPerRow)));
    g_bytes_unref(bytes);
    return texture;
}

Texture makeTexture(const toolkit::Image& image) {
    return makeTexture(image.pixels().data(), image.pixelWidth(), image.pixelHeight(), image.bytesPerRow());
}

} // namespace gtk
