// A tree of the platform's views in a GTK widget: painted when it changes, moved by its own animations, with
// native controls over its controls.
//
// Main thread only. Goes with its widget.
#pragma once

#include "hosts/gtk/FrameClock.h"
#include "hosts/gtk/Texture.h"
#include "hosts/settings/window/NativeControls.h"
#include "platform/foundation/Handle.h"
#include "platform/toolkit/layers/Compositor.h"
#include "platform/toolkit/views/UIView.h"

#include <functional>

namespace settings {

class ToolkitView {
public:
    /// Points that the tree is high, for a width.
    using HeightForWidth = std::function<double(double width)>;

    /// A new widget that fills the width that it is given; `name` is what a screen reader says.
    static ToolkitView& make(const std::string& name);
    ~ToolkitView();
    ToolkitView(const ToolkitView&) = delete;
    ToolkitView& operator=(const ToolkitView&) = delete;

    GtkWidget* widget() const { return widget_; }
    /// Shows this tree, which gets the widget's size as its frame's. Without a `height` it takes all the room
    /// there is.
    void show(std::shared_ptr<toolkit::UIView> view, HeightForWidth height = {});

private:
    template <class T, class... Arguments>
    friend T& attach(GtkWidget*, Arguments&&...);
    explicit ToolkitView(GtkWidget* widget);

    void turnEnded();
    void resized(int width, int height);
    bool frame();
    void paint();
    void draw(GtkSnapshot* snapshot, int width, int height) const;

    GtkWidget* widget_;
    gtk::FrameClock frames_;
    NativeControls controls_;
    std::shared_ptr<toolkit::UIView> view_;
    HeightForWidth height_;
    toolkit::Compositor compositor_{toolkit::Ground::Clear};
    std::uint64_t shownChange_ = 0;
    std::uint64_t shownFrame_ = 0;
    gtk::Texture texture_;
    foundation::Handle turnHook_;
};

} // namespace settings
