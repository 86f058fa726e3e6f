// The window of the application switcher: makes the cards when it opens, and fades in and out.
#pragma once

#include "hosts/phone/applications/ApplicationStage.h"
#include "hosts/phone/screens/Switcher.h"

namespace phone {

class SwitcherWindow : public SystemWindow {
    RUNTIME_CLASS()
public:
    /// `chosen` gets the identifier of the application to bring to the front, empty for a tap beside the
    /// cards. Closing is up to it.
    SwitcherWindow(std::shared_ptr<const toolkit::Image> background,
                   std::function<void(const std::string& bundleIdentifier)> chosen);

    bool isOpen() const { return open_; }
    void open(const ApplicationStage& stage);
    void close();

private:
    std::shared_ptr<Switcher> switcher_;
    bool open_ = false;
};

} // namespace phone
