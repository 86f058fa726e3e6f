#include "platform/runtime/Hooking.h"
#include "platform/runtime/Message.h"

#include <gtest/gtest.h>

namespace {

using namespace runtime;

class Lamp : public Object {
    RUNTIME_CLASS()
public:
    int brightness = 3;
    std::shared_ptr<Object> bulb = std::make_shared<Object>();
    int shine(int factor) { return brightness * factor; }
    bool isLit() const { return brightness > 0; }
    void pressed(Lamp& sender) { sender.brightness += 1; }
};

Class& Lamp::staticClass() {
    static Class& cls = ClassBuilder<Lamp>("Lamp", &Object::staticClass())
                            .method("shine:", &Lamp::shine)
                            .method("isLit", &Lamp::isLit)
                            .action("pressed:", &Lamp::pressed)
                            .instanceVariable("_bulb", &Lamp::bulb)
                            .build();
    return cls;
}

class DeskLamp : public Lamp {
    RUNTIME_CLASS()
};

Class& DeskLamp::staticClass() {
    static Class& cls = ClassBuilder<DeskLamp>("DeskLamp", &Lamp::staticClass()).build();
    return cls;
}

/// Classes as they are at first, whatever a test hooked before.
struct Messaging : testing::Test {
    Messaging() {
        DeskLamp::staticClass().removeOwnMethod("shine:");
        DeskLamp::staticClass().removeOwnMethod("dim");
        Lamp::staticClass().removeOwnMethod("dim");
        savedShine = Lamp::staticClass().find("shine:");
    }
    ~Messaging() override { Lamp::staticClass().setMethod("shine:", savedShine); }
    Implementation savedShine;
    const Message<int(int)> shine{"shine:"};
};

TEST_F(Messaging, SelectorsOfOneNameAreEqual) {
    EXPECT_TRUE(Selector("a:b:") == Selector(std::string("a:b:")));
    EXPECT_FALSE(Selector("a:") == Selector("a"));
    EXPECT_EQ(Selector("a:b:").argumentCount(), 2u);
    EXPECT_EQ(Selector("plain").argumentCount(), 0u);
}

TEST_F(Messaging, AMessageReachesTheMethod) {
    Lamp lamp;
    EXPECT_EQ(shine(lamp, 4), 12);
}

TEST_F(Messaging, ASubclassInheritsMethods) {
    DeskLamp lamp;
    EXPECT_EQ(shine(lamp, 2), 6);
    EXPECT_EQ(lamp.isa().name(), "DeskLamp");
    EXPECT_TRUE(lamp.isa().isSubclassOf(Lamp::staticClass()));
    EXPECT_FALSE(Lamp::staticClass().isSubclassOf(DeskLamp::staticClass()));
}

TEST_F(Messaging, AMessageToNullAnswersZero) {
    Lamp* none = nullptr;
    EXPECT_EQ(shine(none, 4), 0);
    EXPECT_FALSE(respondsTo(none, "shine:"));
}

TEST_F(Messaging, AnUnknownSelectorThrowsAndCanBeAskedForFirst) {
    Lamp lamp;
    EXPECT_FALSE(respondsTo(lamp, "explode"));
    EXPECT_THROW(Message<void()>("explode")(lamp), UnrecognizedSelector);
}

TEST_F(Messaging, ACallThroughAnotherSignatureIsRefused) {
    Lamp lamp;
    EXPECT_THROW(Message<int(double)>("shine:")(lamp, 1.0), SignatureMismatch);
}

TEST_F(Messaging, AnActionGetsItsSenderAndIgnoresOneOfAnotherClass) {
    Lamp lamp, sender;
    Object stranger;
    const Message<void(Object*)> pressed{"pressed:"};
    pressed(lamp, &sender);
    EXPECT_EQ(sender.brightness, 4);
    EXPECT_NO_THROW(pressed(lamp, &stranger));
    EXPECT_NO_THROW(pressed(lamp, nullptr));
}

TEST_F(Messaging, InstanceVariablesAreReadByNameAlsoOnSubclasses) {
    DeskLamp lamp;
    EXPECT_EQ(lamp.isa().instanceVariable(lamp, "_bulb"), lamp.bulb);
    EXPECT_EQ(lamp.isa().instanceVariable(lamp, "_switch"), nullptr);
}

TEST_F(Messaging, AReplacementCanCallThrough) {
    std::function<int(Object&, int)> original;
    ASSERT_TRUE(replaceMethod("Lamp",
                              "shine:", std::function<int(Object&, int)>([&](Object& self, int factor) {
                                  return original(self, factor) + 100;
                              }),
                              original));
    Lamp lamp;
    EXPECT_EQ(shine(lamp, 2), 106);
}

TEST_F(Messaging, ReplacingAnInheritedMethodChangesTheSubclassAlone) {
    std::function<int(Object&, int)> original;
    ASSERT_TRUE(replaceMethod(
        "DeskLamp", "shine:", std::function<int(Object&, int)>([&](Object&, int) { return 1; }), original));
    DeskLamp desk;
    Lamp lamp;
    EXPECT_EQ(shine(desk, 2), 1);
    EXPECT_EQ(shine(lamp, 2), 6);
    EXPECT_EQ(original(desk, 2), 6);
}

TEST_F(Messaging, ReplacingWhatIsMissingChangesNothing) {
    std::function<int(Object&, int)> original;
    const std::function<int(Object&, int)> replacement = [](Object&, int) { return 0; };
    EXPECT_FALSE(replaceMethod("NoSuchClass", "shine:", replacement, original));
    EXPECT_FALSE(replaceMethod("Lamp", "noSuchMethod:", replacement, original));
    std::function<void(Object&)> other;
    EXPECT_FALSE(replaceMethod("Lamp", "shine:", std::function<void(Object&)>([](Object&) {}), other));
    EXPECT_FALSE(original);
    EXPECT_FALSE(other);
    Lamp lamp;
    EXPECT_EQ(shine(lamp, 2), 6);
}

TEST_F(Messaging, AMethodIsAddedOnceAndNeverOverAnother) {
    const std::function<int(Object&)> dim = [](Object&) { return 7; };
    EXPECT_TRUE(addMethod("Lamp", "dim", dim));
    EXPECT_FALSE(addMethod("Lamp", "dim", std::function<int(Object&)>([](Object&) { return 8; })));
    EXPECT_FALSE(addMethod("NoSuchClass", "dim", dim));
    DeskLamp lamp;
    EXPECT_EQ(Message<int()>("dim")(lamp), 7);
}

TEST_F(Messaging, AMethodReplacedFromWithinACallGoesOnWithTheOldOne) {
    std::function<int(Object&, int)> original;
    std::function<int(Object&, int)> ignored;
    replaceMethod("Lamp", "shine:", std::function<int(Object&, int)>([&](Object& self, int factor) {
                      replaceMethod(
                          "Lamp", "shine:", std::function<int(Object&, int)>([](Object&, int) { return -1; }),
                          ignored);
                      return original(self, factor);
                  }),
                  original);
    Lamp lamp;
    EXPECT_EQ(shine(lamp, 2), 6);
    EXPECT_EQ(shine(lamp, 2), -1);
}

TEST(AssociatedObjects, LiveUnderTheirKeyUntilTakenAway) {
    Object object;
    EXPECT_FALSE(object.associatedObject("title").has_value());
    object.setAssociatedObject("title", std::string("Night"));
    EXPECT_EQ(std::any_cast<std::string>(object.associatedObject("title")), "Night");
    object.setAssociatedObject("title", {});
    EXPECT_FALSE(object.associatedObject("title").has_value());
}

TEST(WeakPtr, AnswersNullOnceItsObjectIsGone) {
    auto object = std::make_unique<Object>();
    WeakPtr<Object> weak(object.get());
    EXPECT_EQ(weak.get(), object.get());
    object.reset();
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_FALSE(weak);
}

TEST(WeakPtr, CanBeTakenInAConstructor) {
    struct Self : Object {
        Self() : me(this) {}
        WeakPtr<Self> me;
    };
    auto object = std::make_shared<Self>();
    EXPECT_EQ(object->me.get(), object.get());
}

} // namespace
