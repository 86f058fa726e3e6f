// A page that is one long list: widgets for the rows in sight alone, which are recycled as the list scrolls.
#pragma once

#include "hosts/settings/window/PageBody.h"

namespace settings {

class ListBody : public PageBody {
public:
    explicit ListBody(const std::shared_ptr<preferences::PSListController>& page);
    ~ListBody() override;

    /// A page without groups, all of whose rows are of the common kinds.
    static bool canShow(preferences::PSListController& page);

    GtkWidget* widget() const override { return scroller_; }
    bool fits() const override;
    void reload() override;
    void added(std::size_t index) override;
    void removed(std::size_t index) override;
    void refresh() override;

private:
    static void setUp(GtkSignalListItemFactory*, GtkListItem* item, gpointer self);
    static void bind(GtkSignalListItemFactory*, GtkListItem* item, gpointer self);
    static void unbind(GtkSignalListItemFactory*, GtkListItem* item, gpointer self);
    std::shared_ptr<preferences::PSSpecifier> specifierAt(guint index) const;

    std::weak_ptr<preferences::PSListController> page_;
    GtkStringList* names_;
    GtkWidget* list_ = nullptr;
    GtkWidget* scroller_;
};

} // namespace settings
