#include "hosts/phone/applications/StationForm.h"

#include "hosts/phone/music/RadioStations.h"
#include "hosts/phone/screens/Labels.h"

using namespace toolkit;

namespace phone {

namespace {

constexpr double rowHeight = 46; // points
constexpr double labelWidth = 84;
constexpr double margin = 16;
const char* const advice = "The address is that of the stream itself, as the station gives it for players.";

} // namespace

runtime::Class& StationForm::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<StationForm>("StationForm", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(StationForm)

StationForm::StationForm()
    : card_(std::make_shared<UIView>()),
      hairline_(std::make_shared<UIView>()),
      nameLabel_(makeLabel("Name", Font::system(16), Color::black())),
      addressLabel_(makeLabel("Address", Font::system(16), Color::black())),
      name_(std::make_shared<UITextField>()),
      address_(std::make_shared<UITextField>()),
      hint_(makeLabel(advice, Font::system(13), Color::white(0.45))) {
    setBackgroundColor(Color::rgba(0.937, 0.937, 0.957));
    card_->setBackgroundColor(Color::white(1));
    hairline_->setBackgroundColor(Color::white(0.82));
    name_->setPlaceholder("Night Music");
    address_->setPlaceholder("http://");
    for (const auto& field : {name_, address_}) {
        field->setFont(Font::system(16));
        field->setTextColor(Color::black());
    }
    hint_->setNumberOfLines(0);
    for (const std::shared_ptr<UIView>& part : std::initializer_list<std::shared_ptr<UIView>>{
             card_, hairline_, nameLabel_, addressLabel_, name_, address_, hint_})
        addSubview(part);
}

void StationForm::begin() {
    name_->setText("");
    address_->setText("");
    hint_->setText(advice);
    hint_->setTextColor(Color::white(0.45));
    name_->becomeFirstResponder();
}

void StationForm::end() {
    for (const auto& field : {name_, address_})
        if (field->isEditing())
            field->resignFirstResponder();
}

std::optional<RadioStation> StationForm::station() {
    const auto entered = RadioStations::fromInput(name_->text(), address_->text());
    if (!entered)
        complain("This is not the address of a stream: it begins with http:// or https://.");
    return entered;
}

void StationForm::complain(const std::string& reason) {
    hint_->setText(reason);
    hint_->setTextColor(Color::rgba(0.85, 0.16, 0.14));
    setNeedsLayout();
}

void StationForm::layoutSubviews() {
    const double width = bounds().width;
    constexpr double top = 24;
    card_->setFrame({0, top, width, 2 * rowHeight});
    hairline_->setFrame({margin, top + rowHeight, width - margin, 0.5});
    double y = top;
    for (const auto& [label, field] : {std::pair{nameLabel_, name_}, std::pair{addressLabel_, address_}}) {
        label->setFrame({margin, y, labelWidth, rowHeight});
        field->setFrame({margin + labelWidth, y, width - 2 * margin - labelWidth, rowHeight});
        y += rowHeight;
    }
    const double hintWidth = width - 2 * margin;
    hint_->setFrame({margin, y + 10, hintWidth, hint_->sizeThatFits({hintWidth, 0}).height});
}

} // namespace phone
