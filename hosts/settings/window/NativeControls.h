// GTK's own controls over the places of a view tree's controls, so that keyboard, input methods and screen
// readers meet what they know.
//
// A button of the tree is painted by the tree and pressed through an invisible one over it; a text view is
// covered by GTK's, which writes back what the user has changed. Main thread only.
#pragma once

#include "platform/toolkit/views/UIView.h"

#include <gtk/gtk.h>

#include <functional>
#include <memory>
#include <vector>

namespace toolkit {
class UITextView;
}

namespace settings {

class NativeControls {
public:
    /// The controls become children of `parent`, which outlives this.
    explicit NativeControls(GtkWidget* parent) : parent_(parent) {}

    /// Covers the controls of this tree instead of those covered so far. Where a text of the new tree is that
    /// of the old one, as in a page that is only laid out anew, GTK's own stays, with focus and caret.
    void cover(const std::shared_ptr<toolkit::UIView>& root);
    /// Puts each over the frame that its view has now.
    void allocate();

private:
    struct Cover {
        std::weak_ptr<toolkit::UIView> view;
        GtkWidget* widget;
        /// Of a text: the view that it writes to. Belongs to the widget.
        std::weak_ptr<toolkit::UITextView>* edited = nullptr;
    };
    void coverTree(const std::shared_ptr<toolkit::UIView>& view);
    void coverText(const std::shared_ptr<toolkit::UITextView>& textView);
    void add(const Cover& cover);

    GtkWidget* parent_;
    std::weak_ptr<toolkit::UIView> root_;
    std::vector<Cover> covers_;
    std::vector<Cover> former_; // of the tree before, while the new one is covered
};

} // namespace settings
