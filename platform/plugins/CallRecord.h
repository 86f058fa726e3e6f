// Every optional method that has been called on a plug-in's view, for state dumps and tests. Main thread
// only.
#pragma once

#include <string>
#include <vector>

namespace plugins {

struct CallRecord {
    std::string identifier;
    std::string method;
    double time = 0; // run loop time
};

/// The newest 10,000, oldest first.
const std::vector<CallRecord>& recordedCalls();
void recordCall(CallRecord record);
void clearRecordedCalls();

} // namespace plugins
