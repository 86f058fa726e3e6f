// A document to read, with headings, lists and code. One that cannot be loaded shows its address.
//
// Main thread only. Goes with its widget.
#pragma once

#include "hosts/settings/program/DocumentLoader.h"

#include <gtk/gtk.h>

namespace settings {

class DocumentView {
public:
    /// A new widget, which loads the document of this address.
    static DocumentView& make(const std::string& address);
    DocumentView(const DocumentView&) = delete;
    DocumentView& operator=(const DocumentView&) = delete;

    GtkWidget* widget() const { return scroller_; }

private:
    template <class T, class... Arguments>
    friend T& attach(GtkWidget*, Arguments&&...);
    DocumentView(GtkWidget* scroller, const std::string& address);
    void addTags();
    void show(const std::optional<std::vector<web::HTMLBlock>>& blocks, const std::string& address);
    void append(const web::HTMLBlock& block);

    GtkWidget* scroller_;
    GtkTextBuffer* buffer_;
    DocumentLoader loader_;
};

} // namespace settings
