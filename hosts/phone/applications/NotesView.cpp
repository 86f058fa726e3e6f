#include "hosts/phone/applications/NotesView.h"

#include "hosts/phone/screens/Labels.h"
#include "platform/toolkit/views/TextInput.h"

using namespace toolkit;

namespace phone {

namespace {

const Color tint = Color::rgba(0.86, 0.58, 0.04);
constexpr double textFieldMargin = 7, textViewMargin = 5; // points, the toolkit's own
constexpr double widestText = 640;                        // points; longer lines are hard to read

const char* const firstNote =
    "Take the early ferry and walk along the cliffs before the wind comes up.\n"
    "\n"
    "•  Bread, olives and oranges\n"
    "•  Ask Mira for the map of the old path\n"
    "•  Film for the camera, two rolls\n"
    "\n"
    "The lighthouse keeper opens the tower at four. From up there one sees both bays "
    "and, on a clear day, the islands.\n"
    "\n"
    "Last boat back at half past seven.";

} // namespace

runtime::Class& NotesView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<NotesView>("NotesView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(NotesView)

NotesView::NotesView(const std::string& date)
    : bar_(std::make_shared<NavigationBar>("Notes", NavigationBarStyle::Light, tint)),
      date_(makeLabel(date, Font::system(12), Color::white(0.52), TextAlignment::Center)),
      title_(std::make_shared<UITextField>()),
      text_(std::make_shared<UITextView>()) {
    setBackgroundColor(Color::rgba(0.992, 0.988, 0.968));
    title_->setText("Saturday by the sea");
    title_->setPlaceholder("Title");
    title_->setFont(Font::system(24, FontWeight::Bold));
    title_->setTextColor(Color::white(0.08));
    text_->setText(firstNote);
    text_->setFont(Font::system(17));
    text_->setTextColor(Color::white(0.13));
    for (const std::shared_ptr<UIView>& view :
         {std::shared_ptr<UIView>(text_), std::shared_ptr<UIView>(title_), std::shared_ptr<UIView>(date_),
          std::shared_ptr<UIView>(bar_)})
        addSubview(view);
    focus_ = TextInput::addObserver([this](TextInput* input) {
        const bool editing = input == title_.get() || input == text_.get();
        bar_->setRightButton(editing ? "Done" : "", [] {
            if (TextInput* current = TextInput::current())
                current->resignFirstResponder();
        });
    });
}

void NotesView::setKeyboardFrame(Rect frame) {
    keyboardHeight_ = frame.height;
    setNeedsLayout();
}

void NotesView::layoutSubviews() {
    const Size size = bounds().size();
    const double top = NavigationBar::heightFor(size);
    bar_->setFrame({0, 0, size.width, top});
    const bool roomy = size.height - top - keyboardHeight_ > 260;
    const double width = std::min(size.width - 28, widestText), left = (size.width - width) / 2;
    double y = top + (roomy ? 10 : 2);
    date_->setHidden(!roomy);
    if (roomy) {
        date_->setFrame({left, y, width, 16});
        y += 26;
    }
    title_->setFrame({left - textFieldMargin + textViewMargin, y, width, 34});
    y += 40;
    text_->setFrame({left, y, width, std::max(40.0, size.height - y - keyboardHeight_ - 4)});
}

} // namespace phone
