#include "SystemSampler.h"

#include "KernelFile.h"
#include "Units.h"

namespace systemplugin {

std::string SystemSampler::read(const char* path) const {
    return readKernelFile(root_ + path).value_or("");
}

SystemSample SystemSampler::sample(double time) {
    SystemSample sample;
    auto cores = parseProcessorTimes(read("/proc/stat"));
    auto interfaces = parseNetworkTraffic(read("/proc/net/dev"));
    sample.hasNetwork = !interfaces.empty();
    const double step = time_ ? time - *time_ : 0;
    if (isMeasurable(step)) {
        sample.cores = coreLoads(cores_, cores);
        if (!sample.cores.empty())
            sample.processor = totalLoad(sample.cores);
        if (sample.hasNetwork)
            sample.traffic = trafficRate(interfaces_, interfaces, step);
    }
    if (!time_ || step >= smallestStep || step < 0) {
        time_ = time;
        cores_ = std::move(cores);
        interfaces_ = std::move(interfaces);
    }
    sample.memory = parseMemoryUsage(read("/proc/meminfo"));
    sample.uptime = parseUptime(read("/proc/uptime"));
    readSlowOnes(time);
    sample.disk = disk_;
    sample.battery = battery_;
    return sample;
}

void SystemSampler::readSlowOnes(double time) {
    if (slowTime_ && time >= *slowTime_ && time < *slowTime_ + slowStep)
        return;
    slowTime_ = time;
    disk_ = readDiskUsage(root_.empty() ? "/" : root_);
    battery_ = readBattery(root_ + "/sys/class/power_supply");
}

} // namespace systemplugin
