// One client's connection to a compositor that keeps some of its globals from it.
//
// Of what passes, only the headers of messages are looked at, what registries say, and which objects watch an
// output's power. Serves itself, with a thread for each direction.
#pragma once

#include "tests/session/WireSocket.h"

#include <cstdint>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>

namespace tests {

class FilteredLine {
public:
    enum class Power { Off, On, Unknown };

    /// `hidden` are the names of interfaces.
    FilteredLine(WireSocket client, WireSocket compositor, std::set<std::string> hidden);
    /// Ends the connection.
    ~FilteredLine();

    /// Says to the client in the compositor's place what every output's power is now.
    void tell(Power power);

private:
    enum class Passes { Yes, No };
    using Look = Passes (FilteredLine::*)(std::string_view message);

    Passes request(std::string_view message);
    Passes event(std::string_view message);
    void noteBinding(std::string_view message);
    void serve(const WireSocket& from, const WireSocket& to, Look look);
    bool passOn(WireParcel& parcel, const WireSocket& to, Look look);

    WireSocket client_;
    WireSocket compositor_;
    std::set<std::string> hidden_;
    std::set<std::uint32_t> names_; // of hidden globals; the second thread's alone

    // Numbers of objects, under the mutex.
    std::mutex mutex_;
    std::set<std::uint32_t> registries_;
    std::set<std::uint32_t> powerManagers_;
    std::set<std::uint32_t> powers_;

    std::mutex saying_; // one at a time, to the client
    std::jthread requests_;
    std::jthread events_;
};

} // namespace tests
