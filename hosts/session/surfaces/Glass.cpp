#include "hosts/session/surfaces/Glass.h"

#include "platform/toolkit/rendering/Backdrop.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace session {

using toolkit::Image;

namespace {

std::shared_ptr<const Image> greyScene(int width, int height) {
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4,
                                     0x80);
    for (std::size_t i = 3; i < pixels.size(); i += 4)
        pixels[i] = 0xFF;
    return std::make_shared<const Image>(width, height, width * 4, std::move(pixels), 1);
}

} // namespace

void Glass::setScene(const std::shared_ptr<const Image>& scene, toolkit::Size size) {
    const auto pixels = [this](double points) {
        return std::max(1, static_cast<int>(std::lround(points * pixelsPerPoint_)));
    };
    const int width = pixels(size.width), height = pixels(size.height);
    const bool fits = scene && scene->pixelWidth() == width && scene->pixelHeight() == height;
    if (fits)
        scene_ = scene;
    else
        scene_ = scene ? scene->reducedTo(width, height) : greyScene(width, height);
    pictures_.clear();
}

void Glass::clear() {
    scene_.reset();
    pictures_.clear();
}

ShmBuffer* Glass::picture(toolkit::BackdropStyle style) {
    if (!scene_)
        return nullptr;
    auto& kept = pictures_[style];
    if (kept)
        return kept.get();
    try {
        kept = std::make_unique<ShmBuffer>(shm_, scene_->pixelWidth(), scene_->pixelHeight());
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    std::vector<std::uint8_t> pixels(scene_->pixels().begin(), scene_->pixels().end());
    const toolkit::PixelView source{
        pixels.data(), scene_->pixelWidth(), scene_->pixelHeight(), scene_->bytesPerRow(), 0, 0};
    const toolkit::Backdrop backdrop(std::span(&source, 1), source.rect(), pixelsPerPoint_, style);
    backdrop.draw(kept->view(), source.rect(), source.rect(), 0);
    return kept.get();
}

} // namespace session
