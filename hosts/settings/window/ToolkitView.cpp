#include "hosts/settings/window/ToolkitView.h"

#include "hosts/settings/window/Accessibility.h"
#include "hosts/settings/window/Attached.h"
#include "hosts/settings/window/PictureWidget.h"
#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/animation/Animation.h"

#include <cmath>

namespace settings {

using toolkit::Layer;

ToolkitView& ToolkitView::make(const std::string& name) {
    // The widget's hooks and the view refer to each other.
    auto place = std::make_shared<ToolkitView*>(nullptr);
    GtkWidget* widget = newPictureWidget(
        GTK_ACCESSIBLE_ROLE_GROUP,
        {[place](int width) {
             const auto& height = (*place)->height_;
             return height ? static_cast<int>(std::ceil(height(width))) : 0;
         },
         [place](int width, int height) { (*place)->resized(width, height); },
         [place](GtkSnapshot* snapshot, int width, int height) { (*place)->draw(snapshot, width, height); }});
    if (!name.empty())
        setAccessibleName(widget, name);
    ToolkitView& view = attach<ToolkitView>(widget, widget);
    *place = &view;
    return view;
}

ToolkitView::ToolkitView(GtkWidget* widget)
    : widget_(widget), frames_(widget, [this] { return frame(); }), controls_(widget) {
    turnHook_ =
        foundation::RunLoop::main().addTurnHook(foundation::TurnPhase::Commit, [this] { turnEnded(); });
    g_signal_connect_swapped(widget_, "notify::scale-factor",
                             G_CALLBACK(+[](ToolkitView* self) { self->frames_.request(); }), this);
}

ToolkitView::~ToolkitView() {
    g_signal_handlers_disconnect_by_data(widget_, this);
}

void ToolkitView::show(std::shared_ptr<toolkit::UIView> view, HeightForWidth height) {
    view_ = std::move(view);
    height_ = std::move(height);
    gtk_widget_set_vexpand(widget_, !height_);
    controls_.cover(view_);
    gtk_widget_queue_resize(widget_);
    frames_.request();
}

void ToolkitView::turnEnded() {
    if (Layer::changeCount() != shownChange_ || toolkit::AnimationEngine::shared().isAnimating())
        frames_.request();
}

void ToolkitView::resized(int width, int height) {
    if (!view_)
        return;
    view_->setFrame({0, 0, static_cast<double>(width), static_cast<double>(height)});
    view_->layoutIfNeeded();
    controls_.allocate();
    paint();
}

bool ToolkitView::frame() {
    paint();
    return toolkit::AnimationEngine::shared().isAnimating();
}

void ToolkitView::paint() {
    if (!view_ || view_->bounds().isEmpty())
        return;
    view_->layoutIfNeeded();
    // Read before composing: what drawing changes is due in the next frame.
    shownChange_ = Layer::changeCount();
    compositor_.compose({view_->layer()}, view_->bounds().size(), gtk_widget_get_scale_factor(widget_));
    if (compositor_.paintedFrames() == shownFrame_)
        return;
    shownFrame_ = compositor_.paintedFrames();
    texture_ = gtk::makeTexture(compositor_.pixels(), compositor_.pixelWidth(), compositor_.pixelHeight(),
                                compositor_.bytesPerRow());
    gtk_widget_queue_draw(widget_);
}

void ToolkitView::draw(GtkSnapshot* snapshot, int width, int height) const {
    if (!texture_)
        return;
    const graphene_rect_t area{{0, 0}, {static_cast<float>(width), static_cast<float>(height)}};
    gtk_snapshot_append_texture(snapshot, texture_.get(), &area);
}

} // namespace settings
