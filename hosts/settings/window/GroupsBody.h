// A page of groups: header cells, boxed rows and footers, one below the other in a column.
//
// Rows whose values have changed are refreshed where they stand, so that a page that is only laid out anew
// keeps focus and place.
#pragma once

#include "hosts/settings/window/PageBody.h"
#include "hosts/settings/window/RowContent.h"
#include "hosts/settings/window/ToolkitView.h"

#include <vector>

namespace settings {

class GroupsBody : public PageBody {
public:
    explicit GroupsBody(const std::shared_ptr<preferences::PSListController>& page);

    GtkWidget* widget() const override { return scroller_; }
    bool fits() const override;
    void reload() override;
    void added(std::size_t) override { reload(); }
    void removed(std::size_t) override { reload(); }
    void refresh() override;

private:
    using Section = preferences::PSListController::Section;
    struct Cell {
        std::shared_ptr<preferences::PSSpecifier> specifier;
        ToolkitView* view;
    };
    void rebuild(preferences::PSListController& page);
    void addSection(preferences::PSListController& page, const Section& section);
    void addRows(preferences::PSListController& page, const Section& section);
    void addRow(GtkWidget* list, const std::shared_ptr<preferences::PSSpecifier>& specifier);
    void addCell(const std::shared_ptr<preferences::PSSpecifier>& specifier, const std::string& name);
    GtkWidget* newList(const std::string& name) const;
    void showCells(preferences::PSListController& page);

    std::weak_ptr<preferences::PSListController> page_;
    GtkWidget* scroller_;
    GtkWidget* column_;
    preferences::PSListController::Specifiers shown_;
    std::vector<RowContent*> rows_;
    std::vector<Cell> cells_;
};

} // namespace settings
