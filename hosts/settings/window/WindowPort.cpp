#include "hosts/settings/window/WindowPort.h"

#include "hosts/desktop/Addresses.h"
#include "hosts/settings/program/Address.h"
#include "hosts/settings/window/ComposeView.h"
#include "hosts/settings/window/DocumentView.h"
#include "hosts/settings/window/FilmView.h"
#include "hosts/settings/window/ToolkitView.h"
#include "platform/preferences/AVPlayerViewController.h"
#include "platform/preferences/SFSafariViewController.h"

namespace settings {

using toolkit::UIViewController;

namespace {

/// How programs for the network that messages go to are asked to send one.
constexpr const char* messageScheme = "twitter:";
constexpr const char* messageAddress = "twitter://post?message=";

} // namespace

void WindowPort::present(const std::shared_ptr<UIViewController>& controller, bool animated,
                         std::function<void()> completion) {
    window_.modals().present(controller, newPage(controller), animated, std::move(completion));
}

void WindowPort::dismiss(UIViewController& controller, bool animated, std::function<void()> completion) {
    window_.modals().dismiss(controller, animated, std::move(completion));
}

GtkWidget* WindowPort::newPage(const std::shared_ptr<UIViewController>& controller) {
    const auto close = [this, weak = std::weak_ptr(controller)] {
        if (const auto closed = weak.lock())
            dismiss(*closed, true, {});
    };
    if (const auto sheet = std::dynamic_pointer_cast<preferences::SLComposeViewController>(controller))
        return newComposePage(sheet, [this](const std::string& text) { send(text); });
    if (const auto film = std::dynamic_pointer_cast<preferences::AVPlayerViewController>(controller);
        film && film->player())
        return newModalPage("", "Close", FilmView::make(film->player()).widget(), close).widget;
    if (const auto document = std::dynamic_pointer_cast<preferences::SFSafariViewController>(controller))
        return newModalPage("", "Close", DocumentView::make(document->url()).widget(), close).widget;
    ToolkitView& view = ToolkitView::make("");
    view.show(controller->view());
    return newModalPage("", "Close", view.widget(), close).widget;
}

void WindowPort::send(const std::string& message) {
    if (canOpenUrl(messageScheme)) {
        gchar* escaped = g_uri_escape_string(message.c_str(), nullptr, TRUE);
        openUrl(std::string(messageAddress) + escaped);
        g_free(escaped);
        return;
    }
    gdk_clipboard_set_text(gtk_widget_get_clipboard(GTK_WIDGET(window_.window())), message.c_str());
    window_.notify("There is no program that sends it: the message is on the clipboard");
}

bool WindowPort::canOpenUrl(const std::string& url) {
    return desktop::canOpenAddress(url);
}

void WindowPort::openUrl(const std::string& url) {
    const std::string address = realAddress(url);
    if (!address.empty())
        gtk_show_uri(window_.window(), address.c_str(), GDK_CURRENT_TIME);
}

} // namespace settings
