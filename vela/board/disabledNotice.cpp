#include "vela/board/disabledNotice.h"

#include "platform/media/MPUChronologicalProgressView.h"
#include "platform/plugins/DisabledPlugins.h"

using namespace toolkit;

namespace vela {

namespace {

constexpr double margin = 24; // points
constexpr double buttonHeight = 44;
constexpr double buttonPadding = 24; // at either side of the title

} // namespace

runtime::Class& disabledNotice::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<disabledNotice>("disabledNotice", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(disabledNotice)

disabledNotice::disabledNotice(std::string identifier, std::function<void()> enabled)
    : identifier_(std::move(identifier)),
      enabled_(std::move(enabled)),
      message_(media::MPUChronologicalProgressView(2)._createTimeLabelWithStyle(0)),
      button_(std::make_shared<UIButton>()) {
    message_->setText("This application stopped the phone and has been turned off.");
    message_->setFont(Font::system(17));
    message_->setNumberOfLines(0);
    message_->setTextAlignment(TextAlignment::Center);
    addSubview(message_);
    button_->setTitle("Turn on again");
    button_->titleLabel()->setTextColor(Color::white(1));
    button_->setBackgroundColor(Color::black().withAlpha(0.35));
    button_->layer()->setCornerRadius(10);
    button_->addHandler(ControlEvent::TouchUpInside, [this] { turnOn(); });
    addSubview(button_);
}

void disabledNotice::turnOn() {
    // The handler takes this view away.
    const auto enabled = enabled_;
    if (plugins::enable(identifier_) && enabled)
        enabled();
}

void disabledNotice::layoutSubviews() {
    const Size size = bounds().size();
    const double width = std::max(0.0, size.width - 2 * margin);
    const double textHeight = message_->sizeThatFits({width, size.height}).height;
    const double top = std::max(0.0, (size.height - textHeight - margin - buttonHeight) / 2);
    message_->setFrame({margin, top, width, textHeight});
    const double buttonWidth =
        std::min(width, button_->sizeThatFits({width, buttonHeight}).width + 2 * buttonPadding);
    button_->setFrame({(size.width - buttonWidth) / 2, top + textHeight + margin, buttonWidth, buttonHeight});
}

} // namespace vela
