#include "hosts/phone/window/DeviceWidget.h"

#include <algorithm>

using DrawFunction = std::function<void(GtkSnapshot*, double, double)>;

struct VelaDeviceWidget {
    GtkWidget parent;
    DrawFunction* draw;
    int naturalWidth;
    int naturalHeight;
};

struct VelaDeviceWidgetClass {
    GtkWidgetClass parent;
};

G_DEFINE_TYPE(VelaDeviceWidget, vela_device_widget, GTK_TYPE_WIDGET)

static void vela_device_widget_init(VelaDeviceWidget* self) {
    self->draw = nullptr;
    gtk_widget_set_focusable(GTK_WIDGET(self), TRUE);
    gtk_widget_set_hexpand(GTK_WIDGET(self), TRUE);
    gtk_widget_set_vexpand(GTK_WIDGET(self), TRUE);
    gtk_widget_set_overflow(GTK_WIDGET(self), GTK_OVERFLOW_HIDDEN);
}

static void vela_device_widget_finalize(GObject* object) {
    delete reinterpret_cast<VelaDeviceWidget*>(object)->draw;
    G_OBJECT_CLASS(vela_device_widget_parent_class)->finalize(object);
}

static void vela_device_widget_snapshot(GtkWidget* widget, GtkSnapshot* snapshot) {
    const auto* self = reinterpret_cast<VelaDeviceWidget*>(widget);
    if (self->draw)
        (*self->draw)(snapshot, gtk_widget_get_width(widget), gtk_widget_get_height(widget));
}

static void vela_device_widget_measure(GtkWidget* widget, GtkOrientation orientation, int, int* minimum,
                                       int* natural, int*, int*) {
    constexpr int least = 160;
    const auto* self = reinterpret_cast<VelaDeviceWidget*>(widget);
    *minimum = least;
    *natural =
        std::max(least, orientation == GTK_ORIENTATION_HORIZONTAL ? self->naturalWidth : self->naturalHeight);
}

static void vela_device_widget_class_init(VelaDeviceWidgetClass* cls) {
    G_OBJECT_CLASS(cls)->finalize = vela_device_widget_finalize;
    GTK_WIDGET_CLASS(cls)->snapshot = vela_device_widget_snapshot;
    GTK_WIDGET_CLASS(cls)->measure = vela_device_widget_measure;
}

namespace phone {

GtkWidget* newDeviceWidget(DrawFunction draw) {
    auto* widget = static_cast<VelaDeviceWidget*>(g_object_new(vela_device_widget_get_type(), nullptr));
    widget->draw = new DrawFunction(std::move(draw));
    return GTK_WIDGET(widget);
}

void setNaturalSize(GtkWidget* deviceWidget, int width, int height) {
    auto* self = reinterpret_cast<VelaDeviceWidget*>(deviceWidget);
    self->naturalWidth = width;
    self->naturalHeight = height;
    gtk_widget_queue_resize(deviceWidget);
}

} // namespace phone
