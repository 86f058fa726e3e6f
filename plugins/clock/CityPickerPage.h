// Where a city is added: found by typing, chosen by a tap.
#pragma once

#include "ActionButton.h"
#include "ClockModel.h"
#include "Page.h"
#include "PressArea.h"

#include <memory>
#include <vector>

namespace clockplugin {

class CityPickerPage : public Page {
public:
    CityPickerPage(ClockModel& model, Navigation& navigation);
    ~CityPickerPage() override;

    void layout(vela::plugin::Rect area) override;
    void setActive(bool active) override;

private:
    void makeRows();
    void placeRows();
    void drawRow(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds, const City& city,
                 bool isPressed) const;
    void choose(const City& city);

    ClockModel& model_;
    Navigation& navigation_;
    std::unique_ptr<vela::plugin::DrawnArea> fieldGround_;
    std::unique_ptr<vela::plugin::TextField> field_;
    ActionButton cancel_;
    std::unique_ptr<vela::plugin::ScrollArea> list_;
    std::unique_ptr<vela::plugin::Label> nothingFound_;
    std::vector<std::unique_ptr<PressArea>> rows_; // goes before the list that it lies in
};

} // namespace clockplugin
