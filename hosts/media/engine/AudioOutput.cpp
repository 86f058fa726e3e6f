#include "hosts/media/engine/AudioOutput.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

namespace playback {

namespace {

/// Opening a card that is not there makes its library write errors, so it is not asked without one.
bool hasSoundCard() {
    std::error_code error;
    const std::filesystem::directory_iterator devices("/dev/snd", error);
    return !error && std::any_of(begin(devices), end(devices), [](const auto& device) {
        const std::string name = device.path().filename().string();
        return name.starts_with("pcm") && name.ends_with('p'); // "pcmC0D0p" plays, "pcmC0D0c" records
    });
}

/// The sink if it finds what it plays to.
GstElement* openedSink(const char* name) {
    GstElement* sink = gst_element_factory_make(name, nullptr);
    if (!sink)
        return nullptr;
    const bool opened = gst_element_set_state(sink, GST_STATE_READY) == GST_STATE_CHANGE_SUCCESS;
    gst_element_set_state(sink, GST_STATE_NULL);
    if (opened)
        return sink;
    gst_object_unref(gst_object_ref_sink(sink));
    return nullptr;
}

} // namespace

GstElement* makeAudibleSink() {
    GstElement* sink = openedSink("pulsesink");
    if (!sink && hasSoundCard())
        sink = openedSink("alsasink");
    return sink;
}

GstElement* makeSilentSink() {
    GstElement* sink = gst_element_factory_make("fakesink", nullptr);
    if (sink)
        g_object_set(sink, "sync", TRUE, nullptr);
    return sink;
}

} // namespace playback
