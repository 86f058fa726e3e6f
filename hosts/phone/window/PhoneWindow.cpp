#include "hosts/phone/window/PhoneWindow.h"

#include "hosts/phone/window/DeviceWidget.h"
#include "hosts/phone/window/ScreenshotFile.h"

#include <algorithm>
#include <array>

namespace phone {

namespace {

using toolkit::DeviceOrientation;

/// Room that a window's own frame, and the desktop's panels, take from the height of a display.
constexpr int roomForFrames = 110;
/// Width that the window's own borders take where there is no shadow around it.
constexpr int roomForBorders = 8;
constexpr double noticeSeconds = 3;

bool isLandscape(DeviceOrientation orientation) {
    return orientation == DeviceOrientation::LandscapeLeft ||
           orientation == DeviceOrientation::LandscapeRight;
}

/// The largest size up to the picture's own that fits the display.
toolkit::Size preferredSize(const DevicePicture& picture) {
    toolkit::Size size{picture.bodySize().width + 2 * DevicePicture::margin,
                       picture.bodySize().height + 2 * DevicePicture::margin};
    GListModel* monitors = gdk_display_get_monitors(gdk_display_get_default());
    if (auto* monitor = static_cast<GdkMonitor*>(g_list_model_get_item(monitors, 0))) {
        GdkRectangle area;
        gdk_monitor_get_geometry(monitor, &area);
        g_object_unref(monitor);
        const double fit =
            std::min({1.0, (area.height - roomForFrames) / size.height, area.width / size.width});
        size = {size.width * fit, size.height * fit};
    }
    return size;
}

GtkWidget* newButton(const char* icon, const char* tooltip, const char* action) {
    GtkWidget* button = gtk_button_new_from_icon_name(icon);
    gtk_widget_set_tooltip_text(button, tooltip);
    gtk_actionable_set_action_name(GTK_ACTIONABLE(button), action);
    // The keyboard's focus belongs to the phone.
    gtk_widget_set_focusable(button, FALSE);
    return button;
}

GtkWidget* newBadge(GtkAlign vertical) {
    GtkWidget* label = gtk_label_new(nullptr);
    gtk_widget_add_css_class(label, "badge");
    gtk_widget_set_halign(label, GTK_ALIGN_CENTER);
    gtk_widget_set_valign(label, vertical);
    gtk_widget_set_can_target(label, FALSE);
    gtk_widget_set_visible(label, FALSE);
    return label;
}

void addStyle() {
    // The picture stands out best from dark surroundings.
    g_object_set(gtk_settings_get_default(), "gtk-application-prefer-dark-theme", TRUE, nullptr);
    GtkCssProvider* provider = gtk_css_provider_new();
    gtk_css_provider_load_from_data(
        provider,
        ".phone { background: linear-gradient(#3d4653, #20252d); }"
        ".badge { background: rgba(0,0,0,0.72); color: white; border-radius: 14px;"
        " padding: 5px 14px; margin: 14px; }",
        -1);
    gtk_style_context_add_provider_for_display(gdk_display_get_default(), GTK_STYLE_PROVIDER(provider),
                                               GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    g_object_unref(provider);
}

} // namespace

PhoneWindow::PhoneWindow(Phone& phone, foundation::GlibRunLoop& loop, toolkit::Size screenSize,
                         std::function<void()> closed)
    : phone_(phone),
      loop_(loop),
      closed_(std::move(closed)),
      turnDone_([this] { loop_.endTurn(); }),
      window_(GTK_WINDOW(gtk_window_new())),
      view_(phone, screenSize),
      pointer_(phone, view_, turnDone_),
      keyboard_(phone, view_.widget(), turnDone_),
      actions_(window_, actionTable(), turnDone_) {
    addStyle();
    gtk_window_set_title(window_, "Phone");
    buildHeader();
    buildContent();
    const toolkit::Size size = preferredSize(view_.picture());
    setNaturalSize(view_.widget(), static_cast<int>(size.width), static_cast<int>(size.height));
    // The header bar would like to be wider than the phone.
    gtk_window_set_default_size(window_, static_cast<int>(size.width) + roomForBorders, -1);
    g_signal_connect(window_, "close-request", G_CALLBACK(+[](GtkWindow*, gpointer self) -> gboolean {
                         static_cast<PhoneWindow*>(self)->closed_();
                         return GDK_EVENT_STOP;
                     }),
                     this);
    turnHook_ = loop_.addTurnHook(foundation::TurnPhase::Commit, [this] { orientationChanged(); });
}

void PhoneWindow::present() {
    gtk_window_present(window_);
    gtk_widget_grab_focus(view_.widget());
}

std::vector<PhoneAction> PhoneWindow::actionTable() {
    const auto press = [this](Button button) { return [this, button] { phone_.press(button); }; };
    const auto flat = [this](DeviceOrientation orientation) {
        return [this, orientation] { lay(orientation); };
    };
    return {
        {"home", "Buttons", "Home", "<Control>h", press(Button::Home)},
        {"home-double", "Buttons", "Home Twice", "<Control><Shift>h", press(Button::HomeDouble)},
        {"lock", "Buttons", "Lock", "<Control>l", press(Button::Lock)},
        {"volume-up", "Buttons", "Volume Up", "<Control>Up", press(Button::VolumeUp)},
        {"volume-down", "Buttons", "Volume Down", "<Control>Down", press(Button::VolumeDown)},
        {"rotate-left", "Attitude", "Rotate Left", "<Control>Left", [this] { rotate(-1); }},
        {"rotate-right", "Attitude", "Rotate Right", "<Control>Right", [this] { rotate(1); }},
        {"face-up", "Attitude", "Lay Face Up", "F11", flat(DeviceOrientation::FaceUp)},
        {"face-down", "Attitude", "Lay Face Down", "F12", flat(DeviceOrientation::FaceDown)},
        {"keyboard", "Tools", "Show or Hide Keyboard", "<Control>k",
         [this] { phone_.setKeyboardShown(phone_.visibleKeyboardFrame().height <= 0); }},
        {"screenshot", "Tools", "Save Screenshot", "<Control>s", [this] { saveScreenshot(); }},
        {"shortcuts", "Program", "Keyboard Shortcuts", "F1", [this] { actions_.presentShortcuts(); }},
        {"quit", "Program", "Quit", "<Control>q", [this] { closed_(); }},
    };
}

void PhoneWindow::buildHeader() {
    auto* header = GTK_HEADER_BAR(gtk_header_bar_new());
    gtk_header_bar_pack_start(header,
                              newButton("object-rotate-left-symbolic", "Rotate left", "phone.rotate-left"));
    gtk_header_bar_pack_start(
        header, newButton("object-rotate-right-symbolic", "Rotate right", "phone.rotate-right"));
    GtkWidget* menu = gtk_menu_button_new();
    gtk_menu_button_set_icon_name(GTK_MENU_BUTTON(menu), "open-menu-symbolic");
    gtk_widget_set_focusable(menu, FALSE);
    GMenuModel* model = actions_.newMenu();
    gtk_menu_button_set_menu_model(GTK_MENU_BUTTON(menu), model);
    g_object_unref(model);
    gtk_header_bar_pack_end(header, menu);
    gtk_header_bar_pack_end(header,
                            newButton("camera-photo-symbolic", "Save a screenshot", "phone.screenshot"));
    gtk_header_bar_pack_end(header, newButton("system-lock-screen-symbolic", "Lock", "phone.lock"));
    gtk_window_set_titlebar(window_, GTK_WIDGET(header));
}

void PhoneWindow::buildContent() {
    GtkWidget* overlay = gtk_overlay_new();
    gtk_widget_add_css_class(overlay, "phone");
    gtk_overlay_set_child(GTK_OVERLAY(overlay), view_.widget());
    attitude_ = newBadge(GTK_ALIGN_START);
    notice_ = newBadge(GTK_ALIGN_END);
    gtk_overlay_add_overlay(GTK_OVERLAY(overlay), attitude_);
    gtk_overlay_add_overlay(GTK_OVERLAY(overlay), notice_);
    gtk_window_set_child(window_, overlay);
}

void PhoneWindow::rotate(int quarterTurns) {
    // In the order of turns to the left; a phone that lies flat is taken up as it was held.
    constexpr std::array leftTurns{DeviceOrientation::Portrait, DeviceOrientation::LandscapeLeft,
                                   DeviceOrientation::PortraitUpsideDown, DeviceOrientation::LandscapeRight};
    const auto now = std::find(leftTurns.begin(), leftTurns.end(), held_) - leftTurns.begin();
    phone_.rotate(leftTurns[static_cast<std::size_t>(now + 4 - quarterTurns) % 4]);
}

void PhoneWindow::lay(DeviceOrientation orientation) {
    // The same again takes it up.
    phone_.rotate(phone_.deviceOrientation() == orientation ? held_ : orientation);
}

void PhoneWindow::orientationChanged() {
    const DeviceOrientation orientation = phone_.deviceOrientation();
    if (orientation == orientation_)
        return;
    orientation_ = orientation;
    const bool faceUp = orientation == DeviceOrientation::FaceUp;
    const bool flat = faceUp || orientation == DeviceOrientation::FaceDown;
    gtk_label_set_text(GTK_LABEL(attitude_), faceUp ? "Lying face up" : "Lying face down");
    gtk_widget_set_visible(attitude_, flat);
    if (!DeviceLayout::angleOf(orientation))
        return;
    if (isLandscape(orientation) != isLandscape(held_) && !gtk_window_is_maximized(window_)) {
        // The picture keeps its size when the window turns along with it.
        const int width = gtk_widget_get_width(view_.widget()),
                  height = gtk_widget_get_height(view_.widget());
        int windowWidth = 0, windowHeight = 0;
        gtk_window_get_default_size(window_, &windowWidth, &windowHeight);
        if (width > 0 && height > 0)
            gtk_window_set_default_size(window_, windowWidth - width + height, windowHeight - height + width);
    }
    held_ = orientation;
}

void PhoneWindow::saveScreenshot() {
    const auto picture = phone_.captureScreen();
    const auto path = picture ? writeScreenshotFile(*picture) : std::nullopt;
    notify(path ? "Saved " + path->string() : "The screenshot could not be saved");
}

void PhoneWindow::notify(const std::string& text) {
    gtk_label_set_text(GTK_LABEL(notice_), text.c_str());
    gtk_widget_set_visible(notice_, TRUE);
    noticeTimer_ =
        loop_.scheduleTimer(noticeSeconds, false, [this] { gtk_widget_set_visible(notice_, FALSE); });
}

} // namespace phone
