// Every optional method that has been called on a plug-in's view, for state dumps and tests. Main thread
// only.
#pragma once

#include <deque>
#include <string>

namespace plugins {

struct CallRecord {
    std::string identifier;
    std::string method;
    double time = 0; // run loop time
};

/// The newest 10,000, oldest first.
const std::deque<CallRecord>& recordedCalls();
void recordCall(CallRecord record);
void clearRecordedCalls();

} // namespace plugins
