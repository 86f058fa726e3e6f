#include "hosts/settings/window/PictureWidget.h"

#include <algorithm>

struct VelaPictureWidget {
    GtkWidget parent;
    settings::PictureWidgetHooks* hooks;
};

struct VelaPictureWidgetClass {
    GtkWidgetClass parent;
};

G_DEFINE_TYPE(VelaPictureWidget, vela_picture_widget, GTK_TYPE_WIDGET)

static void vela_picture_widget_init(VelaPictureWidget* self) {
    self->hooks = nullptr;
    gtk_widget_set_hexpand(GTK_WIDGET(self), TRUE);
    gtk_widget_set_overflow(GTK_WIDGET(self), GTK_OVERFLOW_HIDDEN);
}

static void vela_picture_widget_dispose(GObject* object) {
    while (GtkWidget* child = gtk_widget_get_first_child(GTK_WIDGET(object)))
        gtk_widget_unparent(child);
    G_OBJECT_CLASS(vela_picture_widget_parent_class)->dispose(object);
}

static void vela_picture_widget_finalize(GObject* object) {
    delete reinterpret_cast<VelaPictureWidget*>(object)->hooks;
    G_OBJECT_CLASS(vela_picture_widget_parent_class)->finalize(object);
}

static void vela_picture_widget_snapshot(GtkWidget* widget, GtkSnapshot* snapshot) {
    const auto& hooks = *reinterpret_cast<VelaPictureWidget*>(widget)->hooks;
    if (!gtk_widget_in_destruction(widget))
        hooks.draw(snapshot, gtk_widget_get_width(widget), gtk_widget_get_height(widget));
    for (GtkWidget* child = gtk_widget_get_first_child(widget); child;
         child = gtk_widget_get_next_sibling(child))
        gtk_widget_snapshot_child(widget, child, snapshot);
}

static GtkSizeRequestMode vela_picture_widget_request_mode(GtkWidget*) {
    return GTK_SIZE_REQUEST_HEIGHT_FOR_WIDTH;
}

static void vela_picture_widget_measure(GtkWidget* widget, GtkOrientation orientation, int forSize,
                                        int* minimum, int* natural, int*, int*) {
    const auto& hooks = *reinterpret_cast<VelaPictureWidget*>(widget)->hooks;
    *minimum = *natural =
        orientation == GTK_ORIENTATION_VERTICAL ? hooks.heightForWidth(std::max(0, forSize)) : 0;
}

static void vela_picture_widget_size_allocate(GtkWidget* widget, int width, int height, int) {
    reinterpret_cast<VelaPictureWidget*>(widget)->hooks->resized(width, height);
}

static void vela_picture_widget_class_init(VelaPictureWidgetClass* cls) {
    G_OBJECT_CLASS(cls)->dispose = vela_picture_widget_dispose;
    G_OBJECT_CLASS(cls)->finalize = vela_picture_widget_finalize;
    GTK_WIDGET_CLASS(cls)->snapshot = vela_picture_widget_snapshot;
    GTK_WIDGET_CLASS(cls)->get_request_mode = vela_picture_widget_request_mode;
    GTK_WIDGET_CLASS(cls)->measure = vela_picture_widget_measure;
    GTK_WIDGET_CLASS(cls)->size_allocate = vela_picture_widget_size_allocate;
}

namespace settings {

GtkWidget* newPictureWidget(GtkAccessibleRole role, PictureWidgetHooks hooks) {
    auto* widget = static_cast<VelaPictureWidget*>(
        g_object_new(vela_picture_widget_get_type(), "accessible-role", role, nullptr));
    widget->hooks = new PictureWidgetHooks(std::move(hooks));
    return GTK_WIDGET(widget);
}

} // namespace settings
