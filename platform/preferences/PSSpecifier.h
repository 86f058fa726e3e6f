// One row of a settings page, or the head of a group of rows: what it is called, how its value is read and
// stored, and what it leads to.
//
// The name is also the identifier and with that, for most rows, the key of the preference that it edits.
// Getter and setter are messages to the target, "getValue:" say, of the signatures
//
//     PropertyList (std::shared_ptr<PSSpecifier>)          the value, nil when there is none
//     void (PropertyList, std::shared_ptr<PSSpecifier>)    stores a value
//
// The target is not owned. Main thread only.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/runtime/Class.h"
#include "platform/toolkit/rendering/Image.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace preferences {

/// The platform's numbers of record.
enum class PSCellType {
    Group = 0,
    Link = 1,
    LinkList = 2, // shows the chosen title, leads to a page of choices
    ListItem = 3, // one choice
    Slider = 5,
    Switch = 6,
    StaticText = 7
};

/// Keys of a specifier's properties.
namespace keys {
inline constexpr const char* cellClass = "cellClass";             // class of a row's own cell
inline constexpr const char* headerCellClass = "headerCellClass"; // class of the cell at a group's head
inline constexpr const char* footerText = "footerText";
inline constexpr const char* minimum = "min"; // of a slider
inline constexpr const char* maximum = "max";
inline constexpr const char* isContinuous = "isContinuous"; // a slider that stores while it moves
} // namespace keys

class PSSpecifier : public runtime::Object {
    RUNTIME_CLASS()
public:
    using ImageSource = std::function<std::shared_ptr<const toolkit::Image>()>;

    PSSpecifier(std::string name, PSCellType cellType) : name_(std::move(name)), cellType_(cellType) {}

    /// preferenceSpecifierNamed:target:set:get:detail:cell:edit: without what no page uses. `detail` names
    /// the class of the page that the row leads to, empty for none.
    static std::shared_ptr<PSSpecifier> preferenceSpecifierNamed(std::string name, runtime::Object* target,
                                                                 std::optional<runtime::Selector> set,
                                                                 std::optional<runtime::Selector> get,
                                                                 std::string detail, PSCellType cell);
    static std::shared_ptr<PSSpecifier> groupSpecifierWithName(std::string name);
    /// A group without a name, with a text under its rows.
    static std::shared_ptr<PSSpecifier> groupSpecifierWithFooterText(std::string footer);
    static std::shared_ptr<PSSpecifier> emptyGroupSpecifier() { return groupSpecifierWithName(""); }

    const std::string& name() const { return name_; }
    const std::string& identifier() const { return name_; }
    PSCellType cellType() const { return cellType_; }
    bool isGroup() const { return cellType_ == PSCellType::Group; }
    runtime::Object* target() const { return target_.get(); }
    const std::string& detailControllerClass() const { return detailControllerClass_; }

    /// What the target answers to the getter; nil without target or getter.
    foundation::PropertyList performGetter();
    /// Sends the setter; nothing happens without target or setter.
    void performSetterWithValue(const foundation::PropertyList& value);

    /// What a tap sends to the target: a method without arguments.
    const std::optional<runtime::Selector>& buttonAction() const { return buttonAction_; }
    void setButtonAction(runtime::Selector action) { buttonAction_ = action; }
    void performButtonAction();
    /// What the deletion of the row sends to the target, with the specifier: void
    /// (std::shared_ptr<PSSpecifier>).
    const std::optional<runtime::Selector>& deletionAction() const { return deletionAction_; }
    void setDeletionAction(runtime::Selector action) { deletionAction_ = action; }
    void performDeletionAction();

    /// The value under a key, see `keys`; nil when there is none.
    const foundation::PropertyList& propertyForKey(const std::string& key) const;
    void setProperty(foundation::PropertyList value, const std::string& key);
    /// Shorthand for a property that is a text; empty when there is none.
    std::string textForKey(const std::string& key) const;

    /// The picture of the property "iconImage", read when it is asked for; null when there is none.
    std::shared_ptr<const toolkit::Image> iconImage() const;
    bool hasIconImage() const { return static_cast<bool>(iconImage_); }
    void setIconImage(ImageSource source) { iconImage_ = std::move(source); }

    /// A list's choices: what is stored, and what is shown for it. Of the same length.
    const std::vector<foundation::PropertyList>& values() const { return values_; }
    const std::vector<std::string>& titles() const { return titles_; }
    void setValues(std::vector<foundation::PropertyList> values, std::vector<std::string> titles);
    /// The title shown for a value; empty for a value that is no choice.
    std::string titleForValue(const foundation::PropertyList& value) const;

private:
    std::string name_;
    PSCellType cellType_;
    runtime::WeakPtr<runtime::Object> target_;
    std::optional<runtime::Selector> setter_;
    std::optional<runtime::Selector> getter_;
    std::string detailControllerClass_;
    std::optional<runtime::Selector> buttonAction_;
    std::optional<runtime::Selector> deletionAction_;
    foundation::PropertyList::Dictionary properties_;
    ImageSource iconImage_;
    std::vector<foundation::PropertyList> values_;
    std::vector<std::string> titles_;
};

} // namespace preferences
