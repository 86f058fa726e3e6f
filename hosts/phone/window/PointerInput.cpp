#include "hosts/phone/window/PointerInput.h"

#include "platform/foundation/RunLoop.h"

namespace phone {

namespace {

using Part = DevicePicture::Part;
using toolkit::Point;

/// Seconds within which a second press of the Home button makes a double press.
constexpr double doublePressTime = 0.3;

} // namespace

PointerInput::PointerInput(Phone& phone, DeviceView& view, std::function<void()> turnDone)
    : phone_(phone), view_(view), turnDone_(std::move(turnDone)) {
    GtkEventController* controller = gtk_event_controller_legacy_new();
    g_signal_connect(controller, "event", G_CALLBACK(eventArrived), this);
    gtk_widget_add_controller(view_.widget(), controller);
}

gboolean PointerInput::eventArrived(GtkEventController*, GdkEvent* event, gpointer data) {
    auto* self = static_cast<PointerInput*>(data);
    const bool handled = self->handle(event);
    if (handled)
        self->turnDone_();
    return handled ? GDK_EVENT_STOP : GDK_EVENT_PROPAGATE;
}

bool PointerInput::handle(GdkEvent* event) {
    GdkEventSequence* sequence = gdk_event_get_event_sequence(event);
    switch (gdk_event_get_event_type(event)) {
    case GDK_BUTTON_PRESS:
        return gdk_button_event_get_button(event) == GDK_BUTTON_PRIMARY && down(nullptr, widgetPoint(event));
    case GDK_BUTTON_RELEASE:
        return gdk_button_event_get_button(event) == GDK_BUTTON_PRIMARY && up(nullptr, widgetPoint(event));
    case GDK_MOTION_NOTIFY:
        return move(nullptr, widgetPoint(event));
    case GDK_TOUCH_BEGIN:
        return down(sequence, widgetPoint(event));
    case GDK_TOUCH_UPDATE:
        return move(sequence, widgetPoint(event));
    case GDK_TOUCH_END:
        return up(sequence, widgetPoint(event));
    case GDK_TOUCH_CANCEL:
        return cancel(sequence);
    case GDK_GRAB_BROKEN:
        return cancel(nullptr);
    default:
        return false;
    }
}

Point PointerInput::widgetPoint(GdkEvent* event) const {
    GtkWidget* widget = view_.widget();
    GtkNative* native = gtk_widget_get_native(widget);
    double x = 0, y = 0, surfaceX = 0, surfaceY = 0;
    gdk_event_get_position(event, &x, &y);
    gtk_native_get_surface_transform(native, &surfaceX, &surfaceY);
    Point point;
    gtk_widget_translate_coordinates(GTK_WIDGET(native), widget, x - surfaceX, y - surfaceY, &point.x,
                                     &point.y);
    return point;
}

bool PointerInput::down(GdkEventSequence* sequence, Point point) {
    gtk_widget_grab_focus(view_.widget());
    cancel(sequence);
    const Contact contact{nextIdentifier_++, view_.picture().partAt(view_.bodyPoint(point))};
    if (contact.part == Part::None)
        return false;
    contacts_[sequence] = contact;
    if (contact.part == Part::Screen)
        phone_.touchDown(contact.identifier, view_.screenPoint(point));
    else
        pressPart(contact.part);
    return true;
}

bool PointerInput::move(GdkEventSequence* sequence, Point point) {
    const auto contact = contacts_.find(sequence);
    if (contact == contacts_.end() || contact->second.part != Part::Screen)
        return false;
    phone_.touchMove(contact->second.identifier, view_.screenPoint(point));
    return true;
}

bool PointerInput::up(GdkEventSequence* sequence, Point point) {
    const auto found = contacts_.find(sequence);
    if (found == contacts_.end())
        return false;
    const Contact contact = found->second;
    contacts_.erase(found);
    view_.setPressedPart(Part::None);
    if (contact.part == Part::Screen)
        phone_.touchUp(contact.identifier);
    else if (contact.part == Part::Home && view_.picture().partAt(view_.bodyPoint(point)) == Part::Home)
        releaseHome();
    return true;
}

bool PointerInput::cancel(GdkEventSequence* sequence) {
    const auto contact = contacts_.find(sequence);
    if (contact == contacts_.end())
        return false;
    if (contact->second.part == Part::Screen)
        phone_.touchCancel(contact->second.identifier);
    contacts_.erase(contact);
    view_.setPressedPart(Part::None);
    return true;
}

void PointerInput::pressPart(Part part) {
    view_.setPressedPart(part);
    if (part == Part::Lock)
        phone_.press(Button::Lock);
    else if (part == Part::VolumeUp)
        phone_.press(Button::VolumeUp);
    else if (part == Part::VolumeDown)
        phone_.press(Button::VolumeDown);
    // The Home button acts when it is let go.
}

void PointerInput::releaseHome() {
    if (secondHomePress_) {
        secondHomePress_.reset();
        phone_.press(Button::HomeDouble);
        return;
    }
    secondHomePress_ = foundation::RunLoop::main().scheduleTimer(doublePressTime, false, [this] {
        secondHomePress_.reset();
        phone_.press(Button::Home);
    });
}

} // namespace phone
