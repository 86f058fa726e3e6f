#include "hosts/media/engine/Pipeline.h"

#include "hosts/media/Text.h"
#include "hosts/media/engine/AudioOutput.h"
#include "platform/foundation/Log.h"

#include <cmath>
#include <memory>

namespace playback {

namespace {

/// playbin's flags: sound, with a volume of its own where the sink has none; no pictures, no subtitles.
constexpr unsigned soundOnly = 0x02 | 0x10;
constexpr unsigned networkTimeout = 15; // seconds
/// What is kept of a stream before it is heard, and the most: servers send as much at once and then only as
/// fast as it sounds, so that waiting for more would be waiting long.
constexpr int streamBuffer = 48 * 1024; // bytes

bool isNetworkAddress(const std::string& uri) {
    return uri.starts_with("http:") || uri.starts_with("https:");
}

double secondsOf(gint64 nanoseconds) {
    return static_cast<double>(nanoseconds) / GST_SECOND;
}

std::string textTag(const GstTagList* tags, const char* name) {
    gchar* text = nullptr;
    gst_tag_list_get_string(tags, name, &text);
    const std::unique_ptr<gchar, void (*)(gpointer)> owned(text, g_free);
    return text ? cleanText(text) : std::string();
}

void setUpSource(GstElement*, GstElement* source, gpointer) {
    GObjectClass* cls = G_OBJECT_GET_CLASS(source);
    if (g_object_class_find_property(cls, "user-agent"))
        g_object_set(source, "user-agent", "Vela/3.0", nullptr);
    if (g_object_class_find_property(cls, "timeout"))
        g_object_set(source, "timeout", networkTimeout, nullptr);
}

} // namespace

Pipeline::~Pipeline() {
    if (GstElement* player = player_)
        gst_object_unref(player);
}

void Pipeline::load(LoadNumber number, const std::string& uri) {
    unload();
    load_ = number;
    if (!makePlayer()) {
        fail("GStreamer's player is missing");
        return;
    }
    uri_ = uri;
    duration_ = 0;
    title_.clear();
    seekWhenReady_.reset();
    g_object_set(player_, "uri", uri.c_str(), nullptr);
    start();
}

void Pipeline::unload() {
    stop();
    uri_.clear();
    playing_ = false;
}

bool Pipeline::makePlayer() {
    if (player_)
        return true;
    if (!gst_init_check(nullptr, nullptr, nullptr))
        return false;
    GstElement* player = gst_element_factory_make("playbin", nullptr);
    if (!player)
        return false;
    g_object_set(player, "flags", soundOnly, "volume", volume_, "buffer-size", streamBuffer, nullptr);
    g_signal_connect(player, "source-setup", G_CALLBACK(setUpSource), nullptr);
    GstBus* bus = gst_element_get_bus(player);
    gst_bus_set_sync_handler(bus, receive, this, nullptr);
    gst_object_unref(bus);
    player_ = GST_ELEMENT(gst_object_ref_sink(player));
    if (GstElement* sink = makeAudibleSink())
        useSink(sink);
    else
        goOnSilently();
    return true;
}

void Pipeline::useSink(GstElement* sink) {
    sink_ = sink;
    g_object_set(player_, "audio-sink", sink, nullptr);
}

void Pipeline::goOnSilently() {
    silent_ = true;
    foundation::log("There is nothing to hear sound with; music plays silently.");
    useSink(makeSilentSink());
}

void Pipeline::start() {
    const std::uint64_t run = ++run_;
    stage_ = Stage::Preparing;
    buffering_ = false;
    switch (gst_element_set_state(player_, GST_STATE_PAUSED)) {
    case GST_STATE_CHANGE_FAILURE:
        // Usually it has told its reason, which has to be heard first.
        events_.perform([this, run] {
            if (run == run_)
                fail("it cannot be opened");
        });
        break;
    case GST_STATE_CHANGE_NO_PREROLL: // it cannot be stopped, so it is not waited for
        handleReady();
        break;
    default:
        break;
    }
}

void Pipeline::stop() {
    ++run_;
    stage_ = Stage::Stopped;
    if (player_)
        gst_element_set_state(player_, GST_STATE_NULL);
}

void Pipeline::setPlaying(bool playing) {
    if (uri_.empty() || playing == playing_)
        return;
    playing_ = playing;
    // A server does not wait for a listener: who listens again hears what is sent then.
    if (!playing && stage_ == Stage::Ready && isEndlessStream())
        stop();
    else if (playing && stage_ == Stage::Stopped)
        start();
    else
        applyState();
}

void Pipeline::applyState() {
    if (stage_ == Stage::Ready)
        gst_element_set_state(player_, playing_ && !buffering_ ? GST_STATE_PLAYING : GST_STATE_PAUSED);
}

void Pipeline::seek(SeekNumber number, double seconds) {
    seek_ = number;
    if (uri_.empty())
        return;
    if (stage_ == Stage::Ready)
        seekNow(seconds);
    else
        seekWhenReady_ = seconds;
}

void Pipeline::seekNow(double seconds) {
    // To the sample in a file; over the network that would mean to fetch all before it.
    const auto precision = isNetworkAddress(uri_) ? GST_SEEK_FLAG_KEY_UNIT : GST_SEEK_FLAG_ACCURATE;
    const auto flags = static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | precision);
    const auto target = static_cast<gint64>(seconds * GST_SECOND);
    if (!gst_element_seek_simple(player_, GST_FORMAT_TIME, flags, target))
        events_.settled(load_, seek_);
}

void Pipeline::setVolume(double factor) {
    volume_ = factor;
    if (player_)
        g_object_set(player_, "volume", factor, nullptr);
}

std::optional<double> Pipeline::position() const {
    GstElement* player = player_;
    gint64 position = 0;
    if (!player || !gst_element_query_position(player, GST_FORMAT_TIME, &position) || position < 0)
        return std::nullopt;
    return secondsOf(position);
}

bool Pipeline::isEndlessStream() const {
    return isNetworkAddress(uri_) && duration_ <= 0;
}

GstBusSyncReply Pipeline::receive(GstBus*, GstMessage* message, gpointer data) {
    auto& pipeline = *static_cast<Pipeline*>(data);
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_ASYNC_DONE:
    case GST_MESSAGE_BUFFERING:
    case GST_MESSAGE_CLOCK_LOST:
    case GST_MESSAGE_DURATION_CHANGED:
    case GST_MESSAGE_EOS:
    case GST_MESSAGE_ERROR:
    case GST_MESSAGE_TAG: {
        const std::shared_ptr<GstMessage> kept(gst_message_ref(message), gst_message_unref);
        pipeline.events_.perform([&pipeline, kept, run = pipeline.run_.load()] {
            if (run == pipeline.run_)
                pipeline.handle(kept.get());
        });
        break;
    }
    default:
        break;
    }
    gst_message_unref(message);
    return GST_BUS_DROP;
}

void Pipeline::handle(GstMessage* message) {
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_ASYNC_DONE:
        handleReady();
        break;
    case GST_MESSAGE_BUFFERING:
        handleBuffering(message);
        break;
    case GST_MESSAGE_CLOCK_LOST:
        gst_element_set_state(player_, GST_STATE_PAUSED);
        applyState();
        break;
    case GST_MESSAGE_DURATION_CHANGED:
        noteDuration();
        break;
    case GST_MESSAGE_EOS:
        handleEnd();
        break;
    case GST_MESSAGE_ERROR:
        handleError(message);
        break;
    case GST_MESSAGE_TAG:
        handleTags(message);
        break;
    default:
        break;
    }
}

void Pipeline::handleReady() {
    stage_ = Stage::Ready;
    noteDuration();
    if (const auto target = std::exchange(seekWhenReady_, std::nullopt))
        seekNow(*target);
    else
        events_.settled(load_, seek_);
    applyState();
}

void Pipeline::noteDuration() {
    gint64 nanoseconds = 0;
    if (!gst_element_query_duration(player_, GST_FORMAT_TIME, &nanoseconds) || nanoseconds <= 0)
        return;
    const double seconds = secondsOf(nanoseconds);
    if (std::abs(seconds - std::exchange(duration_, seconds)) > 0.001)
        events_.durationChanged(load_, seconds);
}

void Pipeline::handleEnd() {
    unload();
    events_.ended(load_);
}

void Pipeline::handleError(GstMessage* message) {
    if (!silent_ && gst_object_has_as_ancestor(GST_MESSAGE_SRC(message), GST_OBJECT(sink_))) {
        const auto reached = position();
        stop();
        goOnSilently();
        if (!isEndlessStream())
            seekWhenReady_ = reached;
        start();
        return;
    }
    GError* error = nullptr;
    gst_message_parse_error(message, &error, nullptr);
    const std::string reason = error ? cleanText(error->message) : std::string();
    g_clear_error(&error);
    fail(reason);
}

void Pipeline::fail(const std::string& reason) {
    unload();
    events_.failed(load_, reason);
}

void Pipeline::handleTags(GstMessage* message) {
    if (!isNetworkAddress(uri_))
        return;
    GstTagList* tags = nullptr;
    gst_message_parse_tag(message, &tags);
    const std::unique_ptr<GstTagList, void (*)(GstTagList*)> owned(tags, gst_tag_list_unref);
    std::string title = textTag(tags, GST_TAG_TITLE);
    // Streams of Ogg tell both apart, the others do it in this way.
    if (const std::string artist = textTag(tags, GST_TAG_ARTIST); !artist.empty() && !title.empty())
        title = artist + " - " + title;
    const bool tells = gst_tag_list_get_tag_size(tags, GST_TAG_TITLE) > 0;
    if (tells && title != std::exchange(title_, title))
        events_.streamTitleChanged(load_, title);
}

void Pipeline::handleBuffering(GstMessage* message) {
    gint percent = 0;
    gst_message_parse_buffering(message, &percent);
    buffering_ = percent < 100;
    applyState();
}

} // namespace playback
