#include "hosts/session/wayland/Connection.h"

#include "hosts/session/wayland/ConnectionError.h"
#include "hosts/session/wayland/Protocols.h"

#include <cerrno>
#include <utility>

#include <glib.h>

namespace session {

/// Reads what the compositor sends whenever the main loop waits anyway.
struct Connection::Source {
    GSource base;
    Connection* connection;
    gpointer descriptor;
    bool reading;

    static gboolean prepare(GSource* base, gint* timeout) {
        auto* source = reinterpret_cast<Source*>(base);
        *timeout = -1;
        wl_display* display = source->connection->display();
        if (source->reading)
            return FALSE;
        if (wl_display_prepare_read(display) != 0)
            return TRUE;
        source->reading = true;
        if (wl_display_flush(display) < 0 && errno != EAGAIN)
            return TRUE;
        return FALSE;
    }
    static gboolean check(GSource* base) {
        auto* source = reinterpret_cast<Source*>(base);
        wl_display* display = source->connection->display();
        if (std::exchange(source->reading, false)) {
            if (g_source_query_unix_fd(base, source->descriptor) & (G_IO_IN | G_IO_HUP | G_IO_ERR))
                wl_display_read_events(display);
            else
                wl_display_cancel_read(display);
        }
        if (wl_display_get_error(display) != 0)
            return TRUE;
        const bool pending = wl_display_prepare_read(display) != 0;
        if (!pending)
            wl_display_cancel_read(display);
        return pending;
    }
    static gboolean dispatch(GSource* base, GSourceFunc, gpointer) {
        Connection& connection = *reinterpret_cast<Source*>(base)->connection;
        if (wl_display_dispatch_pending(connection.display()) < 0 ||
            wl_display_get_error(connection.display()) != 0) {
            connection.reportLoss();
            return G_SOURCE_REMOVE;
        }
        connection.served_();
        return G_SOURCE_CONTINUE;
    }
    static void finalize(GSource* base) {
        auto* source = reinterpret_cast<Source*>(base);
        if (source->reading)
            wl_display_cancel_read(source->connection->display());
    }
};

void Connection::DisplayRelease::operator()(wl_display* display) const {
    wl_display_disconnect(display);
}

Connection::Connection() : display_(wl_display_connect(nullptr)) {
    if (!display_)
        throw ConnectionError("there is no Wayland compositor to connect to");
    globals_ = std::make_unique<Globals>(display_.get());
    // The second one brings the descriptions of what the first one announced, the third what some of them
    // made this side ask for.
    const bool announced = roundtrip();
    globals_->beComplete();
    if (!announced || !roundtrip() || !roundtrip())
        throw ConnectionError("the compositor has closed the connection");
    if (!globals_->compositor || !globals_->subcompositor || !globals_->shm)
        throw ConnectionError(
            "the compositor lacks wl_compositor, wl_subcompositor or wl_shm, and nothing can be "
            "shown without");
    if (!globals_->layerShell)
        throw ConnectionError(
            "the compositor has no layer shell (zwlr_layer_shell_v1), and panels cannot lie "
            "over its applications without");
}

Connection::~Connection() {
    if (source_) {
        g_source_destroy(&source_->base);
        g_source_unref(&source_->base);
    }
}

void Connection::serve(std::function<void()> served, std::function<void()> lost) {
    static GSourceFuncs functions{Source::prepare,  Source::check, Source::dispatch,
                                  Source::finalize, nullptr,       nullptr};
    served_ = std::move(served);
    lost_ = std::move(lost);
    GSource* base = g_source_new(&functions, sizeof(Source));
    source_ = reinterpret_cast<Source*>(base);
    source_->connection = this;
    source_->reading = false;
    source_->descriptor = g_source_add_unix_fd(base, wl_display_get_fd(display_.get()),
                                               static_cast<GIOCondition>(G_IO_IN | G_IO_HUP | G_IO_ERR));
    g_source_set_name(base, "wayland");
    g_source_attach(base, nullptr);
}

bool Connection::roundtrip() {
    return wl_display_roundtrip(display_.get()) >= 0;
}

void Connection::flush() {
    wl_display_flush(display_.get());
}

void Connection::reportLoss() {
    if (const auto lost = std::exchange(lost_, nullptr))
        lost();
}

} // namespace session
