// The home screen: wallpaper, the day, the month, the page of icons and the dock.
#pragma once

#include "hosts/phone/WallClock.h"
#include "hosts/phone/screens/Dock.h"
#include "hosts/phone/screens/MonthView.h"
#include "platform/toolkit/views/UIImageView.h"

namespace phone {

class HomeScreen : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    HomeScreen(std::shared_ptr<const toolkit::Image> wallpaper, toolkit::Size iconSize, WallClock& clock);

    void addPageIcon(std::shared_ptr<HomeIcon> icon);
    void addDockIcon(std::shared_ptr<HomeIcon> icon);
    /// The icon of an application, or null.
    HomeIcon* icon(const std::string& bundleIdentifier) const;

    void layoutSubviews() override;

private:
    void showDay();
    /// Lays the day's name and date out from `top` and answers where they end.
    double layoutDay(double top, double scale);

    WallClock& clock_;
    toolkit::Size iconSize_;
    std::shared_ptr<toolkit::UIImageView> wallpaper_;
    std::shared_ptr<toolkit::UILabel> weekday_;
    std::shared_ptr<toolkit::UILabel> day_;
    std::shared_ptr<toolkit::UIView> card_;
    std::shared_ptr<MonthView> month_;
    std::shared_ptr<Dock> dock_;
    std::vector<std::shared_ptr<HomeIcon>> pageIcons_;
    foundation::Handle minute_;
};

} // namespace phone
