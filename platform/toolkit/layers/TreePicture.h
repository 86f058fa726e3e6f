// One layer tree by itself, for hosts that give it a surface of its own: what lies flat beneath it, which
// needs no picture, and a picture of the rest.
//
// Where the tree stands on the screen and how opaque it is as a whole are told, not painted: a tree that
// only moves or fades is not painted again. The tree is not owned. Main thread only.
#pragma once

#include "platform/toolkit/layers/Compositor.h"

namespace toolkit {

class TreePicture {
public:
    TreePicture();
    ~TreePicture();

    /// How the tree looks now, half-way through an animation too. Points.
    struct Look {
        Rect frame;         // on the screen
        double opacity = 1; // of the whole
        /// Fills the frame beneath everything else.
        std::optional<Color> color;
        /// Fills the frame with a blurred picture of what lies beneath the tree, over the colour.
        std::optional<BackdropStyle> glass;
        /// Where the picture lies, from the frame's top left corner on; empty when there is nothing but the
        /// flat things. On whole points.
        Rect content;

        bool isVisible() const {
            return opacity > 0 && !frame.isEmpty() && (color || glass || !content.isEmpty());
        }
    };

    /// Looks at the tree anew and paints what has changed.
    void update(const std::shared_ptr<Layer>& root, double scale);

    const Look& look() const { return look_; }
    /// What the latest update() painted, in pixels of the picture.
    const Compositor::Frame& painted() const { return painted_; }
    /// Pixels that are not painted are clear.
    const Compositor& picture() const { return compositor_; }

private:
    Rect contentFor(const Rect& touched, Size frameSize) const;

    Compositor compositor_{Ground::Clear};
    Look look_;
    Compositor::Frame painted_;
    std::vector<DisplayItem> items_;
};

} // namespace toolkit
