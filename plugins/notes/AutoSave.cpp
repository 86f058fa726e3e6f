#include "AutoSave.h"

namespace notesplugin {

AutoSave::AutoSave(StartTimer startTimer, std::function<bool()> save)
    : startTimer_(std::move(startTimer)), save_(std::move(save)) {}

void AutoSave::changed(std::size_t size) {
    unsaved_ = true;
    if (size <= atOnce)
        fire();
    else if (!timer_)
        start(delay);
}

bool AutoSave::flush() {
    timer_.reset();
    return attempt();
}

void AutoSave::resume() {
    if (unsaved_ && !timer_)
        start(delay);
}

void AutoSave::discard() {
    timer_.reset();
    unsaved_ = false;
    failed_ = false;
}

void AutoSave::start(double seconds) {
    timer_ = startTimer_(seconds, [this] { fire(); });
}

void AutoSave::fire() {
    timer_.reset();
    if (!attempt())
        start(retryDelay);
}

bool AutoSave::attempt() {
    if (unsaved_) {
        failed_ = !save_();
        unsaved_ = failed_;
    }
    return !unsaved_;
}

} // namespace notesplugin
