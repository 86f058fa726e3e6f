#include "vela/nowplaying/Autoscroll.h"

#include "tests/vela/nowplaying/AllocationCounter.h"
#include "tests/vela/nowplaying/NowPlayingTest.h"
#include <cmath>
#include <limits>

using namespace toolkit;

namespace {

std::string lines(int count) {
    std::string text;
    for (int line = 0; line < count; ++line)
        text += "line " + std::to_string(line) + "\n";
    return text;
}

struct Autoscroll : tests::NowPlayingTest {
    Autoscroll() {
        lyric().setText(lines(300), 3);
        wait(1);
        state.songDuration = 200;
        state.elapsed = 61.7f;
    }
    void step() { vela::nowplaying::scrollLyric(*panel().mediaController()); }
    double offset() { return lyric().contentOffset().y; }
    float target() {
        const float part = state.elapsed / state.songDuration;
        return static_cast<float>(part * (lyric().contentSize().height - lyric().frame().height));
    }
};

TEST_F(Autoscroll, ClosesAHundredthOfTheWayInAFrame) {
    ASSERT_GT(target(), 1000);
    float now = 0;
    for (int frame = 0; frame < 100; ++frame) {
        now = static_cast<float>(now + (target() - offset()) / 100);
        step();
        ASSERT_EQ(state.now, now);
        ASSERT_EQ(lyric().contentOffset(), (Point{0, now}));
        loop.turn();
    }
    EXPECT_NEAR(offset(), target() * (1 - std::pow(0.99, 100)), 0.1);
}

TEST_F(Autoscroll, ReckonsInSinglePrecision) {
    const double way = lyric().contentSize().height - lyric().frame().height;
    int differing = 0;
    for (float elapsed = 1; elapsed < 200; elapsed += 0.7f) {
        state.elapsed = elapsed;
        state.now = 0;
        lyric().setContentOffset({0, 0});
        step();
        ASSERT_EQ(state.now, static_cast<float>(static_cast<double>(target()) / 100)) << elapsed;
        differing +=
            state.now != static_cast<float>(static_cast<double>(elapsed) / state.songDuration * way / 100);
    }
    EXPECT_GT(differing, 0) << "in double precision it would be another";
}

TEST_F(Autoscroll, IsNoAnimation) {
    step();
    EXPECT_FALSE(lyric().layer()->hasAnimations());
}

TEST_F(Autoscroll, FollowsTheSongWhileItPlays) {
    controller->playbackStateDidChange(true);
    wait(1);
    EXPECT_NEAR(offset(), target() * (1 - std::pow(0.99, 60)), 0.1);
    controller->playbackStateDidChange(false);
    const double stopped = offset();
    wait(1);
    EXPECT_EQ(offset(), stopped);
}

TEST_F(Autoscroll, AShortLyricNeverMoves) {
    lyric().setText("one\ntwo\nthree", 3);
    wait(1);
    const Point centred = lyric().contentOffset();
    ASSERT_LT(centred.y, 0);
    for (int frame = 0; frame < 100; ++frame)
        step();
    EXPECT_EQ(lyric().contentOffset(), centred);
    EXPECT_EQ(state.now, 0);
}

TEST_F(Autoscroll, ASongWithoutADurationNeverMovesTheLyric) {
    for (const float duration : {0.0f, -5.0f, std::numeric_limits<float>::quiet_NaN()}) {
        state.songDuration = duration;
        step();
        EXPECT_EQ(offset(), 0) << duration;
    }
}

TEST_F(Autoscroll, ADurationNextToNothingMovesNothing) {
    state.songDuration = std::numeric_limits<float>::denorm_min();
    step();
    EXPECT_EQ(offset(), 0);
    EXPECT_EQ(state.now, 0);
    state.songDuration = 200;
    step();
    EXPECT_GT(offset(), 0);
}

TEST_F(Autoscroll, TheFirstMomentMovesNothing) {
    state.elapsed = 0;
    state.now = 50;
    step();
    EXPECT_EQ(offset(), 0);
    EXPECT_EQ(state.now, 50) << "not even the note of where the text stands";
}

TEST_F(Autoscroll, TheUserTakesOverAndItGoesOnFromThere) {
    for (int frame = 0; frame < 30; ++frame)
        step();
    lyric().setCanAutoScroll(false);
    lyric().setContentOffset({0, 1234.5});
    step();
    EXPECT_EQ(offset(), 1234.5);
    EXPECT_EQ(state.now, 1234.5f);
    lyric().setCanAutoScroll(true);
    step();
    EXPECT_EQ(offset(), static_cast<double>(static_cast<float>(1234.5f + (target() - 1234.5) / 100)));
}

TEST_F(Autoscroll, AFingerHoldsItUp) {
    controller->playbackStateDidChange(true);
    wait(0.5);
    touchDown(370, 300);
    touchMove(100, 300, 0.2);
    touchUp();
    wait(1);
    ASSERT_FALSE(panel().isHidden());
    const Point middle = lyric().convertPointTo({140, lyric().bounds().y + 120}, nullptr);
    touchDown(middle.x, middle.y);
    touchMove(middle.x, middle.y + 60, 0.2);
    ASSERT_TRUE(lyric().isDragging());
    const double held = offset();
    wait(1);
    EXPECT_EQ(offset(), held);
    EXPECT_EQ(state.now, static_cast<float>(held));
    touchUp();
    wait(3);
    EXPECT_GT(offset(), held);
}

TEST_F(Autoscroll, APlaceholderStandsStill) {
    lyric().setText("", 1);
    wait(1);
    lyric().setFrame({0, 0, 300, 20}); // lower than the word, which would otherwise have no way to go
    lyric().setContentOffset({0, 7.25});
    ASSERT_GT(target(), 0);
    for (int frame = 0; frame < 50; ++frame)
        step();
    EXPECT_EQ(offset(), 7.25);
    EXPECT_EQ(state.now, 7.25f);
}

TEST_F(Autoscroll, TheSettingIsSeenInTheNextFrame) {
    controller->playbackStateDidChange(true);
    wait(0.5);
    preference(vela::keys::autoscroll, false);
    const double before = offset();
    wait(0.5);
    EXPECT_EQ(offset(), before);
    preference(vela::keys::autoscroll, true);
    wait(1.0 / 60);
    EXPECT_GT(offset(), before);
}

TEST_F(Autoscroll, AllocatesNothing) {
    for (int frame = 0; frame < 5; ++frame)
        step();
    loop.turn();
    const std::size_t before = tests::allocationCount();
    // Over more than the height of the view, so that unseen text comes into sight on the way.
    for (int frame = 0; frame < 200; ++frame)
        step();
    EXPECT_EQ(tests::allocationCount(), before);
    EXPECT_GT(offset(), 500);
    const auto made = std::make_unique<int>();
    EXPECT_EQ(tests::allocationCount(), before + 1) << "they are counted";
}

} // namespace
