// The pace of a held key's strokes.
#include "hosts/session/wayland/KeyRepeat.h"
#include "platform/foundation/VirtualRunLoop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace session {

using testing::ElementsAre;
using testing::IsEmpty;

class KeyRepeatTest : public testing::Test {
protected:
    KeyRepeatTest() { foundation::RunLoop::setMain(&loop_); }
    ~KeyRepeatTest() override { foundation::RunLoop::setMain(nullptr); }

    foundation::VirtualRunLoop loop_;
    std::vector<std::uint32_t> struck_;
    KeyRepeat repeat_{[this](std::uint32_t key) { struck_.push_back(key); }};
};

TEST_F(KeyRepeatTest, StrikesAfterTheDelayAndThenAtTheRate) {
    repeat_.setPace(10, 0.5);
    repeat_.start(30);
    loop_.advance(0.49);
    EXPECT_THAT(struck_, IsEmpty());
    loop_.advance(0.02);
    EXPECT_EQ(struck_.size(), 1u);
    loop_.advance(0.1);
    EXPECT_EQ(struck_.size(), 2u);
    loop_.advance(1);
    EXPECT_EQ(struck_.size(), 12u);
}

TEST_F(KeyRepeatTest, NothingRepeatsBeforeThePaceIsKnown) {
    repeat_.start(30);
    loop_.advance(5);
    EXPECT_THAT(struck_, IsEmpty());
}

TEST_F(KeyRepeatTest, ARateOfNothingStopsIt) {
    repeat_.setPace(10, 0.5);
    repeat_.start(30);
    repeat_.setPace(0, 0.5);
    loop_.advance(5);
    EXPECT_THAT(struck_, IsEmpty());
}

TEST_F(KeyRepeatTest, TheLastKeyIsTheOneThatRepeats) {
    repeat_.setPace(10, 0.5);
    repeat_.start(30);
    loop_.advance(0.3);
    repeat_.start(48);
    loop_.advance(0.65);
    EXPECT_THAT(struck_, ElementsAre(48, 48));
    repeat_.release(30);
    loop_.advance(0.1);
    EXPECT_EQ(struck_.size(), 3u);
    repeat_.release(48);
    loop_.advance(5);
    EXPECT_EQ(struck_.size(), 3u);
}

TEST_F(KeyRepeatTest, NonsenseFromTheCompositorDoesNotKeepTheLoopBusy) {
    repeat_.setPace(2e9, -1);
    repeat_.start(30);
    loop_.advance(1);
    EXPECT_LE(struck_.size(), 101u);
    repeat_.setPace(-5, 0.5);
    struck_.clear();
    loop_.advance(1);
    EXPECT_THAT(struck_, IsEmpty());
}

TEST_F(KeyRepeatTest, AStrokeMayStopIt) {
    int count = 0;
    KeyRepeat stopping([&](std::uint32_t) {
        ++count;
        stopping.stop();
    });
    stopping.setPace(10, 0.5);
    stopping.start(30);
    loop_.advance(5);
    EXPECT_EQ(count, 1);
}

} // namespace session
