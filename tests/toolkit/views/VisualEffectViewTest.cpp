#include "platform/toolkit/views/UIVisualEffectView.h"
#include "tests/support/ToolkitTest.h"

namespace toolkit {
namespace {

class VisualEffectViewTest : public support::ToolkitTest {
protected:
    UIVisualEffectView view;
};

TEST_F(VisualEffectViewTest, WithoutAnEffectItShowsNothing) {
    EXPECT_EQ(view.effect(), std::nullopt);
    EXPECT_EQ(view.layer()->backdrop(), std::nullopt);
    EXPECT_EQ(view.contentView()->layer()->groupBlend(), GroupBlend::Normal);
}

TEST_F(VisualEffectViewTest, ABlurShowsWhatLiesBeneath) {
    view.setEffect(VisualEffect::blur(BlurEffectStyle::Dark));
    EXPECT_EQ(view.layer()->backdrop(), BackdropStyle::Dark);
    view.setEffect(VisualEffect::blur(BlurEffectStyle::Light));
    EXPECT_EQ(view.layer()->backdrop(), BackdropStyle::Light);
    EXPECT_EQ(view.contentView()->layer()->groupBlend(), GroupBlend::Normal);
}

TEST_F(VisualEffectViewTest, VibrancyMixesItsContentWithWhatLiesBeneath) {
    view.setEffect(VisualEffect::vibrancyFor(VisualEffect::blur(BlurEffectStyle::Dark)));
    EXPECT_EQ(view.contentView()->layer()->groupBlend(), GroupBlend::VibrancyDark);
    EXPECT_EQ(view.layer()->backdrop(), std::nullopt);
    view.setEffect(VisualEffect::vibrancyFor(VisualEffect::blur(BlurEffectStyle::Light)));
    EXPECT_EQ(view.contentView()->layer()->groupBlend(), GroupBlend::VibrancyLight);
    view.setEffect(std::nullopt);
    EXPECT_EQ(view.contentView()->layer()->groupBlend(), GroupBlend::Normal);
}

TEST_F(VisualEffectViewTest, ItsContentFillsIt) {
    view.setFrame({10, 20, 200, 100});
    view.layoutIfNeeded();
    EXPECT_EQ(view.contentView()->frame(), (Rect{0, 0, 200, 100}));
    view.setFrame({10, 20, 300, 150});
    view.layoutIfNeeded();
    EXPECT_EQ(view.contentView()->frame(), (Rect{0, 0, 300, 150}));
}

TEST_F(VisualEffectViewTest, TakesTouchesWithinItsBounds) {
    view.setFrame({10, 20, 200, 100});
    EXPECT_TRUE(view.takesTouchAt({5, 5}));
    EXPECT_FALSE(view.takesTouchAt({205, 5}));
    view.setAlpha(0);
    EXPECT_FALSE(view.takesTouchAt({5, 5}));
}

} // namespace
} // namespace toolkit
