#include "hosts/phone/applications/SettingsView.h"

#include "hosts/phone/screens/Labels.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/toolkit/windows/UIScreen.h"

#include <cmath>
#include <cstdio>
#include <filesystem>

using namespace toolkit;

namespace phone {

namespace {

constexpr double rowHeight = 44; // points

/// "12.3 GB".
std::string bytesText(std::uintmax_t bytes) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f GB", static_cast<double>(bytes) / 1e9);
    return text;
}

std::string screenText() {
    const UIScreen& screen = UIScreen::mainScreen();
    char text[64];
    std::snprintf(text, sizeof text, "%.0f × %.0f at %g×", screen.bounds().width, screen.bounds().height,
                  screen.scale());
    return text;
}

} // namespace

/// A name on the left and its value on the right.
class SettingsView::Row : public UIView {
public:
    explicit Row(const std::string& name)
        : name_(makeLabel(name, Font::system(17), Color::black())),
          value_(makeLabel("", Font::system(17), Color::white(0.53), TextAlignment::Right)),
          hairline_(std::make_shared<UIView>()) {
        hairline_->setBackgroundColor(Color::white(0.80));
        addSubview(name_);
        addSubview(value_);
        addSubview(hairline_);
    }
    void setValue(const std::string& value) {
        value_->setText(value);
        setNeedsLayout();
    }
    void setLast(bool last) { hairline_->setHidden(last); }
    void layoutSubviews() override {
        const Size size = bounds().size();
        const double nameWidth = std::min(size.width * 0.55, name_->sizeThatFits(size).width + 2);
        name_->setFrame({16, 0, nameWidth, size.height});
        value_->setFrame({16 + nameWidth + 8, 0, size.width - nameWidth - 40, size.height});
        hairline_->setFrame({16, size.height - 0.5, size.width - 16, 0.5});
    }

private:
    std::shared_ptr<UILabel> name_;
    std::shared_ptr<UILabel> value_;
    std::shared_ptr<UIView> hairline_;
};

runtime::Class& SettingsView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<SettingsView>("SettingsView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SettingsView)

SettingsView::SettingsView()
    : bar_(
          std::make_shared<NavigationBar>("Settings", NavigationBarStyle::Light, Color::rgba(0, 0.46, 0.95))),
      page_(std::make_shared<UIScrollView>()) {
    setBackgroundColor(Color::rgba(0.937, 0.937, 0.957));
    addSubview(page_);
    addSubview(bar_);
    addGroup("THIS PHONE", {"Name", "Model", "System Version"});
    addGroup("DISPLAY", {"Screen", "Pixels"});
    addGroup("STORAGE", {"Capacity", "Available"});
    refresh();
}

void SettingsView::addGroup(const std::string& header, const std::vector<std::string>& names) {
    Group group{makeLabel(header, Font::system(13), Color::white(0.43)), std::make_shared<UIView>(), {}};
    group.card->setBackgroundColor(Color::white(1));
    for (const std::string& name : names) {
        group.rows.push_back(std::make_shared<Row>(name));
        group.card->addSubview(group.rows.back());
    }
    group.rows.back()->setLast(true);
    page_->addSubview(group.header);
    page_->addSubview(group.card);
    groups_.push_back(std::move(group));
}

void SettingsView::setValue(std::size_t group, std::size_t row, const std::string& value) {
    groups_[group].rows[row]->setValue(value);
}

void SettingsView::refresh() {
    const auto& process = foundation::ProcessInfo::shared();
    setValue(0, 0, "Vela");
    setValue(0, 1, process.deviceModel);
    setValue(0, 2, process.systemVersion);
    const UIScreen& screen = UIScreen::mainScreen();
    setValue(1, 0, screenText());
    setValue(1, 1,
             std::to_string(std::lround(screen.bounds().width * screen.scale())) + " × " +
                 std::to_string(std::lround(screen.bounds().height * screen.scale())));
    std::error_code error;
    const auto space = std::filesystem::space(foundation::FileManager::shared().deviceRoot(), error);
    setValue(2, 0, error ? "Unknown" : bytesText(space.capacity));
    setValue(2, 1, error ? "Unknown" : bytesText(space.available));
}

void SettingsView::layoutSubviews() {
    const Size size = bounds().size();
    const double top = NavigationBar::heightFor(size);
    bar_->setFrame({0, 0, size.width, top});
    page_->setFrame({0, top, size.width, size.height - top});
    const bool inset = size.width > 500;
    const double width = inset ? std::min(size.width - 80, 640.0) : size.width,
                 left = (size.width - width) / 2;
    double y = 22;
    for (const Group& group : groups_) {
        group.header->setFrame({left + 16, y, width - 32, 18});
        y += 26;
        const double height = rowHeight * static_cast<double>(group.rows.size());
        group.card->setFrame({left, y, width, height});
        group.card->layer()->setCornerRadius(inset ? 8 : 0);
        double rowTop = 0;
        for (const auto& row : group.rows) {
            row->setFrame({0, rowTop, width, rowHeight});
            rowTop += rowHeight;
        }
        y += height + 26;
    }
    page_->setContentSize({size.width, y});
}

} // namespace phone
