// The calculator on the board: display and keys, and the state kept in the storage.
#pragma once

#include "Calculator.h"
#include "DisplayArea.h"
#include "KeyButton.h"
#include "VelaPlugin.h"

#include <memory>
#include <vector>

namespace calculatorplugin {

class CalculatorView : public vela::plugin::View {
public:
    explicit CalculatorView(vela::plugin::Host& host);
    ~CalculatorView() override;

    void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds) override;
    void layout(vela::plugin::Rect bounds) override;

    void appWillEnterBackground() { save(); }
    void appDidEnterBackground() { rest(); }
    void velaDismissed() { rest(); }

private:
    void press(Key key);
    void showState();
    /// Saves once no key has been pressed for a while.
    void saveSoon();
    void save();
    void rest();

    Calculator calculator_;
    bool isSaved_ = true;
    std::unique_ptr<vela::plugin::Timer> saving_;
    DisplayArea display_;
    std::vector<std::unique_ptr<KeyButton>> keys_;
};

} // namespace calculatorplugin
