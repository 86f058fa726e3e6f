// Measures the system: what is counted up by the kernel is turned into loads and rates between two calls.
#pragma once

#include "Battery.h"
#include "DiskUsage.h"
#include "MemoryUsage.h"
#include "NetworkTraffic.h"
#include "ProcessorTimes.h"

#include <optional>
#include <string>
#include <vector>

namespace systemplugin {

struct SystemSample {
    std::vector<double> cores;       // loads from 0 to 1; empty when not known yet
    std::optional<double> processor; // of all cores together
    std::optional<TrafficRate> traffic;
    bool hasNetwork = false; // there is an interface besides the loopback
    std::optional<MemoryUsage> memory;
    std::optional<DiskUsage> disk;
    std::optional<Battery> battery;
    std::optional<double> uptime; // seconds
};

class SystemSampler {
public:
    /// Two calls further apart than this say nothing about now, and closer ones too little.
    static constexpr double largestStep = 5;
    static constexpr double smallestStep = 0.2;
    /// Disk and battery change slowly, and a battery may take its time to answer: they are asked this seldom.
    static constexpr double slowStep = 5;

    /// `root` stands before "/proc", "/sys" and the disk's path "/".
    explicit SystemSampler(std::string root = {}) : root_(std::move(root)) {}

    /// `time` in seconds on a clock that does not go back.
    SystemSample sample(double time);

private:
    std::string read(const char* path) const;
    void readSlowOnes(double time);
    bool isMeasurable(double step) const { return step >= smallestStep && step <= largestStep; }

    std::string root_;
    std::optional<double> time_;
    std::vector<CoreTimes> cores_;
    std::vector<InterfaceTraffic> interfaces_;
    std::optional<double> slowTime_;
    std::optional<DiskUsage> disk_;
    std::optional<Battery> battery_;
};

} // namespace systemplugin
