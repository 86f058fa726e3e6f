#include "CalculatorView.h"

#include "KeyGrid.h"

#include <algorithm>

namespace calculatorplugin {

using namespace vela::plugin;

namespace {

constexpr const char* stateFile = "state.txt";
constexpr double savingDelay = 0.5;
/// Lies behind everything, so that white letters can be read on light glass.
constexpr Color ground{0.07, 0.07, 0.09, 0.62};

Calculator calculatorFrom(Host& host) {
    const std::optional<std::string> text = host.storage().read(stateFile);
    return text ? Calculator(readState(*text)) : Calculator();
}

} // namespace

CalculatorView::CalculatorView(Host& host)
    : View(host), calculator_(calculatorFrom(host)), display_(host, [this] { press(Key::Backspace); }) {
    for (const PlacedKey& placed : KeyGrid::in(bounds()).keys)
        keys_.push_back(std::make_unique<KeyButton>(host, placed.key, [this](Key key) { press(key); }));
    showState();
}

CalculatorView::~CalculatorView() {
    save();
}

void CalculatorView::draw(Canvas& canvas, Rect bounds) {
    canvas.fillRounded(bounds, 20, ground);
}

void CalculatorView::layout(Rect bounds) {
    const KeyGrid grid = KeyGrid::in(bounds);
    display_.setFrame(grid.display);
    for (const PlacedKey& placed : grid.keys) {
        const auto button = std::find_if(keys_.begin(), keys_.end(),
                                         [&](const auto& each) { return each->key() == placed.key; });
        if (button != keys_.end())
            (*button)->setFrame(placed.frame);
    }
    setNeedsDisplay();
}

void CalculatorView::press(Key key) {
    calculator_.press(key);
    showState();
    saveSoon();
}

void CalculatorView::showState() {
    display_.show(calculator_);
    const std::optional<Operator> awaiting = calculator_.awaitingOperator();
    for (const auto& key : keys_) {
        const bool isAwaiting = (key->key() == Key::Add && awaiting == Operator::Add) ||
                                (key->key() == Key::Subtract && awaiting == Operator::Subtract) ||
                                (key->key() == Key::Multiply && awaiting == Operator::Multiply) ||
                                (key->key() == Key::Divide && awaiting == Operator::Divide);
        key->setAwaiting(isAwaiting);
        if (key->key() == Key::Clear)
            key->setClearsNumber(calculator_.clearsNumberOnly());
    }
}

void CalculatorView::saveSoon() {
    isSaved_ = false;
    saving_ = host().startTimer(savingDelay, false, [this] { save(); });
}

void CalculatorView::save() {
    saving_.reset();
    if (isSaved_)
        return;
    isSaved_ = true;
    if (!host().storage().write(stateFile, written(calculator_.state())))
        host().log("the calculation could not be kept");
}

void CalculatorView::rest() {
    for (const auto& key : keys_)
        key->rest();
    save();
}

VELA_PRINCIPAL_CLASS(CalculatorView)

} // namespace calculatorplugin
