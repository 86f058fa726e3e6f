#include "platform/foundation/Log.h"

#include <cstdio>
#include <deque>
#include <mutex>

namespace foundation {

namespace {

constexpr std::size_t keptLines = 10'000;
// Texts of outside data may be of any length; the log's share of the memory is not.
constexpr std::size_t maximumLineBytes = 16 * 1024;

struct Log {
    std::mutex mutex;
    std::deque<std::string> lines;
    bool toStandardError = true;
};

Log& systemLog() {
    // Never torn down: lines are written until the very end of the process, from any thread.
    static auto& log = *new Log;
    return log;
}

bool isContinuationByte(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// The bytes at `at` that make a control character or a line break of Unicode; 0 when it is none.
std::size_t controlCharacterLength(std::string_view text, std::size_t at) {
    auto byte = [&](std::size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0u;
    };
    if (byte(at) < 0x20 || byte(at) == 0x7F)
        return 1;
    if (byte(at) == 0xC2 && byte(at + 1) >= 0x80 && byte(at + 1) <= 0x9F)
        return 2;
    if (byte(at) == 0xE2 && byte(at + 1) == 0x80 && (byte(at + 2) == 0xA8 || byte(at + 2) == 0xA9))
        return 3;
    return 0;
}

std::string singleLine(std::string_view text) {
    if (text.size() > maximumLineBytes) {
        std::size_t end = maximumLineBytes;
        while (end > 0 && isContinuationByte(text[end]))
            --end;
        text = text.substr(0, end);
    }
    std::string line;
    line.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        if (const std::size_t length = controlCharacterLength(text, at)) {
            at += length;
            continue;
        }
        line += text[at++];
    }
    return line;
}

} // namespace

void log(std::string_view text) {
    std::string line = singleLine(text);
    Log& log = systemLog();
    std::lock_guard lock(log.mutex);
    if (log.toStandardError) {
        line += '\n';
        std::fwrite(line.data(), 1, line.size(), stderr);
        line.pop_back();
    }
    log.lines.push_back(std::move(line));
    if (log.lines.size() > keptLines)
        log.lines.pop_front();
}

std::vector<std::string> loggedLines() {
    Log& log = systemLog();
    std::lock_guard lock(log.mutex);
    return {log.lines.begin(), log.lines.end()};
}

void clearLog() {
    Log& log = systemLog();
    std::lock_guard lock(log.mutex);
    log.lines.clear();
}

void setLogToStandardError(bool enabled) {
    Log& log = systemLog();
    std::lock_guard lock(log.mutex);
    log.toStandardError = enabled;
}

} // namespace foundation
