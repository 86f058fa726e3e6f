// What the kernel writes about itself, read from texts as they are and as they should never be.
#include "plugins/system/Battery.h"
#include "plugins/system/MemoryUsage.h"
#include "plugins/system/NetworkTraffic.h"
#include "plugins/system/ProcessorTimes.h"
#include "plugins/system/Units.h"

#include <gmock/gmock.h>

#include <random>

namespace systemplugin {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view stat = "cpu  300 0 100 1600 20 0 0 0 0 0\n"
                                  "cpu0 100 0 50 800 10 0 0 0 0 0\n"
                                  "cpu1 200 0 50 800 10 0 0 0 0 0\n"
                                  "intr 12345 0 9\nctxt 99\n";

constexpr std::string_view memory = "MemTotal:       16000000 kB\nMemFree:         1000000 kB\n"
                                    "MemAvailable:   12000000 kB\nBuffers:          500000 kB\n"
                                    "Cached:          2500000 kB\nSwapTotal:       4000000 kB\n"
                                    "SwapFree:        3000000 kB\nHugePages_Total:       0\n";

constexpr std::string_view network =
    "Inter-|   Receive                                                |  Transmit\n"
    " face |bytes    packets errs drop fifo frame compressed multicast|bytes    packets errs drop\n"
    "    lo: 5000 10 0 0 0 0 0 0 5000 10 0 0 0 0 0 0\n"
    "  eth0:1000 20 0 0 0 0 0 0 300 5 0 0 0 0 0 0\n"
    " wlan0: 70 1 0 0 0 0 0 0 8 1 0 0 0 0 0 0\n";

/// `text` with some bytes replaced by others, of any sort.
std::string broken(std::string_view text, std::mt19937& random) {
    std::string bytes(text);
    for (int i = 0; i < 4; ++i)
        bytes[random() % bytes.size()] = static_cast<char>(random());
    bytes.resize(random() % (bytes.size() + 1));
    return bytes;
}

} // namespace

TEST(ProcessorTimes, AreReadForEachCore) {
    EXPECT_THAT(parseProcessorTimes(stat), ElementsAre(CoreTimes{0, 150, 810}, CoreTimes{1, 250, 810}));
}

TEST(ProcessorTimes, DoNotCountGuestsTwice) {
    EXPECT_THAT(parseProcessorTimes("cpu0 10 1 2 3 4 5 6 7 8 9"), ElementsAre(CoreTimes{0, 31, 7}));
}

TEST(ProcessorTimes, PassOverLinesThatAreNotUnderstood) {
    EXPECT_THAT(parseProcessorTimes(""), IsEmpty());
    EXPECT_THAT(parseProcessorTimes("cpu0\ncpux 1 2 3 4 5\ncpu1 1 2 3 four 5\ncpu-1 1 2 3 4 5\n"
                                    "cpu99999999999999999999 1 2 3 4 5\ncpu4096 1 2 3 4 5\n"
                                    "cpu2 1 2 3 18446744073709551615 5\n cpu3 1 2 3 4 5\n"),
                IsEmpty());
    EXPECT_THAT(parseProcessorTimes("cpu7 1 2 3 4 5\ncpu7 9 9 9 9 9"), ElementsAre(CoreTimes{7, 6, 9}));
}

TEST(ProcessorTimes, GiveLoadsBetweenTwoMoments) {
    const std::vector<CoreTimes> before{{0, 100, 900}, {1, 100, 900}, {2, 5, 5}};
    const std::vector<CoreTimes> after{{0, 175, 925}, {1, 100, 900}, {3, 50, 50}};
    EXPECT_THAT(coreLoads(before, after), ElementsAre(0.75, 0)); // core 1 did not move, 3 is new
    EXPECT_EQ(totalLoad(coreLoads(before, after)), 0.375);
    EXPECT_EQ(totalLoad({}), 0);
    EXPECT_THAT(coreLoads({{0, 100, 100}}, {{0, 50, 150}}), ElementsAre(0)); // went back
}

TEST(MemoryUsage, CountsWhatProgramsHold) {
    const MemoryUsage usage = parseMemoryUsage(memory).value();
    EXPECT_EQ(usage.total, 16'000'000ull * 1024);
    EXPECT_EQ(usage.used, 4'000'000ull * 1024);
    EXPECT_EQ(usage.swapUsed, 1'000'000ull * 1024);
    EXPECT_EQ(usage.usedPart(), 0.25);
}

TEST(MemoryUsage, ReckonsForOldKernels) {
    std::string old(memory);
    old.replace(old.find("MemAvailable"), 12, "NotAvailable");
    EXPECT_EQ(parseMemoryUsage(old)->used, (16'000'000ull - 4'000'000) * 1024);
}

TEST(MemoryUsage, AnswersNothingForWhatIsNotUnderstood) {
    for (const char* text :
         {"", "MemTotal: 100 kB", "MemTotal: 0 kB\nMemFree: 0 kB", "MemFree: 5 kB",
          "MemTotal: -5 kB\nMemFree: 1 kB", "MemTotal: 99999999999999999999 kB\nMemFree: 1 kB",
          "MemTotal: 5 MB\nMemFree: 1 MB", "MemTotal 5 kB\nMemFree 1 kB"})
        EXPECT_FALSE(parseMemoryUsage(text)) << text;
    EXPECT_EQ(parseMemoryUsage("MemTotal: 5 kB\nMemAvailable: 9 kB")->used, 0u);
}

TEST(NetworkTraffic, IsReadForAllInterfacesButTheLoopback) {
    EXPECT_THAT(parseNetworkTraffic(network),
                ElementsAre(InterfaceTraffic{"eth0", 1000, 300}, InterfaceTraffic{"wlan0", 70, 8}));
    EXPECT_THAT(parseNetworkTraffic(""), IsEmpty());
    EXPECT_THAT(parseNetworkTraffic("eth0: 1 2 3\neth1: a 2 3 4 5 6 7 8 9\n: 1 2 3 4 5 6 7 8 9\n"
                                    "eth2: 99999999999999999999 2 3 4 5 6 7 8 9"),
                IsEmpty());
}

TEST(NetworkTraffic, GivesRatesBetweenTwoMoments) {
    const std::vector<InterfaceTraffic> before{{"eth0", 1000, 300}, {"gone", 5, 5}, {"reset", 900, 900}};
    const std::vector<InterfaceTraffic> after{{"eth0", 3000, 400}, {"new", 1 << 30, 7}, {"reset", 10, 10}};
    EXPECT_EQ(trafficRate(before, after, 2), (TrafficRate{1000, 50}));
    EXPECT_EQ(trafficRate(before, after, 0), TrafficRate{});
}

TEST(Battery, IsReadFromTwoWords) {
    EXPECT_EQ(parseBattery("80", "Charging\n"), (Battery{80, BatteryState::Charging}));
    EXPECT_EQ(parseBattery("250", "Whatever"), (Battery{100, BatteryState::Unknown}));
    for (const char* capacity : {"", "x", "-1", "5 5", "99999999999999999999999"})
        EXPECT_FALSE(parseBattery(capacity, "Full")) << capacity;
    EXPECT_EQ(describe(Battery{80, BatteryState::Discharging}), "80 %, in use");
    EXPECT_EQ(describe(std::nullopt), "No battery");
}

TEST(Units, AreReadable) {
    EXPECT_EQ(formatBytes(0), "0 B");
    EXPECT_EQ(formatBytes(-5), "0 B");
    EXPECT_EQ(formatBytes(999), "999 B");
    EXPECT_EQ(formatBytes(999.6), "1.0 kB");
    EXPECT_EQ(formatBytes(1'500'000), "1.5 MB");
    EXPECT_EQ(formatBytes(24'000'000'000), "24 GB");
    EXPECT_EQ(formatBytes(1e300).back(), 'B');
    EXPECT_EQ(formatPercent(0.424), "42 %");
    EXPECT_EQ(formatPercent(7), "100 %");
    EXPECT_EQ(formatPercent(std::numeric_limits<double>::quiet_NaN()), "0 %");
    EXPECT_EQ(formatDuration(12), "12 s");
    EXPECT_EQ(formatDuration(303), "5 min 3 s");
    EXPECT_EQ(formatDuration(12000), "3 h 20 min");
    EXPECT_EQ(formatDuration(1'051'200), "12 d 4 h");
    EXPECT_EQ(parseUptime("12345.67 99.1\n"), 12345);
    for (const char* text : {"", "\n5", "abc", "-5.0", ".5", "9999999999999999"})
        EXPECT_FALSE(parseUptime(text)) << text;
}

TEST(KernelText, BearsAnyBytes) {
    std::mt19937 random(3); // any fixed number
    for (int round = 0; round < 3000; ++round) {
        for (const CoreTimes& core : parseProcessorTimes(broken(stat, random)))
            ASSERT_GE(core.core, 0);
        const auto usage = parseMemoryUsage(broken(memory, random)).value_or(MemoryUsage{});
        ASSERT_LE(usage.used, usage.total);
        for (const InterfaceTraffic& traffic : parseNetworkTraffic(broken(network, random)))
            ASSERT_FALSE(traffic.name.empty());
        parseUptime(broken("12345.67 99.1\n", random));
        const auto battery =
            parseBattery(broken("80\n", random), broken("Charging\n", random)).value_or(Battery{});
        ASSERT_LE(battery.percent, 100);
    }
}

} // namespace systemplugin
