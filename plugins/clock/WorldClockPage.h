// The time here, and in the chosen cities.
#pragma once

#include "ActionButton.h"
#include "ClockModel.h"
#include "Page.h"
#include "PressArea.h"
#include "Ticker.h"
#include "WorldClockRow.h"

#include <memory>
#include <optional>
#include <vector>

namespace clockplugin {

class WorldClockPage : public Page {
public:
    WorldClockPage(ClockModel& model, Navigation& navigation);

    void layout(vela::plugin::Rect area) override;
    void setActive(bool active) override;

private:
    std::optional<double> update();
    void updateRows();
    bool isHeaderFlat() const;
    void drawHeader(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds, bool isPressed) const;
    void drawHeaderText(vela::plugin::Canvas& canvas, vela::plugin::Rect rect) const;
    void makeRows();
    void placeRows();
    void redrawAll();
    void removeCity(const City& city);
    void toggleEditing();
    void toggleFaces();
    void toggleHours();

    ClockModel& model_;
    bool isEditing_ = false;
    ZonedTime local_;
    PressArea header_;
    ActionButton edit_;
    ActionButton faces_;
    ActionButton add_;
    std::unique_ptr<vela::plugin::ScrollArea> list_;
    std::vector<std::unique_ptr<WorldClockRow>> rows_; // goes before the list that it lies in
    Ticker ticker_;
};

} // namespace clockplugin
