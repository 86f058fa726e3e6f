#include "platform/foundation/TimedSource.h"

#include <cmath>
#include <memory>

#include <glib.h>

namespace foundation {

namespace {

constexpr double microsecondsPerSecond = 1e6;
constexpr gint64 never = -1;

gboolean callFunction(gpointer data) {
    (*static_cast<std::function<void()>*>(data))();
    return G_SOURCE_CONTINUE;
}

void deleteFunction(gpointer data) {
    delete static_cast<std::function<void()>*>(data);
}

gboolean dispatch(GSource*, GSourceFunc callback, gpointer data) {
    return callback(data);
}

GSourceFuncs functions = {nullptr, nullptr, dispatch, nullptr, nullptr, nullptr};

} // namespace

TimedSource::TimedSource(std::function<void()> fire) : source_(g_source_new(&functions, sizeof(GSource))) {
    // GLib owns the function: it outlives a source that its own callback takes away.
    g_source_set_callback(source_, callFunction, new std::function<void()>(std::move(fire)), deleteFunction);
    g_source_set_priority(source_, G_PRIORITY_DEFAULT);
    g_source_attach(source_, nullptr);
}

TimedSource::~TimedSource() {
    g_source_destroy(source_);
    g_source_unref(source_);
}

void TimedSource::fireAt(double time) {
    // Rounded up, so that nothing fires before its time. What lies beyond the type's range never comes.
    const double microseconds = std::ceil(time * microsecondsPerSecond);
    g_source_set_ready_time(source_, microseconds < 0x1p62 ? static_cast<gint64>(microseconds) : never);
}

void TimedSource::fireNow() {
    g_source_set_ready_time(source_, 0);
}

void TimedSource::rest() {
    g_source_set_ready_time(source_, never);
}

} // namespace foundation
