#include "platform/foundation/OutsideWork.h"

#include <chrono>

namespace foundation {

OutsideWork& OutsideWork::shared() {
    static auto& work = *new OutsideWork; // never torn down: what is under way may end during exit
    return work;
}

OutsideWork::Ticket OutsideWork::begin() {
    std::lock_guard lock(mutex_);
    awaited_.insert(++last_);
    return last_;
}

void OutsideWork::end(Ticket ticket, Deliver deliver) {
    {
        std::lock_guard lock(mutex_);
        awaited_.erase(ticket);
        if (holders_ > 0) {
            held_[ticket] = std::move(deliver);
            ended_.notify_all();
            return;
        }
    }
    deliver();
}

void OutsideWork::hold() {
    std::lock_guard lock(mutex_);
    ++holders_;
}

void OutsideWork::letGo() {
    std::map<Ticket, Deliver> dropped; // goes after the lock: what it holds may come back here
    std::lock_guard lock(mutex_);
    if (--holders_ > 0)
        return;
    awaited_.clear();
    dropped.swap(held_);
}

std::vector<OutsideWork::Deliver> OutsideWork::takeEnds(double patience) {
    std::unique_lock lock(mutex_);
    if (patience > 0 &&
        !ended_.wait_for(lock, std::chrono::duration<double>(patience), [this] { return awaited_.empty(); }))
        awaited_.clear();
    std::vector<Deliver> ends;
    for (auto& [ticket, deliver] : held_)
        ends.push_back(std::move(deliver));
    held_.clear();
    return ends;
}

} // namespace foundation
