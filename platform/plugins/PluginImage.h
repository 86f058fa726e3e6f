// A picture of a bundle, as plug-ins see it.
#pragma once

#include "platform/plugins/Conversions.h"

namespace plugins {

class PluginImage final : public sdk::Image {
public:
    explicit PluginImage(std::shared_ptr<const toolkit::Image> image) : image_(std::move(image)) {}

    sdk::Size size() const override { return toPlugin(image_->size()); }
    const std::shared_ptr<const toolkit::Image>& image() const { return image_; }

private:
    std::shared_ptr<const toolkit::Image> image_;
};

} // namespace plugins
