#include "platform/toolkit/animation/CADisplayLink.h"

#include "tests/support/ToolkitTest.h"

namespace toolkit {

/// Writes its ticks down, and does what a test asks it to in one.
class Ticked : public runtime::Object {
    RUNTIME_CLASS()
public:
    void tick() { ++ticks; }
    void tickWith(CADisplayLink& link) {
        ++ticks;
        timestamp = link.timestamp();
        if (whenTicked)
            whenTicked(link);
    }
    int ticks = 0;
    double timestamp = -1;
    std::function<void(CADisplayLink&)> whenTicked;
};

runtime::Class& Ticked::staticClass() {
    static auto& cls = runtime::ClassBuilder<Ticked>("Ticked", &runtime::Object::staticClass())
                           .method("tick", &Ticked::tick)
                           .action("tickWith:", &Ticked::tickWith)
                           .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(Ticked)

namespace {

struct DisplayLinkTest : support::ToolkitTest {
    std::shared_ptr<Ticked> target = std::make_shared<Ticked>();
    std::shared_ptr<CADisplayLink> link(const char* selector) {
        auto made = CADisplayLink::displayLinkWithTarget(*target, selector);
        made->addToRunLoop(loop, RunLoopMode::Common);
        return made;
    }
};

TEST_F(DisplayLinkTest, TicksSixtyTimesASecond) {
    const auto ticking = link("tick");
    EXPECT_EQ(target->ticks, 0);
    loop.advance(1);
    EXPECT_EQ(target->ticks, 60);
}

TEST_F(DisplayLinkTest, DoesNothingBeforeItIsAdded) {
    const auto idle = CADisplayLink::displayLinkWithTarget(*target, "tick");
    loop.advance(1);
    EXPECT_EQ(target->ticks, 0);
    EXPECT_FALSE(idle->isRunning());
}

TEST_F(DisplayLinkTest, GivesItselfToAnActionThatTakesIt) {
    const auto ticking = link("tickWith:");
    loop.advance(0.5);
    EXPECT_EQ(target->timestamp, loop.now());
}

TEST_F(DisplayLinkTest, EndsWhenItIsInvalidatedAlsoInATick) {
    auto ticking = link("tickWith:");
    target->whenTicked = [&](CADisplayLink& self) {
        self.invalidate();
        ticking = nullptr;
    };
    loop.advance(1);
    EXPECT_EQ(target->ticks, 1);
}

TEST_F(DisplayLinkTest, EndsWithItsKeeperAndLeavesAGoneTargetAlone) {
    auto ticking = link("tick");
    ticking = nullptr;
    loop.advance(1);
    EXPECT_EQ(target->ticks, 0);
    ticking = link("tick");
    target = nullptr;
    loop.advance(1);
}

} // namespace
} // namespace toolkit
