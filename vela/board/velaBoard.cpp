#include "vela/board/velaBoard.h"

#include "platform/media/MPUChronologicalProgressView.h"
#include "platform/plugins/DisabledPlugins.h"
#include "platform/toolkit/rendering/ImageFile.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "vela/board/velaApplicationView.h"
#include "vela/board/velaIconView.h"
#include "vela/stores/VelaSettingsManager.h"

#include <nlohmann/json.hpp>

using namespace toolkit;

namespace vela {

namespace {

std::string textUnder(const foundation::PropertyList::Dictionary& info, const char* key) {
    const auto found = info.find(key);
    const std::string* text = found == info.end() ? nullptr : found->second.string();
    return text ? *text : std::string();
}

std::shared_ptr<UILabel> makeEmptyStateLabel() {
    auto label = media::MPUChronologicalProgressView(2)._createTimeLabelWithStyle(0);
    label->setText("No application installed");
    label->setNumberOfLines(0);
    label->setBackgroundColor(Color::clear());
    label->setTextAlignment(TextAlignment::Center);
    label->setFont(Font::system(30));
    label->setUserInteractionEnabled(true);
    return label;
}

} // namespace

runtime::Class& velaBoard::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<velaBoard>("velaBoard", &UIScrollView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(velaBoard)

velaBoard::velaBoard(Rect frame) : UIScrollView(frame), noApps_(makeEmptyStateLabel()) {
    setDelegate(this);
    setScrollEnabled(true);
    setUserInteractionEnabled(true);
    setBackgroundColor(Color::clear());
    setShowsHorizontalScrollIndicator(false);
    setShowsVerticalScrollIndicator(false);
    addSubview(noApps_);
    loadApps();
}

velaBoard::~velaBoard() {
    setDelegate(nullptr);
}

void velaBoard::loadApps() {
    if (retried_ > 1)
        return;
    ++retried_;
    apps_.clear();
    const auto installed = VelaSettingsManager::sharedInstance().getVelaApps();
    if (installed)
        for (const auto& [identifier, info] : *installed)
            addApp(identifier, textUnder(info, "display_name"), textUnder(info, "icon"));
    noApps_->setHidden(!apps_.empty());
    setFrame(frame());
}

void velaBoard::addApp(const std::string& identifier, const std::string& name, const std::string& icon) {
    auto tile = std::make_shared<velaApplicationView>();
    tile->icon()->icon()->setImage(loadImageNamed(icon, UIScreen::mainScreen().scale()));
    tile->icon()->lbl()->setText(name);
    tile->setIdentifier(identifier);
    tile->setBoard(this);
    if (plugins::isDisabled(identifier))
        tile->showTurnedOff();
    addSubview(tile);
    apps_.push_back(std::move(tile));
    ++retried_;
}

double velaBoard::scaleFactor() const {
    // The tiles' states change together, so the first stands for all.
    return !apps_.empty() && apps_.front()->isOpen() ? 1.0 : mainFactor();
}

void velaBoard::setFrame(Rect frame) {
    UIScrollView::setFrame(frame);
    noApps_->setFrame(bounds());
    layOutApps();
}

void velaBoard::layOutApps() {
    const double width = frame().width, height = frame().height;
    const double scale = scaleFactor(), closed = mainFactor();
    // The cursors are kept in single precision and rounded to it at each step.
    auto current = static_cast<float>(space());
    auto resting = static_cast<float>(space());
    auto gap = static_cast<float>(space());
    if (apps_.size() == 1) {
        current = static_cast<float>((height - height * scale) / 2);
        resting = static_cast<float>((height - height * closed) / 2);
    }
    if (scale == 1.0) {
        current = static_cast<float>(contentOffset().y - indexOfOpenedApp_ * height);
        gap = 0;
    }
    for (const auto& tile : apps_) {
        tile->setFrame({(width - width * scale) / 2, current, width * scale, height * scale});
        tile->setTrasformedFrame(tile->frame());
        tile->setOriginalFrame({(width - width * closed) / 2, resting, width * closed, height * closed});
        current = static_cast<float>(static_cast<double>(current) + tile->frame().height + gap);
        resting = static_cast<float>(static_cast<double>(resting) + height * closed + space());
    }
    setContentSize({0, resting});
}

void velaBoard::scrollViewDidEndScrollingAnimation(UIScrollView&) {
    const auto index = static_cast<std::size_t>(indexOfOpenedApp_);
    if (index < apps_.size() && apps_[index]->waiting())
        apps_[index]->finishScrollingAnimation();
}

void velaBoard::describeProperties(nlohmann::json& properties) const {
    UIScrollView::describeProperties(properties);
    properties["indexOfOpenedApp"] = indexOfOpenedApp_;
    properties["retried"] = retried_;
    properties["scaleFactor"] = scaleFactor();
}

} // namespace vela
