// Mouse and fingers on the picture of the phone: touches on its screen, presses of its buttons.
#pragma once

#include "hosts/phone/window/DeviceView.h"

#include <map>

namespace phone {

class PointerInput {
public:
    /// `turnDone` is called after every event that reached the phone.
    PointerInput(Phone& phone, DeviceView& view, std::function<void()> turnDone);
    PointerInput(const PointerInput&) = delete;
    PointerInput& operator=(const PointerInput&) = delete;

private:
    static gboolean eventArrived(GtkEventController*, GdkEvent* event, gpointer self);
    bool handle(GdkEvent* event);
    bool down(GdkEventSequence* sequence, toolkit::Point point);
    bool move(GdkEventSequence* sequence, toolkit::Point point);
    bool up(GdkEventSequence* sequence, toolkit::Point point);
    bool cancel(GdkEventSequence* sequence);
    toolkit::Point widgetPoint(GdkEvent* event) const;
    void pressPart(DevicePicture::Part part);
    void releaseHome();

    struct Contact {
        std::int64_t identifier = 0; // of the touch on the phone's screen
        DevicePicture::Part part = DevicePicture::Part::None;
    };

    Phone& phone_;
    DeviceView& view_;
    std::function<void()> turnDone_;
    /// The mouse is the contact without a sequence.
    std::map<GdkEventSequence*, Contact> contacts_;
    std::int64_t nextIdentifier_ = 1;
    /// Stands while a first press of the Home button waits for a second one.
    foundation::Handle secondHomePress_;
};

} // namespace phone
