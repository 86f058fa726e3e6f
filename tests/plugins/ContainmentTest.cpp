// Plug-ins made to fail, one way after the other.
#include "platform/plugins/PluginTimer.h"
#include "platform/plugins/PluginView.h"
#include "platform/toolkit/rendering/RecordingCanvas.h"
#include "tests/plugins/PluginTest.h"
#include "tests/support/Finger.h"

#include <csignal>

#include <unistd.h>

namespace plugins {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class ContainmentTest : public PluginTest {
protected:
    ContainmentTest() { install("Faulty"); }

    /// What the plug-in does wrong, and where.
    static void choose(const std::string& fault, const std::string& place) {
        PluginStorage storage("org.example.Faulty");
        ASSERT_TRUE(storage.write("fault", fault));
        ASSERT_TRUE(storage.write("place", place));
    }
    /// Brings the plug-in to each of its places; answers whether it could be made.
    bool walk() {
        const auto view = show("Faulty");
        if (!view)
            return false;
        send(*view, "velaInvoked");
        send(*view, "velaDismissed");
        toolkit::RecordingCanvas canvas;
        if (view->drawsContent())
            view->drawContent(canvas, view->bounds());
        EXPECT_EQ(canvas.count("save"), canvas.count("restore"));
        support::Finger finger(loop);
        finger.tap({20, 20});
        finger.tap({20, 200});
        loop.advance(1.2);
        closeWindow();
        return true;
    }
    static std::vector<std::string> withoutPlaces(std::vector<std::string> lines) {
        std::erase_if(lines, [](const std::string& line) { return line.find(": at ") != std::string::npos; });
        return lines;
    }
    static std::string thrownIn(const std::string& place) {
        return "Plug-in org.example.Faulty threw in " + place + " and is not called again: made to fail";
    }
    /// In a child process: walks with a crash action that says that it was reached.
    void crash() {
        setCrashAction([] { _exit(42); });
        walk();
        _exit(0);
    }
    void expectCrashIsNoted(const std::string& fault, const std::string& place) {
        choose(fault, place);
        EXPECT_EXIT(crash(), testing::ExitedWithCode(42), "") << fault << " in " << place;
        EXPECT_EQ(takeNoteOfCrash(), "org.example.Faulty") << fault << " in " << place;
        EXPECT_TRUE(isDisabled("org.example.Faulty"));
        EXPECT_TRUE(enable("org.example.Faulty"));
    }
};

TEST_F(ContainmentTest, ASoundPlugInIsWalkedThroughAllItsPlaces) {
    choose("none", "nowhere");
    ASSERT_TRUE(walk());
    const auto log = takeLog();
    for (const char* place :
         {"creation", "layout", "draw", "method", "animation", "button", "touch", "timer", "destruction"})
        EXPECT_THAT(log, Contains(std::string("org.example.Faulty: at ") + place));
    EXPECT_THAT(withoutPlaces(log), IsEmpty());
}

TEST_F(ContainmentTest, AnExceptionIsCaughtAndLoggedOnceWhereverItComesFrom) {
    const std::map<std::string, std::string> places{{"layout", "layout"},
                                                    {"draw", "draw"},
                                                    {"method", "velaInvoked"},
                                                    {"animation", "velaDismissed"},
                                                    {"button", "a button's handler"},
                                                    {"touch", "touchBegan"},
                                                    {"timer", "a timer's handler"}};
    for (const auto& [place, name] : places) {
        choose("throw", place);
        ASSERT_TRUE(walk());
        const auto log = takeLog();
        EXPECT_THAT(withoutPlaces(log), ElementsAre(thrownIn(name)));
        EXPECT_THAT(log, Contains("org.example.Faulty: at " + place).Times(1));
        EXPECT_THAT(log, Not(Contains("org.example.Faulty: at destruction")));
        EXPECT_EQ(TimerState::running(), 0);
    }
}

TEST_F(ContainmentTest, AnExceptionInTheCreationMeansNoView) {
    choose("throw", "creation");
    EXPECT_FALSE(walk());
    EXPECT_THAT(withoutPlaces(takeLog()), ElementsAre(thrownIn("its view's creation")));
    EXPECT_EQ(TimerState::running(), 0);
}

TEST_F(ContainmentTest, AnExceptionOfAnyKindIsCaught) {
    choose("throw a number", "method");
    ASSERT_TRUE(walk());
    EXPECT_THAT(withoutPlaces(takeLog()), ElementsAre(HasSubstr("threw in velaInvoked")));
}

TEST_F(ContainmentTest, TheViewIsNotCalledAgainButAnotherOneIs) {
    choose("throw", "method");
    const auto view = show("Faulty");
    send(*view, "velaInvoked");
    takeLog();
    send(*view, "velaInvoked");
    send(*view, "velaDismissed");
    loop.advance(3);
    EXPECT_THAT(takeLog(), IsEmpty());
    EXPECT_FALSE(view->drawsContent());

    choose("none", "nowhere");
    const auto another = Bundle::open(pathOf("Faulty"))->makePrincipalView();
    ASSERT_TRUE(another);
    takeLog();
    send(*another, "velaInvoked");
    EXPECT_THAT(takeLog(), ElementsAre("org.example.Faulty: at method"));
}

TEST_F(ContainmentTest, TheViewSaysThatItHasStopped) {
    choose("throw", "method");
    const auto view = show("Faulty");
    send(*view, "velaInvoked");
    loop.turn();
    std::vector<bool> hidden;
    for (const auto& subview : view->subviews())
        hidden.push_back(subview->isHidden());
    EXPECT_THAT(hidden, ElementsAre(true, false));
    EXPECT_EQ(view->subviews().back()->frame(), toolkit::Rect(0, 0, 300, 400));
    EXPECT_TRUE(dynamic_cast<PluginView&>(*view).hasEnded());
}

TEST_F(ContainmentTest, ACallThatLastsTooLongIsNamedInTheLog) {
    choose("hang", "method");
    const auto view = show("Faulty");
    takeLog();
    send(*view, "velaInvoked");
    EXPECT_THAT(withoutPlaces(takeLog()),
                ElementsAre("Plug-in org.example.Faulty has been in velaInvoked for more than 2 s"));
    choose("none", "nowhere");
    send(*view, "velaInvoked"); // it may go on
    EXPECT_THAT(takeLog(), ElementsAre("org.example.Faulty: at method"));
}

TEST_F(ContainmentTest, ACrashOfAnyKindLeavesANote) {
    for (const char* fault : {"segv", "abort", "fpe", "trap", "stack", "noexcept", "exit"})
        expectCrashIsNoted(fault, "method");
}

TEST_F(ContainmentTest, ACrashAnywhereInAPlugInLeavesANote) {
    for (const char* place :
         {"creation", "layout", "draw", "animation", "button", "touch", "timer", "destruction"})
        expectCrashIsNoted("segv", place);
}

TEST_F(ContainmentTest, AnExceptionFromADestructorCountsAsACrash) {
    expectCrashIsNoted("throw", "destruction");
}

TEST_F(ContainmentTest, AnExceptionWhileLoadingCountsAsACrash) {
    install("ThrowingInitialiser");
    const auto load = [this] {
        setCrashAction([] { _exit(42); });
        Bundle::open(pathOf("ThrowingInitialiser"));
        _exit(0);
    };
    EXPECT_EXIT(load(), testing::ExitedWithCode(42), "");
    EXPECT_EQ(takeNoteOfCrash(), "org.example.ThrowingInitialiser");
    EXPECT_FALSE(Bundle::open(pathOf("ThrowingInitialiser"))); // and so it is not tried again
}

TEST_F(ContainmentTest, ACrashOutsideOfPlugInsIsNobodysFault) {
    choose("none", "nowhere");
    const auto crashOurselves = [this] {
        setCrashAction([] { _exit(42); });
        walk();
        std::raise(SIGSEGV);
        _exit(0);
    };
    const auto endedOtherwise = [](int status) {
        return WIFSIGNALED(status) ||
               (WIFEXITED(status) && WEXITSTATUS(status) != 42 && WEXITSTATUS(status) != 0);
    };
    EXPECT_EXIT(crashOurselves(), endedOtherwise, "");
    EXPECT_EQ(takeNoteOfCrash(), std::nullopt);
}

TEST_F(ContainmentTest, WithoutAHostThatStartsAgainTheSignalHasItsUsualEffect) {
    choose("segv", "method");
    const auto crashPlainly = [this] {
        setCrashAction(nullptr);
        walk();
        _exit(0);
    };
    const auto endedBadly = [](int status) {
        return WIFSIGNALED(status) || (WIFEXITED(status) && WEXITSTATUS(status) != 0);
    };
    EXPECT_EXIT(crashPlainly(), endedBadly, "");
    EXPECT_EQ(takeNoteOfCrash(), "org.example.Faulty");
}

} // namespace
} // namespace plugins
