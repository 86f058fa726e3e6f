#include "platform/plugins/CallRecord.h"

namespace plugins {

namespace {

constexpr std::size_t mostRecords = 10'000;

std::deque<CallRecord>& records() {
    // Never torn down: views may be told things until the process ends.
    static auto& list = *new std::deque<CallRecord>;
    return list;
}

} // namespace

const std::deque<CallRecord>& recordedCalls() {
    return records();
}

void recordCall(CallRecord record) {
    records().push_back(std::move(record));
    if (records().size() > mostRecords)
        records().pop_front();
}

void clearRecordedCalls() {
    records().clear();
}

} // namespace plugins
