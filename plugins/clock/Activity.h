// Whether anybody can see the plug-in: it has been opened, and the panel is shown. The phone tells both apart
// and may tell each repeatedly.
#pragma once

namespace clockplugin {

class Activity {
public:
    void setOpen(bool open) { isOpen_ = open; }
    void setPanelShown(bool shown) { isPanelShown_ = shown; }
    bool isActive() const { return isOpen_ && isPanelShown_; }

private:
    bool isOpen_ = false;
    bool isPanelShown_ = true; // a plug-in is made by a tap on its tile
};

} // namespace clockplugin
