// A settings page: rows described by specifiers, in groups that each begin with a group specifier.
//
// A page's class says what its rows are; a host shows them as it sees fit. It walks specifiers() or
// sections(), asks values with performGetter(), and tells what the user does: selectSpecifier() for a tap,
// setValueSoon() or performSetterWithValue() for a new value. Rows whose specifier names a class of their own
// draw themselves, see cellForSpecifier() and headerCellForGroup(). Main thread only.
#pragma once

#include "platform/preferences/PSListObserver.h"
#include "platform/preferences/PSTableCell.h"
#include "platform/preferences/PSViewController.h"
#include "platform/preferences/PendingValues.h"

#include <map>
#include <memory>
#include <vector>

namespace preferences {

class PSListController : public PSViewController {
    RUNTIME_CLASS()
public:
    using Specifiers = std::vector<std::shared_ptr<PSSpecifier>>;
    /// A group and its rows; `group` is null for rows before the first group.
    struct Section {
        std::shared_ptr<PSSpecifier> group;
        Specifiers rows;
    };

    /// The rows and group heads in order. Built once and kept; built again whenever nothing is kept.
    const Specifiers& specifiers();
    std::vector<Section> sections();
    /// Null when no specifier has that identifier.
    std::shared_ptr<PSSpecifier> specifierForID(const std::string& identifier);

    void setSpecifiers(Specifiers specifiers);
    /// Shows the kept rows anew: all cells are made again when they are next asked for.
    void reloadSpecifiers();
    void reloadSpecifier(const std::shared_ptr<PSSpecifier>& specifier);
    void addSpecifier(std::shared_ptr<PSSpecifier> specifier, bool animated);
    void removeSpecifier(const std::shared_ptr<PSSpecifier>& specifier, bool animated);

    /// The row's own cell, of the class that its property "cellClass" names, made when first asked for; null
    /// for a row without one. The width of a new cell is the page's.
    std::shared_ptr<PSTableCell> cellForSpecifier(const std::shared_ptr<PSSpecifier>& specifier);
    /// The same for the cell at the head of a group, of the class that its property "headerCellClass" names.
    std::shared_ptr<PSTableCell> headerCellForGroup(const std::shared_ptr<PSSpecifier>& group);

    /// What a tap on a row does: its button action, else the page that it leads to.
    virtual void selectSpecifier(const std::shared_ptr<PSSpecifier>& specifier);
    /// Whether a row shows a check mark.
    virtual bool isSpecifierChecked(const std::shared_ptr<PSSpecifier>&) { return false; }
    /// A new page of the class that the row leads to; null when it leads nowhere.
    std::shared_ptr<PSViewController> controllerForSpecifier(const std::shared_ptr<PSSpecifier>& specifier);
    /// Puts a page on top of this one.
    void pushController(std::shared_ptr<PSViewController> controller);

    /// For a stream of values, as a slider sends while it moves: the first is stored at once, then at most
    /// one each frame, and the last one always, at the latest when the page disappears.
    void setValueSoon(const foundation::PropertyList& value, const std::shared_ptr<PSSpecifier>& specifier);
    void viewWillDisappear(bool animated) override;

    /// Not owned; null for nobody.
    void setObserver(PSListObserver* observer) { observer_ = observer; }

protected:
    /// The page's rows; a plain page has none.
    virtual Specifiers makeSpecifiers() { return {}; }

private:
    std::shared_ptr<PSTableCell> cellOfClass(const std::string& className,
                                             const std::shared_ptr<PSSpecifier>& specifier);

    Specifiers specifiers_;
    std::map<const PSSpecifier*, std::shared_ptr<PSTableCell>> cells_;
    PendingValues pendingValues_;
    PSListObserver* observer_ = nullptr;
};

} // namespace preferences
