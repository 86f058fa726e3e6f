// What a row of a page shows: icon, title and, by the kind of row, a switch, a slider, the chosen value, a
// check mark or an arrow; and a button that deletes it, which a swipe to the left brings up.
//
// One such widget shows one row after another where rows are recycled. Main thread only. Goes with its
// widget.
#pragma once

#include "platform/preferences/PSListController.h"

#include <gtk/gtk.h>

#include <functional>
#include <memory>

namespace settings {

class RowContent {
public:
    using Deletion = std::function<void(const std::shared_ptr<preferences::PSSpecifier>&)>;

    /// A new widget. Without a `deletion` no row can be deleted.
    static RowContent& make(Deletion deletion = {});
    ~RowContent();
    RowContent(const RowContent&) = delete;
    RowContent& operator=(const RowContent&) = delete;

    /// The one whose widget is the child of `holder`, a row of a list; null when that is none.
    static RowContent* within(GtkWidget* holder);
    /// The one that has the keyboard's focus, among the rows of a list; null when none has.
    static RowContent* focusedIn(GtkWidget* list);

    GtkWidget* widget() const { return box_; }
    const std::shared_ptr<preferences::PSSpecifier>& specifier() const { return specifier_; }

    /// Shows this row of a page, which is held as long as it is shown.
    void show(std::shared_ptr<preferences::PSListController> page,
              std::shared_ptr<preferences::PSSpecifier> specifier);
    /// Shows the row's present value.
    void refresh();
    /// Shows nothing, and lets go of page and row.
    void clear();
    /// Names the row of the list that holds the widget, for screen readers.
    void describe(GtkWidget* holder) const;

    /// Whether a tap on the row does anything.
    bool isActivatable() const;
    /// What a tap on the row does.
    void activate();
    void performDeletion();

private:
    template <class T, class... Arguments>
    friend T& attach(GtkWidget*, Arguments&&...);
    RowContent(GtkWidget* box, Deletion deletion);

    void build();
    void addSwipe();
    void showIcon();
    void showControls();
    void tintSwitch();
    void refreshSlider(const foundation::PropertyList& value);
    void nameControl(GtkWidget* control) const;
    void setDeleteShown(bool shown);
    void switched(bool on);
    void slid();

    GtkWidget* box_;
    GtkWidget* icon_ = nullptr;
    GtkWidget* title_ = nullptr;
    GtkWidget* scale_ = nullptr;
    GtkWidget* value_ = nullptr;
    GtkWidget* switch_ = nullptr;
    GtkWidget* mark_ = nullptr;
    GtkWidget* deleteRevealer_ = nullptr;
    GtkWidget* deleteButton_ = nullptr;
    std::string tintClass_;
    Deletion deletion_;
    std::shared_ptr<preferences::PSListController> page_;
    std::shared_ptr<preferences::PSSpecifier> specifier_;
    bool refreshing_ = false;
    double slidUntil_ = 0; // in the run loop's time
};

} // namespace settings
