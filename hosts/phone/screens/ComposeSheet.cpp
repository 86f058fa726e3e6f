#include "hosts/phone/screens/ComposeSheet.h"

#include "hosts/phone/screens/Keyboard.h"
#include "hosts/phone/screens/Labels.h"
#include "hosts/phone/screens/StatusBar.h"

using namespace toolkit;

namespace phone {

namespace {

constexpr double margin = 10; // points, around the card
constexpr double widestCard = 480;
constexpr double highestCard = 230;
constexpr double headHeight = 44;
constexpr double noteHeight = 30;
constexpr double buttonWidth = 84;
constexpr double textMargin = 8;
const Color tint = Color::rgba(0, 0.478, 1);

} // namespace

runtime::Class& ComposeSheet::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<ComposeSheet>("ComposeSheet", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(ComposeSheet)

ComposeSheet::ComposeSheet(const std::string& text, Answers answers)
    : answers_(std::move(answers)),
      card_(std::make_shared<UIView>()),
      title_(makeLabel("New Message", Font::system(17, FontWeight::Semibold), Color::black(),
                       TextAlignment::Center)),
      hairline_(std::make_shared<UIView>()),
      editor_(std::make_shared<UITextView>()),
      note_(makeLabel("Post opens the message in your browser", Font::system(12), Color::white(0.45),
                      TextAlignment::Center)) {
    setBackgroundColor(Color::white(0, 0.4));
    card_->setBackgroundColor(Color::white(0.98));
    card_->layer()->setCornerRadius(13);
    card_->layer()->setShadow({Color::black(), 0.3, 14, {0, 6}});
    addSubview(card_);
    hairline_->setBackgroundColor(Color::white(0.78));
    editor_->setBackgroundColor(Color::clear());
    editor_->setFont(Font::system(17));
    editor_->setText(text);
    editor_->setTextChangedHandler([this] { textChanged(); });
    for (const auto& part :
         {std::static_pointer_cast<UIView>(title_), hairline_, std::static_pointer_cast<UIView>(editor_),
          std::static_pointer_cast<UIView>(note_)})
        card_->addSubview(part);
    cancel_ = addButton("Cancel", FontWeight::Regular, [this] { finish(answers_.cancelled); });
    post_ = addButton("Post", FontWeight::Semibold,
                      [this] { finish([this] { answers_.posted(editor_->text()); }); });
    textChanged();
}

std::shared_ptr<UIButton> ComposeSheet::addButton(const std::string& title, FontWeight weight,
                                                  std::function<void()> pressed) {
    auto button = std::make_shared<UIButton>();
    button->setTitle(title);
    button->titleLabel()->setFont(Font::system(17, weight));
    button->titleLabel()->setTextColor(tint);
    button->addHandler(ControlEvent::TouchUpInside, std::move(pressed));
    card_->addSubview(button);
    return button;
}

void ComposeSheet::finish(const std::function<void()>& answer) {
    if (answered_)
        return;
    answered_ = true;
    editor_->resignFirstResponder();
    const auto kept = shared_from_this(); // whoever is told may take the sheet away
    answer();
}

void ComposeSheet::textChanged() {
    post_->setEnabled(editor_->text().find_first_not_of(" \t\r\n") != std::string::npos);
}

void ComposeSheet::beginWriting() {
    editor_->becomeFirstResponder();
}

void ComposeSheet::layoutSubviews() {
    const Size screen = bounds().size();
    // In the middle of what the keyboard leaves free.
    const double top = StatusBar::height, bottom = screen.height - Keyboard::heightFor(screen);
    const Size card{std::min(screen.width - 2 * margin, widestCard),
                    std::min(bottom - top - 2 * margin, highestCard)};
    card_->setFrame(
        {(screen.width - card.width) / 2, top + (bottom - top - card.height) / 2, card.width, card.height});
    title_->setFrame({buttonWidth, 0, card.width - 2 * buttonWidth, headHeight});
    cancel_->setFrame({0, 0, buttonWidth, headHeight});
    post_->setFrame({card.width - buttonWidth, 0, buttonWidth, headHeight});
    hairline_->setFrame({0, headHeight - 0.5, card.width, 0.5});
    editor_->setFrame({textMargin, headHeight, card.width - 2 * textMargin,
                       std::max(0.0, card.height - headHeight - noteHeight)});
    note_->setFrame({textMargin, card.height - noteHeight, card.width - 2 * textMargin, noteHeight - 6});
}

} // namespace phone
