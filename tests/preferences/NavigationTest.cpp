#include "tests/preferences/PreferencesTest.h"

#include "platform/preferences/UINavigationController.h"

using preferences::UIBarButtonItem;
using preferences::UINavigationController;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Navigation : tests::PreferencesTest {
    Navigation() {
        stack->setChangeHandler([](UINavigationController::Change change, bool animated) {
            tests::RecordingPage::transcript().add(change == UINavigationController::Change::Push ? "pushed"
                                                                                                  : "popped",
                                                   animated ? " animated" : "");
        });
    }
    std::shared_ptr<UINavigationController> stack = std::make_shared<UINavigationController>();
};

TEST_F(Navigation, TellsPagesInOrder) {
    stack->setContentSize({375, 600});
    stack->pushViewController(page("a"), false);
    EXPECT_THAT(told(),
                ElementsAre("a will appear", "a laid out (0, 0, 375, 600)", "pushed", "a did appear"));
    stack->pushViewController(page("b"), true);
    EXPECT_THAT(told(),
                ElementsAre("a will disappear animated", "b will appear animated",
                            "b laid out (0, 0, 375, 600)", "pushed animated", "b did appear animated"));
    stack->popViewControllerAnimated(true);
    EXPECT_THAT(told(), ElementsAre("b will disappear animated", "a will appear animated", "popped animated",
                                    "a did appear animated"));
}

TEST_F(Navigation, LaysOutThePageOnTopAlone) {
    stack->pushViewController(page("a"), false);
    stack->pushViewController(page("b"), false);
    told();
    stack->setContentSize({375, 600});
    EXPECT_THAT(told(), ElementsAre("b laid out (0, 0, 375, 600)"));
    stack->setContentSize({375, 600});
    EXPECT_THAT(told(), IsEmpty());
    stack->popViewControllerAnimated(false);
    EXPECT_THAT(told(), testing::Contains("a laid out (0, 0, 375, 600)"));
}

TEST_F(Navigation, KeepsItsRoot) {
    const auto root = page("a");
    stack->pushViewController(root, false);
    told();
    stack->popViewControllerAnimated(true);
    EXPECT_EQ(stack->topViewController(), root);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(Navigation, TakesNoPageTwiceAndNoneThatIsNone) {
    const auto root = page("a");
    stack->pushViewController(root, false);
    stack->pushViewController(root, false);
    stack->pushViewController(nullptr, false);
    EXPECT_THAT(stack->viewControllers(), ElementsAre(root));
    EXPECT_EQ(root->navigationController(), stack.get());
}

TEST_F(Navigation, LetsGoOfPagesThatLeave) {
    stack->pushViewController(page("a"), false);
    auto leaving = page("b");
    const std::weak_ptr watched = leaving;
    stack->pushViewController(std::move(leaving), false);
    stack->popViewControllerAnimated(false);
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(UINavigationController().topViewController(), nullptr);
}

TEST_F(Navigation, AnItemTellsOfItsChanges) {
    const auto root = page("a");
    int changes = 0;
    root->navigationItem().setChangeHandler([&] { ++changes; });
    root->setTitle("b");
    root->navigationItem().setTitleView(std::make_shared<toolkit::UIView>());
    root->navigationItem().setRightBarButtonItem(
        std::make_shared<UIBarButtonItem>("Save", UIBarButtonItem::Style::Done, root.get(), "tapped"));
    EXPECT_EQ(changes, 3);
    root->navigationItem().rightBarButtonItem()->performAction();
    EXPECT_THAT(told(), ElementsAre("tapped"));
}

TEST_F(Navigation, AButtonOutlivesItsPage) {
    auto root = page("a");
    UIBarButtonItem button("Save", UIBarButtonItem::Style::Plain, root.get(), "tapped");
    root.reset();
    button.performAction();
    EXPECT_THAT(told(), IsEmpty());
}

} // namespace
