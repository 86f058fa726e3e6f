#include "hosts/lyrics-gateway/GatewayOptions.h"

#include <gtest/gtest.h>

using gateway::GatewayOptions;
using gateway::GatewayOptionsError;

TEST(GatewayOptions, HaveDefaults) {
    const auto options = GatewayOptions::parse({});
    EXPECT_EQ(options.port, GatewayOptions::usualPort);
    EXPECT_TRUE(options.directories.empty());
    EXPECT_NE(options.service, "");
}

TEST(GatewayOptions, AreRead) {
    const auto options = GatewayOptions::parse(
        {"--port=0", "--directory", "a", "--directory=b", "--service", "http://127.0.0.1:1/"});
    EXPECT_EQ(options.port, 0);
    EXPECT_EQ(options.directories, (std::vector<std::filesystem::path>{"a", "b"}));
    EXPECT_EQ(options.service, "http://127.0.0.1:1");
    EXPECT_EQ(GatewayOptions::parse({"--service="}).service, "");
    EXPECT_TRUE(GatewayOptions::parse({"--help"}).help);
}

TEST(GatewayOptions, RefuseWhatMakesNoSense) {
    const std::vector<std::vector<std::string>> lines{
        {"--port"},    {"--port", ""}, {"--port", "x"},  {"--port=65536"},
        {"--port=-1"}, {"--port=80x"}, {"--directory="}, {"--service=ftp:"},
        {"--what"},    {"--what=1"},   {"song"}};
    for (const auto& line : lines)
        EXPECT_THROW(GatewayOptions::parse(line), GatewayOptionsError) << line.front();
}
