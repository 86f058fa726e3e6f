// The picture of the phone in the window: its body, turned as it is held, and the screen's content.
//
// Draws only when the screen's content, the phone's attitude or the window's size changed. Main thread only.
#pragma once

#include "hosts/gtk/FrameClock.h"
#include "hosts/gtk/Texture.h"
#include "hosts/phone/Phone.h"
#include "hosts/phone/picture/DeviceLayout.h"
#include "platform/foundation/Handle.h"

namespace phone {

class DeviceView {
public:
    DeviceView(Phone& phone, toolkit::Size screenSize);
    DeviceView(const DeviceView&) = delete;
    DeviceView& operator=(const DeviceView&) = delete;

    GtkWidget* widget() const { return widget_; }
    const DevicePicture& picture() const { return picture_; }

    /// From the widget's coordinates to the body's and to the screen's as the interface now stands.
    toolkit::Point bodyPoint(toolkit::Point widgetPoint) const;
    toolkit::Point screenPoint(toolkit::Point widgetPoint) const;

    /// Shows a button as held down; Part::None shows none.
    void setPressedPart(DevicePicture::Part part);

private:
    void turnEnded();
    bool frame();
    bool takeScreen();
    bool stepRotation();
    void draw(GtkSnapshot* snapshot, double width, double height);
    void drawScreen(GtkSnapshot* snapshot) const;
    void updateBody(double pixelsPerPoint);

    Phone& phone_;
    DevicePicture picture_;
    double screenScale_;
    GtkWidget* widget_;
    gtk::FrameClock frames_;

    gtk::Texture screen_;
    toolkit::Size screenSize_; // of the texture, in points
    int screenOrientation_ = 1;
    std::uint64_t shownFrame_ = 0;
    gtk::Texture body_;
    double bodyPixelsPerPoint_ = 0;

    DeviceLayout layout_;
    double angle_ = 0; // shown now; radians
    double fromAngle_ = 0;
    double toAngle_ = 0;
    double rotationBegin_ = 0;
    toolkit::DeviceOrientation orientation_ = toolkit::DeviceOrientation::Portrait;
    DevicePicture::Part pressedPart_ = DevicePicture::Part::None;
    foundation::Handle turnHook_;
};

} // namespace phone
