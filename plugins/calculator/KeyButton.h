// A key on the panel: takes effect when a finger is lifted on it, and stays lit for a moment, so that a quick
// tap is seen as well.
#pragma once

#include "Key.h"
#include "KeyStyle.h"
#include "VelaPlugin.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace calculatorplugin {

class KeyButton {
public:
    KeyButton(vela::plugin::Host& host, Key key, std::function<void(Key)> onPress);
    KeyButton(const KeyButton&) = delete;
    KeyButton& operator=(const KeyButton&) = delete;

    Key key() const { return key_; }
    void setFrame(vela::plugin::Rect frame) { area_->setFrame(frame); }
    void setAwaiting(bool awaiting);
    void setClearsNumber(bool clearsNumber);
    /// Forgets the finger and ends the afterglow.
    void rest();

private:
    void touched(const vela::plugin::Touch& touch);
    bool isOn(const vela::plugin::Touch& touch) const;
    void lightUp(bool isPressed);
    void glow();
    void change(const KeyAppearance& appearance);

    vela::plugin::Host& host_;
    Key key_;
    std::function<void(Key)> onPress_;
    KeyAppearance appearance_;
    std::optional<std::int64_t> finger_;
    std::unique_ptr<vela::plugin::Timer> afterglow_;
    std::unique_ptr<vela::plugin::DrawnArea> area_;
};

} // namespace calculatorplugin
