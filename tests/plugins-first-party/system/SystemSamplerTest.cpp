#include "plugins/system/SystemSampler.h"

#include "plugins/system/KernelFile.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <sys/stat.h>

namespace systemplugin {

/// With a directory that stands for the kernel's files.
class SystemSamplerTest : public testing::Test {
protected:
    void write(const std::string& path, const std::string& contents) {
        const auto file = root_.path() / path;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary | std::ios::trunc) << contents;
    }
    void writeBattery(const std::string& name, const std::string& type, const std::string& capacity) {
        const std::string directory = "sys/class/power_supply/" + name + "/";
        write(directory + "type", type + "\n");
        write(directory + "capacity", capacity + "\n");
        write(directory + "status", "Full\n");
    }

    tests::TemporaryDirectory root_;
    SystemSampler sampler_{root_.path().string()};
};

TEST_F(SystemSamplerTest, KnowsNothingWhereThereIsNothing) {
    const SystemSample sample = sampler_.sample(1);
    EXPECT_FALSE(sample.processor);
    EXPECT_FALSE(sample.memory);
    EXPECT_FALSE(sample.traffic);
    EXPECT_FALSE(sample.hasNetwork);
    EXPECT_FALSE(sample.battery);
    EXPECT_FALSE(sample.uptime);
}

TEST_F(SystemSamplerTest, ReckonsBetweenTwoCalls) {
    write("proc/stat", "cpu0 100 0 0 100 0\n");
    write("proc/net/dev", "eth0: 1000 0 0 0 0 0 0 0 500\n");
    EXPECT_FALSE(sampler_.sample(10).processor); // nothing to compare with
    write("proc/stat", "cpu0 130 0 0 170 0\n");
    write("proc/net/dev", "eth0: 3000 0 0 0 0 0 0 0 600\n");
    const SystemSample sample = sampler_.sample(11);
    EXPECT_DOUBLE_EQ(sample.processor.value(), 0.3);
    EXPECT_EQ(sample.traffic, (TrafficRate{2000, 100}));
}

TEST_F(SystemSamplerTest, SaysNothingOfTheTimeBetweenThatNobodyLooked) {
    write("proc/stat", "cpu0 100 0 0 100 0\n");
    sampler_.sample(10);
    write("proc/stat", "cpu0 900 0 0 100 0\n");
    EXPECT_FALSE(sampler_.sample(70).processor);
    write("proc/stat", "cpu0 900 0 0 200 0\n");
    EXPECT_EQ(sampler_.sample(71).processor, 0.0);
}

TEST_F(SystemSamplerTest, CallsTooCloseTogetherSpoilNothing) {
    write("proc/stat", "cpu0 100 0 0 100 0\n");
    sampler_.sample(10);
    sampler_.sample(10.1);
    write("proc/stat", "cpu0 150 0 0 150 0\n");
    EXPECT_DOUBLE_EQ(sampler_.sample(11).processor.value(), 0.5);
}

TEST_F(SystemSamplerTest, FindsTheDevicesOwnBattery) {
    writeBattery("AC", "Mains", "1");
    writeBattery("BAT1", "Battery", "55");
    writeBattery("BAT0", "Battery", "garbage");
    writeBattery("A-mouse", "Battery", "5");
    write("sys/class/power_supply/A-mouse/scope", "Device\n");
    EXPECT_EQ(sampler_.sample(1).battery, (Battery{55, BatteryState::Full}));
}

TEST_F(SystemSamplerTest, NeverWaitsForAFileThatIsNone) {
    std::filesystem::create_directories(root_.path() / "proc");
    ASSERT_EQ(mkfifo((root_.path() / "proc/stat").c_str(), 0600), 0);
    std::filesystem::create_directories(root_.path() / "proc/meminfo");
    EXPECT_FALSE(sampler_.sample(1).memory);
    EXPECT_FALSE(readKernelFile(root_.path() / "proc/stat"));
    write("huge", std::string(1'000'000, '1'));
    EXPECT_EQ(readKernelFile(root_.path() / "huge")->size(), 256u * 1024);
}

TEST(SystemSampler, KnowsThisMachine) {
    SystemSampler sampler;
    const SystemSample sample = sampler.sample(1);
    ASSERT_TRUE(sample.memory);
    EXPECT_GT(sample.memory->total, 0u);
    ASSERT_TRUE(sample.disk);
    EXPECT_LE(sample.disk->used, sample.disk->total);
    EXPECT_GT(sample.uptime.value(), 0);
}

} // namespace systemplugin
