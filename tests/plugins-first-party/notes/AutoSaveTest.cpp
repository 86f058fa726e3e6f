#include "plugins/notes/AutoSave.h"

#include "platform/plugins/PluginTimer.h"
#include "tests/support/ToolkitTest.h"

namespace notesplugin {

class AutoSaveTest : public support::ToolkitTest {
protected:
    AutoSave make() {
        return AutoSave(
            [this](double seconds, std::function<void()> handler) {
                auto state = std::make_shared<plugins::TimerState>(caller_, std::move(handler));
                state->start(seconds, false);
                return std::make_unique<plugins::PluginTimer>(state);
            },
            [this] {
                ++attempts_;
                return works_;
            });
    }

    static constexpr std::size_t little = 100;
    static constexpr std::size_t much = AutoSave::atOnce + 1;

    std::shared_ptr<plugins::Caller> caller_ = std::make_shared<plugins::Caller>();
    int attempts_ = 0;
    bool works_ = true;
};

TEST_F(AutoSaveTest, SavesALittleAtOnce) {
    AutoSave save = make();
    save.changed(little);
    EXPECT_EQ(attempts_, 1);
    save.changed(little);
    EXPECT_EQ(attempts_, 2);
    EXPECT_FALSE(save.isUnsaved());
    EXPECT_EQ(plugins::TimerState::running(), 0);
}

TEST_F(AutoSaveTest, SavesMuchSoonHoweverOftenItChanges) {
    AutoSave save = make();
    for (int i = 0; i < 10; ++i) {
        save.changed(much);
        loop.advance(0.1);
    }
    EXPECT_EQ(attempts_, 2);
    EXPECT_TRUE(save.isUnsaved());
    loop.advance(0.4);
    EXPECT_FALSE(save.isUnsaved());
    EXPECT_EQ(plugins::TimerState::running(), 0);
}

TEST_F(AutoSaveTest, TriesAgainUntilItWorks) {
    works_ = false;
    AutoSave save = make();
    save.changed(little);
    EXPECT_TRUE(save.hasFailed());
    loop.advance(10);
    EXPECT_EQ(attempts_, 4); // at once, and after 3, 6 and 9 seconds
    works_ = true;
    loop.advance(3);
    EXPECT_FALSE(save.hasFailed());
    EXPECT_FALSE(save.isUnsaved());
    EXPECT_EQ(plugins::TimerState::running(), 0);
}

TEST_F(AutoSaveTest, LeavesNoTimerWhenItIsPaused) {
    works_ = false;
    AutoSave save = make();
    save.changed(much);
    EXPECT_FALSE(save.flush());
    EXPECT_EQ(plugins::TimerState::running(), 0);
    loop.advance(60);
    EXPECT_EQ(attempts_, 1);
    works_ = true;
    save.resume();
    loop.advance(1);
    EXPECT_EQ(attempts_, 2);
    EXPECT_FALSE(save.isUnsaved());
    save.resume();
    EXPECT_EQ(plugins::TimerState::running(), 0);
}

TEST_F(AutoSaveTest, ForgetsWhatIsDiscarded) {
    AutoSave save = make();
    save.changed(much);
    save.discard();
    loop.advance(5);
    EXPECT_EQ(attempts_, 0);
    EXPECT_TRUE(save.flush());
}

} // namespace notesplugin
