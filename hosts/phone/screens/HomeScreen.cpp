#include "hosts/phone/screens/HomeScreen.h"

#include "hosts/phone/screens/Labels.h"
#include "hosts/phone/screens/StatusBar.h"

#include <cmath>

using namespace toolkit;

namespace phone {

namespace {

constexpr double designHeight = 667; // points; the vertical measures below are those of this screen
constexpr double cardInset = 14;
constexpr double columns = 4; // of icons

} // namespace

runtime::Class& HomeScreen::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<HomeScreen>("HomeScreen", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(HomeScreen)

HomeScreen::HomeScreen(std::shared_ptr<const Image> wallpaper, Size iconSize, WallClock& clock)
    : clock_(clock),
      iconSize_(iconSize),
      wallpaper_(std::make_shared<UIImageView>(Rect(), std::move(wallpaper))),
      weekday_(makeLabel("", Font::system(46, FontWeight::Thin), Color::white(1), TextAlignment::Center)),
      day_(makeLabel("", Font::system(20), Color::white(1, 0.9), TextAlignment::Center)),
      card_(std::make_shared<UIView>()),
      month_(std::make_shared<MonthView>(MonthViewStyle::OnWallpaper)),
      dock_(std::make_shared<Dock>()) {
    setBackgroundColor(Color::black());
    wallpaper_->setContentMode(ContentGravity::AspectFill);
    setClipsToBounds(true);
    card_->setBackgroundColor(Color::rgba(0.06, 0.05, 0.20, 0.26));
    card_->layer()->setCornerRadius(16);
    card_->setUserInteractionEnabled(false);
    card_->addSubview(month_);
    for (const std::shared_ptr<UIView>& view :
         {std::shared_ptr<UIView>(wallpaper_), std::shared_ptr<UIView>(weekday_),
          std::shared_ptr<UIView>(day_), card_, std::shared_ptr<UIView>(dock_)})
        addSubview(view);
    showDay();
    minute_ = clock_.addMinuteObserver([this] { showDay(); });
}

void HomeScreen::addPageIcon(std::shared_ptr<HomeIcon> icon) {
    pageIcons_.push_back(icon);
    addSubview(icon);
}

void HomeScreen::addDockIcon(std::shared_ptr<HomeIcon> icon) {
    dock_->addIcon(std::move(icon));
}

HomeIcon* HomeScreen::icon(const std::string& bundleIdentifier) const {
    for (const auto* icons : {&pageIcons_, &dock_->icons()})
        for (const auto& each : *icons)
            if (each->bundleIdentifier() == bundleIdentifier)
                return each.get();
    return nullptr;
}

void HomeScreen::showDay() {
    const std::tm today = clock_.local();
    const std::string weekday = WallClock::weekdayText(today);
    if (weekday == weekday_->text() && day_->text() == WallClock::dayText(today))
        return;
    weekday_->setText(weekday);
    day_->setText(WallClock::dayText(today));
    month_->setMonth(today.tm_year + 1900, today.tm_mon, today.tm_mday);
}

void HomeScreen::layoutSubviews() {
    const Size size = bounds().size();
    const double scale = std::min(size.height / designHeight, 1.35);
    wallpaper_->setFrame({0, 0, size.width, size.height});
    const double dockHeight = Dock::heightFor(iconSize_);
    dock_->setFrame({0, size.height - dockHeight, size.width, dockHeight});

    const double gap = (size.width - columns * iconSize_.width) / (columns + 1);
    const double cardWidth = std::min(size.width - 2 * gap, 600.0);
    const Rect card{(size.width - cardWidth) / 2,
                    layoutDay(StatusBar::height + 14 * scale, scale) + 16 * scale, cardWidth, 252 * scale};
    card_->setFrame(card);
    month_->setFrame(Rect{0, 0, card.width, card.height}.insetBy(cardInset, cardInset * 0.7));

    const double rowHeight = iconSize_.height + HomeIcon::labelGap + HomeIcon::labelHeight;
    double x = card.x; // the icons keep to the card's width
    for (const auto& icon : pageIcons_) {
        icon->setFrame({x, card.maxY() + 28 * scale, iconSize_.width, rowHeight});
        x += iconSize_.width + (card.width - columns * iconSize_.width) / (columns - 1);
    }
}

double HomeScreen::layoutDay(double top, double scale) {
    const double width = bounds().width;
    weekday_->setFont(Font::system(std::round(46 * scale), FontWeight::Thin));
    day_->setFont(Font::system(std::round(20 * scale)));
    const double weekdayHeight = weekday_->sizeThatFits({width, 0}).height;
    const double dayHeight = day_->sizeThatFits({width, 0}).height;
    weekday_->setFrame({0, top, width, weekdayHeight});
    day_->setFrame({0, top + weekdayHeight, width, dayHeight});
    return top + weekdayHeight + dayHeight;
}

} // namespace phone
