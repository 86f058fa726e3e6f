// What the session host does in a compositor that lacks something.
#include "tests/session/Occurrences.h"
#include "tests/session/SessionTest.h"

#include <gmock/gmock.h>

namespace tests {

namespace {

const std::set<std::string> everythingThatMayBeMissing{
    "wp_viewporter",          "wp_single_pixel_buffer_manager_v1", "zwlr_screencopy_manager_v1",
    "zxdg_output_manager_v1", "zwlr_foreign_toplevel_manager_v1",  "zwlr_output_power_manager_v1"};

} // namespace

class SessionFallback : public SessionTest {
protected:
    void startWithout(const std::set<std::string>& interfaces, HeadlessCompositor::Screen screen = {}) {
        startCompositor(std::move(screen));
        hideFromHost(interfaces);
        startHost({"--no-supervisor"}, HostLog::Words);
    }
    /// A finger's way in and out again, and the other panel by the bus.
    void expectPanelsComeAndGo() {
        press(374, 300);
        dragTo(60, 300, 0.4);
        release();
        ASSERT_TRUE(waitForRest("right"));
        EXPECT_TRUE(waitForDimming(true));
        tap(20, 300);
        ASSERT_TRUE(waitForRest(""));
        EXPECT_TRUE(waitForDimming(false));
        ASSERT_TRUE(request("Show", "left"));
        ASSERT_TRUE(waitForRest("left"));
        ASSERT_TRUE(request("Dismiss"));
        ASSERT_TRUE(waitForRest(""));
        EXPECT_TRUE(eventually([&] { return pixel(700, 300) == "#336699"; }));
    }
    bool waitForDimming(bool dimmed) {
        return eventually([&] {
            return pixel(20, 300) == (dimmed ? "#14293D" : "#336699") &&
                   (pixel(700, 300) == "#336699") == !dimmed;
        });
    }
    /// The share of the screen on which two pictures differ by more than rounding does.
    double difference(const std::filesystem::path& one, const std::filesystem::path& other) {
        const auto child = support::ChildProcess::run(
            {"/usr/bin/env", "compare", "-metric", "AE", "-fuzz", "2%", one, other, "null:"});
        return child.exitCode > 1 ? 1 : std::stod(child.errors) / (750.0 * 1334);
    }
    /// Something beneath the glass that does not look alike everywhere.
    void paintBackground() {
        const std::string file = compositor().runtimeDirectory() / "background.png";
        ASSERT_EQ(support::ChildProcess::run(
                      {"/usr/bin/env", "convert", "-size", "750x1334", "gradient:#FF0000-#0000FF", file})
                      .exitCode,
                  0);
        ASSERT_TRUE(compositor().command("output HEADLESS-1 bg " + file + " fill"));
        ASSERT_TRUE(eventually([&] { return pixel(20, 100) != "#336699"; }));
    }
    /// A picture of a screen on which nothing moves any more.
    bool takeRestingPicture(const std::string& file) {
        const std::string later = root() + "/later.png";
        int alike = 0;
        return eventually([&] {
            alike = compositor().takePicture(later) && difference(file, later) == 0 ? alike + 1 : 0;
            std::filesystem::rename(later, file);
            return alike == 3;
        });
    }
    std::size_t timesSaid(const std::string& words) const { return count(log(), words); }
};

TEST_F(SessionFallback, WithEverythingItSaysNothing) {
    startWithout({});
    for (const char* missing :
         {"no viewporter", "no screen copies", "no foreign-toplevel", "no xdg-output", "no output power"})
        EXPECT_EQ(timesSaid(missing), 0u) << log();
}

TEST_F(SessionFallback, WithoutAViewporterThePanelsLookTheSame) {
    startWithout({});
    paintBackground();
    const std::string scaled = root() + "/scaled.png", plain = root() + "/plain.png";
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    ASSERT_TRUE(takeRestingPicture(scaled));
    stopHost();
    hideFromHost({"wp_viewporter"});
    startHost({"--no-supervisor"}, HostLog::Words);
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    ASSERT_TRUE(takeRestingPicture(plain));
    EXPECT_LT(difference(scaled, plain), 0.005);
    EXPECT_EQ(timesSaid("no viewporter"), 1u) << log();
}

TEST_F(SessionFallback, WithoutAViewporterThePanelsComeAndGo) {
    startWithout({"wp_viewporter"});
    expectPanelsComeAndGo();
    EXPECT_EQ(timesSaid("no viewporter"), 1u) << log();
}

TEST_F(SessionFallback, WithoutAViewporterEverythingIsDrawnAtWholeScales) {
    startWithout({"wp_viewporter"}, {750, 1334, "1.25", "normal"});
    EXPECT_EQ(state()["screen"]["scale"], 2);
    EXPECT_EQ(state()["screen"]["width"], 600);
    ASSERT_TRUE(request("Show", "right"));
    ASSERT_TRUE(waitForRest("right"));
    EXPECT_TRUE(waitForDimming(true));
    ASSERT_TRUE(request("Dismiss"));
    ASSERT_TRUE(waitForRest(""));
    EXPECT_TRUE(waitForDimming(false));
}

TEST_F(SessionFallback, WithoutSinglePixelBuffersColoursAreKeptInMemory) {
    startWithout({"wp_single_pixel_buffer_manager_v1"});
    expectPanelsComeAndGo();
    EXPECT_EQ(timesSaid("no single-pixel buffers"), 1u) << log();
}

TEST_F(SessionFallback, WithoutScreenCopiesGlassIsPlain) {
    startWithout({"zwlr_screencopy_manager_v1"});
    expectPanelsComeAndGo();
    EXPECT_EQ(timesSaid("no screen copies"), 1u) << log();
}

TEST_F(SessionFallback, WithoutForeignToplevelsNoApplicationIsInFront) {
    startWithout({"zwlr_foreign_toplevel_manager_v1"});
    client().openWindow("org.example.Editor");
    ASSERT_TRUE(request("Show", "right"));
    EXPECT_TRUE(waitForRest("right"));
    EXPECT_EQ(state()["frontmost"], "");
    tap(20, 300);
    EXPECT_TRUE(waitForRest(""));
    EXPECT_EQ(timesSaid("no foreign-toplevel"), 1u) << log();
}

TEST_F(SessionFallback, WithoutOutputPowerTheDisplayCountsAsOn) {
    startWithout({"zwlr_output_power_manager_v1"});
    EXPECT_EQ(state()["display"], true);
    expectPanelsComeAndGo();
    EXPECT_EQ(timesSaid("no output power"), 1u) << log();
}

TEST_F(SessionFallback, WithoutXdgOutputTheScreenIsMeasured) {
    startWithout({"zxdg_output_manager_v1"});
    EXPECT_EQ(state()["screen"]["width"], screenWidth);
    EXPECT_EQ(state()["screen"]["scale"], 2);
    expectPanelsComeAndGo();
    EXPECT_EQ(timesSaid("no xdg-output"), 1u) << log();
}

TEST_F(SessionFallback, WithoutXdgOutputScalesBetweenWholeNumbersAreMeasured) {
    startWithout({"zxdg_output_manager_v1"}, {750, 1334, "1.25", "normal"});
    EXPECT_EQ(state()["screen"]["width"], 600);
    EXPECT_EQ(state()["screen"]["scale"], 1.25);
    ASSERT_TRUE(compositor().command("output HEADLESS-1 scale 1.5"));
    EXPECT_TRUE(eventually([&] { return state()["screen"]["width"] == 500; })) << state()["screen"];
    ASSERT_TRUE(compositor().command("output HEADLESS-1 transform 90"));
    EXPECT_TRUE(eventually([&] { return state()["screen"]["height"] == 500; })) << state()["screen"];
    EXPECT_EQ(state()["screen"]["scale"], 1.5);
    ASSERT_TRUE(request("Show", "right"));
    EXPECT_TRUE(waitForShown("right"));
    EXPECT_TRUE(eventually([&] { return pixel(20, 300) == "#14293D" && pixel(1300, 300) != "#336699"; }));
}

TEST_F(SessionFallback, WithoutAnythingThatMayBeMissingThePanelsComeAndGo) {
    startWithout(everythingThatMayBeMissing);
    expectPanelsComeAndGo();
    for (const char* missing : {"no viewporter", "no single-pixel buffers", "no screen copies",
                                "no foreign-toplevel", "no xdg-output", "no output power"})
        EXPECT_EQ(timesSaid(missing), 1u) << missing << "\n" << log();
}

TEST_F(SessionFallback, WithoutASeatThePanelsAreStillCalled) {
    startWithout({"wl_seat"});
    ASSERT_TRUE(request("Show", "right"));
    EXPECT_TRUE(waitForRest("right"));
    EXPECT_TRUE(waitForDimming(true));
    ASSERT_TRUE(request("Dismiss"));
    EXPECT_TRUE(waitForRest(""));
    EXPECT_TRUE(waitForDimming(false));
}

TEST_F(SessionFallback, SaysNothingAgainWhenTheCompositorReturns) {
    startWithout({"wp_viewporter", "zwlr_screencopy_manager_v1"});
    endClient();
    compositor().stop();
    ASSERT_TRUE(eventually([&] { return state()["display"] == false; }));
    ASSERT_TRUE(compositor().start());
    ASSERT_TRUE(eventually([&] { return timesSaid("the compositor is back") == 1; })) << log();
    EXPECT_EQ(timesSaid("no viewporter"), 1u) << log();
    EXPECT_EQ(timesSaid("no screen copies"), 1u) << log();
    EXPECT_TRUE(eventually([&] { return request("Show", "right"); }));
    EXPECT_TRUE(waitForRest("right"));
}

TEST_F(SessionFallback, WaitsWhenACompositorWithoutALayerShellReturns) {
    startWithout({});
    endClient();
    compositor().stop();
    ASSERT_TRUE(eventually([&] { return state()["display"] == false; }));
    door().hide({"zwlr_layer_shell_v1"});
    ASSERT_TRUE(compositor().start());
    EXPECT_TRUE(eventually([&] { return timesSaid("no layer shell") == 1; })) << log();
    EXPECT_FALSE(request("Show", "right"));
    door().hide({});
    EXPECT_TRUE(eventually([&] { return timesSaid("the compositor is back") == 1; })) << log();
    EXPECT_EQ(timesSaid("no layer shell"), 1u) << log();
    EXPECT_TRUE(eventually([&] { return request("Show", "right"); }));
    EXPECT_TRUE(waitForDimming(true));
}

/// Where the panels cannot be shown at all.
class SessionRefusal : public SessionTest {
protected:
    support::ChildProcess runWithout(const std::set<std::string>& interfaces) {
        startCompositor();
        const CompositorDoor door(compositor().socket(), interfaces);
        auto environment = compositor().environment();
        environment.push_back(door.environment());
        return support::ChildProcess::run({VELA_BINARY_DIR "/bin/vela-session", "--root", root()},
                                          environment);
    }
};

TEST_F(SessionRefusal, ACompositorWithoutALayerShellIsOfNoUse) {
    const auto child = runWithout({"zwlr_layer_shell_v1"});
    EXPECT_EQ(child.exitCode, 2);
    EXPECT_EQ(count(child.errors, "no layer shell (zwlr_layer_shell_v1)"), 1u) << child.errors;
}

TEST_F(SessionRefusal, ACompositorWithoutSubsurfacesIsOfNoUse) {
    const auto child = runWithout({"wl_subcompositor"});
    EXPECT_EQ(child.exitCode, 2);
    EXPECT_EQ(count(child.errors, "lacks wl_compositor, wl_subcompositor or wl_shm"), 1u) << child.errors;
}

} // namespace tests
