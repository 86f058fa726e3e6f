#include "hosts/phone/window/DeviceWidget.h"

using DrawFunction = std::function<void(GtkSnapshot*, double, double)>;

struct VelaDeviceWidget {
    GtkWidget parent;
    DrawFunction* draw;
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

static void vela_device_widget_class_init(VelaDeviceWidgetClass* cls) {
    G_OBJECT_CLASS(cls)->finalize = vela_device_widget_finalize;
    GTK_WIDGET_CLASS(cls)->snapshot = vela_device_widget_snapshot;
}

namespace phone {

GtkWidget* newDeviceWidget(DrawFunction draw) {
    auto* widget = static_cast<VelaDeviceWidget*>(g_object_new(vela_device_widget_get_type(), nullptr));
    widget->draw = new DrawFunction(std::move(draw));
    return GTK_WIDGET(widget);
}

} // namespace phone
