#include "vela/settings/velaCell.h"

#include "platform/runtime/Creation.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "vela/settings/HeaderFigure.h"
#include "vela/settings/PageState.h"
#include "vela/settings/velaBar.h"
#include "vela/stores/PreferenceKeys.h"
#include "vela/stores/VelaSettingsManager.h"

#include <random>

using namespace toolkit;

namespace vela {

namespace {

constexpr double formingDuration = 0.3;   // seconds
constexpr double shortestMovement = 0.25; // seconds
constexpr double lowestMovedHeight = 3;   // points

/// A whole number from 0 to `bound` - 1. Always the same series: nobody is to be surprised by it.
double randomBelow(unsigned bound) {
    static auto& engine = *new std::mt19937; // never torn down
    return static_cast<double>(engine() % bound);
}

/// To a random height, after a random while.
void moveAtRandom(velaBar& bar, double duration) {
    const double height = std::max(lowestMovedHeight, randomBelow(10));
    UIView::animate(duration, randomBelow(100) / 75, AnimationCurve::EaseInOut,
                    [&] { bar.setHeight(height); });
}

template <class Function>
void forEachBar(const UIView& cell, const Function& function) {
    for (const auto& subview : cell.subviews())
        if (auto* bar = dynamic_cast<velaBar*>(subview.get()))
            function(*bar);
}

} // namespace

runtime::Class& velaCell::staticClass() {
    static auto& cls = runtime::ClassBuilder<velaCell>("velaCell", &PSTableCell::staticClass())
                           .method("animateViews", &velaCell::animateViews)
                           .method("animateViewsForDisbaled", &velaCell::animateViewsForDisbaled)
                           .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(velaCell)

void velaCell::initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
    PSTableCell::initWithSpecifier(specifier);
    setStyle(0, "headerCell");
    setBackgroundColor(Color::clear());
    addBars();
    pageState().header = this;
    animateHeader(VelaSettingsManager::sharedInstance().getPreferenceForKey(keys::enable).boolValue());
}

void velaCell::addBars() {
    const double gap =
        (UIScreen::mainScreen().bounds().width - figure::barCount * velaBar::width) / (figure::barCount + 1);
    for (int number = 1; number <= figure::barCount; ++number) {
        const double x = gap + (number - 1) * (gap + velaBar::width);
        addSubview(std::make_shared<velaBar>(number, x, figure::barColor(number)));
        if (const auto second = figure::secondBarColor(number))
            addSubview(std::make_shared<velaBar>(number, x, *second));
    }
}

void velaCell::animateViews() {
    const auto form = [this] {
        forEachBar(*this, [](velaBar& bar) {
            bar.removeAllAnimations();
            if (const auto height = figure::height(*bar.backgroundColor(), bar.tag()))
                bar.setHeight(*height);
        });
    };
    UIView::animate(formingDuration, 0, AnimationCurve::EaseInOut, form,
                    [cell = runtime::WeakPtr<velaCell>(this)](bool finished) {
                        if (finished && cell)
                            cell->moveDefaultBars();
                    });
}

void velaCell::animateViewsForDisbaled() {
    const auto lieDown = [this] {
        forEachBar(*this, [](velaBar& bar) {
            bar.removeAllAnimations();
            bar.setHeight(velaBar::restingHeight);
        });
    };
    UIView::animate(formingDuration, 0, AnimationCurve::EaseInOut, lieDown,
                    [cell = runtime::WeakPtr<velaCell>(this)](bool finished) {
                        if (finished && cell)
                            cell->moveAllBars();
                    });
}

void velaCell::moveDefaultBars() {
    forEachBar(*this, [](velaBar& bar) {
        if (bar.hasDefaultColor())
            moveAtRandom(bar, randomBelow(10) / 10 + shortestMovement);
    });
}

void velaCell::moveAllBars() {
    forEachBar(*this, [](velaBar& bar) { moveAtRandom(bar, randomBelow(10) / 40 + shortestMovement); });
}

} // namespace vela
