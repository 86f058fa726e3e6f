// Everything that the window's menu and the keyboard can do with the phone: one table for the menu, the
// shortcuts and the page that lists them.
#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <string>
#include <vector>

namespace phone {

struct PhoneAction {
    std::string name;    // within the group "phone"
    std::string section; // of the menu and of the list of shortcuts
    std::string label;
    std::string accelerator; // as GTK writes them
    std::function<void()> run;
};

class PhoneActions {
public:
    /// Makes the actions known to `window` and its shortcuts heard everywhere in it. `turnDone` is called
    /// after each action.
    PhoneActions(GtkWindow* window, std::vector<PhoneAction> actions, std::function<void()> turnDone);
    PhoneActions(const PhoneActions&) = delete;
    PhoneActions& operator=(const PhoneActions&) = delete;

    /// A menu of all actions by section; the caller owns it.
    GMenuModel* newMenu() const;
    /// Shows the list of all shortcuts.
    void presentShortcuts() const;

private:
    GtkWindow* window_;
    std::vector<PhoneAction> actions_;
    std::function<void()> turnDone_;
};

} // namespace phone
