#include "platform/foundation/NotificationCenter.h"

#include <gtest/gtest.h>

namespace foundation {
namespace {

TEST(NotificationCenter, DeliversInOrderOfRegistration) {
    NotificationCenter center;
    std::string heard;
    const Handle first = center.addObserver("a", [&](const Notification&) { heard += "1"; });
    const Handle second = center.addObserverForAll([&](const Notification& n) { heard += "2" + n.name; });
    const Handle third = center.addObserver("a", [&](const Notification&) { heard += "3"; });
    const Handle other = center.addObserver("b", [&](const Notification&) { heard += "b"; });
    center.post("a");
    EXPECT_EQ(heard, "12a3");
}

TEST(NotificationCenter, HandsTheObjectToEveryObserver) {
    NotificationCenter center;
    PropertyList heard;
    const Handle observer = center.addObserver("a", [&](const Notification& n) { heard = n.object; });
    center.post("a", PropertyList::Dictionary{{"name", "invoked"}});
    EXPECT_TRUE(heard["name"].equals("invoked"));
}

TEST(NotificationCenter, TellsNoOneWhoseHandleIsGone) {
    NotificationCenter center;
    int heard = 0;
    {
        const Handle observer = center.addObserver("a", [&](const Notification&) { ++heard; });
        center.post("a");
    }
    center.post("a");
    EXPECT_EQ(heard, 1);
}

TEST(NotificationCenter, LetsObserversGoAndComeDuringDelivery) {
    NotificationCenter center;
    std::string heard;
    Handle itself;
    Handle later;
    Handle added;
    itself = center.addObserver("a", [&](const Notification&) {
        heard += "i";
        itself.reset();
        later.reset();
        added = center.addObserver("a", [&](const Notification&) { heard += "n"; });
        heard += "!"; // what the observer holds is still there
    });
    later = center.addObserver("a", [&](const Notification&) { heard += "l"; });
    center.post("a");
    EXPECT_EQ(heard, "i!");
    center.post("a");
    EXPECT_EQ(heard, "i!n");
}

TEST(NotificationCenter, DeliversPostsFromObserversAtOnce) {
    NotificationCenter center;
    std::string heard;
    const Handle first = center.addObserver("a", [&](const Notification&) {
        center.post("b");
        heard += "a";
    });
    const Handle second = center.addObserver("b", [&](const Notification&) { heard += "b"; });
    center.post("a");
    EXPECT_EQ(heard, "ba");
}

TEST(NotificationCenter, MayGoBeforeItsHandles) {
    Handle observer;
    {
        NotificationCenter center;
        observer = center.addObserver("a", [](const Notification&) {});
    }
    observer.reset();
    EXPECT_FALSE(observer);
}

TEST(Handle, LetsGoOnceAndWhenItIsReplaced) {
    int released = 0;
    Handle handle([&] { ++released; });
    Handle moved = std::move(handle);
    handle.reset();
    EXPECT_EQ(released, 0);
    moved = Handle([&] { released += 10; });
    EXPECT_EQ(released, 1);
    moved.reset();
    moved.reset();
    EXPECT_EQ(released, 11);
}

} // namespace
} // namespace foundation
