// What is under way in real time beside the main loop, requests to servers above all.
//
// The loop in real time needs no more than to be told of each end when it comes. A virtual loop would have
// gone on by hours meanwhile: it holds the ends back and, before it moves its clock, waits until nothing is
// under way, and takes the ends in the order in which the pieces began. To a headless run the whole world
// outside thus takes no time and always answers in the same order. Any thread.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <vector>

namespace foundation {

class OutsideWork {
public:
    static OutsideWork& shared();

    using Ticket = std::uint64_t;
    using Deliver = std::function<void()>;

    Ticket begin();
    /// Calls `deliver` at once, or keeps it while ends are held.
    void end(Ticket ticket, Deliver deliver);

    /// From the first hold to the last letGo, which drops what has not been taken, ends are held.
    void hold();
    void letGo();
    /// Waits until nothing is under way, at most `patience` seconds of real time, and answers what has ended.
    /// What took longer than that is not waited for again.
    std::vector<Deliver> takeEnds(double patience);

private:
    std::mutex mutex_;
    std::condition_variable ended_;
    Ticket last_ = 0;
    int holders_ = 0;
    std::set<Ticket> awaited_;
    std::map<Ticket, Deliver> held_;
};

} // namespace foundation
