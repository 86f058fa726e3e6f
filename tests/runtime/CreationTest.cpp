#include "platform/runtime/Creation.h"

#include <gtest/gtest.h>

namespace {

class Made : public runtime::Object {
    RUNTIME_CLASS()
};
runtime::Class& Made::staticClass() {
    static auto& cls = runtime::ClassBuilder<Made>("CreationTestMade", &Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(Made)

class Known : public runtime::Object {
    RUNTIME_CLASS()
};
runtime::Class& Known::staticClass() {
    static auto& cls = runtime::ClassBuilder<Known>("CreationTestKnown", &Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(Known)

TEST(Creation, MakesANewInstanceEachTime) {
    const auto first = runtime::createInstance("CreationTestMade");
    const auto second = runtime::createInstance("CreationTestMade");
    ASSERT_TRUE(first);
    EXPECT_EQ(&first->isa(), &Made::staticClass());
    EXPECT_NE(first, second);
}

TEST(Creation, MakesNothingOfClassesThatAreUnknownOrNotMadeByName) {
    EXPECT_FALSE(runtime::createInstance("CreationTestNoSuchClass"));
    EXPECT_FALSE(runtime::createInstance("CreationTestKnown"));
    EXPECT_FALSE(runtime::createInstance(""));
}

TEST(Creation, AnswersOnlyInstancesOfTheTypeAskedFor) {
    EXPECT_TRUE(runtime::createInstanceOf<Made>("CreationTestMade"));
    EXPECT_FALSE(runtime::createInstanceOf<Known>("CreationTestMade"));
}

} // namespace
