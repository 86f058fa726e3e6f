#include "hosts/media/engine/StreamListEngine.h"

#include "hosts/media/engine/StreamList.h"
#include "platform/foundation/RunLoop.h"

namespace playback {

namespace {

constexpr std::size_t largestList = 64 * 1024; // bytes
constexpr int statusOk = 200;

} // namespace

StreamListEngine::StreamListEngine(std::unique_ptr<PlaybackEngine> engine) : engine_(std::move(engine)) {
    setEvents({});
}

StreamListEngine::~StreamListEngine() {
    forgetList();
}

void StreamListEngine::setEvents(PlaybackEvents events) {
    events_ = events;
    events.failed = [this](const std::string& reason) { playNextStream(reason); };
    engine_->setEvents(std::move(events));
}

void StreamListEngine::load(const std::string& uri, double expectedDuration) {
    unload();
    if (namesStreamList(uri))
        readList(uri);
    else
        engine_->load(uri, expectedDuration);
}

void StreamListEngine::unload() {
    forgetList();
    wanted_ = false;
    engine_->unload();
}

void StreamListEngine::play() {
    wanted_ = true;
    engine_->play();
}

void StreamListEngine::pause() {
    wanted_ = false;
    engine_->pause();
}

PlaybackState StreamListEngine::state() const {
    if (reader_)
        return wanted_ ? PlaybackState::Playing : PlaybackState::Paused;
    return engine_->state();
}

void StreamListEngine::readList(const std::string& address) {
    reader_ = std::make_shared<Reader>([this, address](const foundation::URLAnswer& answer) {
        forgetList();
        const bool came = !answer.error && answer.response.statusCode == statusOk;
        const std::string text = came ? std::string(answer.body.begin(), answer.body.end()) : std::string();
        for (std::string& stream : streamsOfList(text, address))
            streams_.push_back(std::move(stream));
        playNextStream(came ? "the list names no stream" : "the list of streams cannot be read");
    });
    foundation::URLRequest request;
    request.url = address;
    request.maximumBytes = largestList;
    task_ = session_.dataTask(request, [weak = std::weak_ptr(reader_)](const auto& answer) {
        foundation::RunLoop::main().performOnMain([weak, answer] {
            if (const auto reader = weak.lock())
                (*reader)(answer);
        });
    });
    task_.resume();
}

void StreamListEngine::forgetList() {
    task_.cancel();
    reader_.reset();
    streams_.clear();
}

void StreamListEngine::playNextStream(const std::string& reason) {
    if (streams_.empty()) {
        if (events_.failed)
            events_.failed(reason);
        return;
    }
    const std::string stream = streams_.front();
    streams_.pop_front();
    engine_->load(stream, 0);
    if (wanted_)
        engine_->play();
}

} // namespace playback
