// Which way the device is held, as its accelerometer's service tells.
#include "tests/session/MockedServices.h"

namespace tests {

class SessionSensor : public MockedServices {
protected:
    static constexpr int upright = 1, upsideDown = 2, landscapeRight = 3, landscapeLeft = 4;
    const HeadlessCompositor::Screen wide{1334, 750, "2", "normal"};

    nlohmann::json orientation() {
        const auto all = state();
        return all.is_null() ? nlohmann::json() : all["screen"]["interface"];
    }
    bool waitFor(int wanted) {
        return eventually([&] { return orientation() == wanted; });
    }
    /// After something that makes sense, nonsense: as if nothing were sensed.
    void expectNoOrientation(const std::string& nonsense, int otherwise) {
        setSensed("bottom-up");
        ASSERT_TRUE(waitFor(upsideDown)) << orientation();
        setSensed(nonsense);
        EXPECT_TRUE(waitFor(otherwise)) << nonsense << ": " << orientation();
    }
};

TEST_F(SessionSensor, WithoutOneTheOutputsTurnDecides) {
    start();
    EXPECT_EQ(orientation(), upright);
    ASSERT_TRUE(compositor().command("output HEADLESS-1 transform 180"));
    EXPECT_TRUE(waitFor(upsideDown));
    ASSERT_TRUE(compositor().command("output HEADLESS-1 transform 270"));
    EXPECT_TRUE(waitFor(landscapeLeft));
}

TEST_F(SessionSensor, SaysWhichOfTheTwoLandscapesItIs) {
    startSensor("left-up");
    start(wide);
    EXPECT_TRUE(waitFor(landscapeLeft));
    setSensed("right-up");
    EXPECT_TRUE(waitFor(landscapeRight));
    setSensed("left-up");
    EXPECT_TRUE(waitFor(landscapeLeft));
}

TEST_F(SessionSensor, TurnsAnUprightScreenUpsideDown) {
    startSensor("normal");
    start();
    EXPECT_TRUE(waitFor(upright));
    setSensed("bottom-up");
    EXPECT_TRUE(waitFor(upsideDown));
    ASSERT_TRUE(request("Show", "right"));
    EXPECT_TRUE(waitForRest("right"));
    setSensed("normal");
    EXPECT_TRUE(waitFor(upright));
}

TEST_F(SessionSensor, DoesNotTurnAScreenThatTheCompositorHasNotTurned) {
    startSensor("bottom-up");
    start();
    ASSERT_TRUE(waitFor(upsideDown));
    setSensed("left-up");
    EXPECT_TRUE(waitFor(upright));
    EXPECT_EQ(state()["screen"]["width"], screenWidth);
}

TEST_F(SessionSensor, IsClaimedWhenItStartsLater) {
    start(wide);
    ASSERT_TRUE(waitFor(landscapeRight));
    startSensor("undefined");
    // The mock tells nobody but those who have claimed it.
    EXPECT_TRUE(eventually([&] { return orientation() == landscapeLeft; },
                           [&] {
                               setSensed("right-up");
                               setSensed("left-up");
                           }));
}

TEST_F(SessionSensor, IsClaimedAgainWhenItReturns) {
    startSensor("left-up");
    start(wide);
    ASSERT_TRUE(waitFor(landscapeLeft));
    endMocks();
    ASSERT_TRUE(waitFor(landscapeRight)) << "what a service that has gone said last counts no longer";
    startSensor("undefined");
    EXPECT_TRUE(eventually([&] { return orientation() == landscapeLeft; },
                           [&] {
                               setSensed("right-up");
                               setSensed("left-up");
                           }));
}

TEST_F(SessionSensor, WhatChangesBeforeItIsClaimedIsSeen) {
    const char* path = "/net/hadess/SensorProxy";
    const char* mock = "org.freedesktop.DBus.Mock";
    startMock({sensor, path, sensor}, sensor);
    take(bus().call(
        sensor, path, mock, "AddProperty",
        g_variant_new("(ssv)", sensor, "AccelerometerOrientation", g_variant_new_string("normal"))));
    take(bus().call(sensor, path, mock, "AddMethod",
                    g_variant_new("(sssss)", sensor, "ClaimAccelerometer", "", "",
                                  "self.props['net.hadess.SensorProxy']['AccelerometerOrientation'] = "
                                  "'bottom-up'")));
    start();
    EXPECT_TRUE(waitFor(upsideDown));
}

TEST_F(SessionSensor, NonsenseIsNoOrientation) {
    startSensor("normal");
    start();
    ASSERT_TRUE(waitFor(upright));
    expectNoOrientation("undefined", upright);
    expectNoOrientation("", upright);
    expectNoOrientation("sideways", upright);
    expectNoOrientation("bottom-up ", upright);
    expectNoOrientation(std::string(100'000, 'x'), upright);
}

TEST_F(SessionSensor, AnOrientationThatIsNoTextIsNone) {
    startMock({sensor, "/net/hadess/SensorProxy", sensor}, sensor);
    take(bus().call(sensor, "/net/hadess/SensorProxy", "org.freedesktop.DBus.Mock", "AddProperty",
                    g_variant_new("(ssv)", sensor, "AccelerometerOrientation", g_variant_new_uint32(2))));
    start();
    // It cannot be claimed either, for it has no such method.
    ASSERT_TRUE(request("Show", "right"));
    EXPECT_TRUE(waitForRest("right"));
    EXPECT_EQ(orientation(), upright);
}

} // namespace tests
