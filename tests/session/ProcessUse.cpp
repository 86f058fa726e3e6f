#include "tests/session/ProcessUse.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace tests {

namespace {

constexpr double kilobytesPerMegabyte = 1024;

} // namespace

long ProcessUse::wakeUps() const {
    long sum = 0;
    const std::filesystem::path tasks = "/proc/" + std::to_string(process_) + "/task";
    for (const auto& task : std::filesystem::directory_iterator(tasks)) {
        std::ifstream status(task.path() / "status");
        for (std::string line; std::getline(status, line);)
            if (line.starts_with("voluntary_ctxt_switches:"))
                sum += std::stol(line.substr(line.find('\t')));
    }
    return sum;
}

double ProcessUse::proportionalMemory() const {
    return memory("Pss:");
}

double ProcessUse::ownMemory() const {
    return memory("Private_Dirty:");
}

double ProcessUse::memory(const char* field) const {
    std::ifstream account("/proc/" + std::to_string(process_) + "/smaps_rollup");
    for (std::string line; std::getline(account, line);)
        if (line.starts_with(field))
            return std::stod(line.substr(line.find(':') + 1)) / kilobytesPerMegabyte;
    throw std::runtime_error("the kernel does not tell what memory is used");
}

} // namespace tests
