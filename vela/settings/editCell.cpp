#include "vela/settings/editCell.h"

#include "platform/runtime/Creation.h"
#include "vela/settings/PageState.h"

using namespace toolkit;

namespace vela {

namespace {
constexpr double barHeight = 64; // points, of the status and navigation bars
constexpr double fontSize = 16;
} // namespace

runtime::Class& editCell::staticClass() {
    static auto& cls = runtime::ClassBuilder<editCell>("editCell", &PSTableCell::staticClass())
                           .method("textViewDidChange:", &editCell::textViewDidChange)
                           .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(editCell)

void editCell::initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
    PSTableCell::initWithSpecifier(specifier);
    setStyle(0, "headerCell");
    const double width = pageState().width;
    auto textView = std::make_shared<UITextView>(Rect(0, 0, width, preferredHeightForWidth(width)));
    textView->setText(pageState().text);
    textView->setFont(Font::system(fontSize));
    textView->setBackgroundColor(Color::clear());
    textView->setTextChangedHandler(
        [self = runtime::WeakPtr<editCell>(this), weak = std::weak_ptr(textView)] {
            const auto changed = weak.lock();
            if (self && changed)
                self->textViewDidChange(changed);
        });
    addSubview(textView);
}

double editCell::preferredHeightForWidth(double) const {
    return pageState().height - barHeight;
}

void editCell::textViewDidChange(const std::shared_ptr<UITextView>& textView) {
    pageState().text = textView->text();
}

} // namespace vela
