// The rows of a page in widgets: what a page's groups and a page's long list have in common.
#pragma once

#include "platform/preferences/PSListController.h"

#include <gtk/gtk.h>

#include <memory>

namespace settings {

class PageBody {
public:
    virtual ~PageBody() = default;

    /// Owned by the widget that it is put into.
    virtual GtkWidget* widget() const = 0;
    /// Whether this kind of body can show the page as it is now.
    virtual bool fits() const = 0;
    /// Shows rows and cells anew.
    virtual void reload() = 0;
    /// A row was added or removed at this place among the page's specifiers.
    virtual void added(std::size_t index) = 0;
    virtual void removed(std::size_t index) = 0;
    /// Shows the present values.
    virtual void refresh() = 0;
};

/// A body for the page, of the kind that fits it.
std::unique_ptr<PageBody> makePageBody(const std::shared_ptr<preferences::PSListController>& page);

/// Lets the Delete key delete the row of `list` that has the focus.
void addDeleteKey(GtkWidget* list);
/// Deletes a row of the page, if it lets itself be deleted.
void deleteRow(const std::weak_ptr<preferences::PSListController>& page,
               const std::shared_ptr<preferences::PSSpecifier>& specifier);

} // namespace settings
