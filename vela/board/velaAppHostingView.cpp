#include "vela/board/velaAppHostingView.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/media/MPUChronologicalProgressView.h"
#include "platform/plugins/Bundle.h"
#include "platform/plugins/DisabledPlugins.h"
#include "platform/runtime/Message.h"
#include "platform/toolkit/gestures/UITapGestureRecognizer.h"
#include "platform/toolkit/windows/UIApplication.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/UIWindow.h"
#include "vela/board/disabledNotice.h"
#include "vela/board/velaApplicationView.h"
#include "vela/board/velaBoard.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/stores/VelaSettingsManager.h"

#include <nlohmann/json.hpp>

#include <utility>

using namespace toolkit;

namespace vela {

namespace {

constexpr double titleTop = 20; // points
constexpr double titleGap = 10;
constexpr const char* turnedCoordinatesVersion = "9.3.3";

} // namespace

runtime::Class& velaAppHostingView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<velaAppHostingView>("velaAppHostingView", &UIView::staticClass())
            .action("handlePan:", &velaAppHostingView::handlePan)
            .method("tapLabel", &velaAppHostingView::tapLabel)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(velaAppHostingView)

velaAppHostingView::velaAppHostingView(std::string identifier) : identifier_(std::move(identifier)) {
    UIView::setUserInteractionEnabled(true);
    UIView::setBackgroundColor(Color::clear());
    makeTitle();
    loadPlugIn();
}

void velaAppHostingView::makeTitle() {
    label_ = media::MPUChronologicalProgressView(2)._createTimeLabelWithStyle(0);
    label_->setUserInteractionEnabled(true);
    label_->setFont(Font::system(38));
    label_->setTextAlignment(TextAlignment::Center);
    auto pan = std::make_shared<UIPanGestureRecognizer>(this, "handlePan:");
    pan->setDelegate(this, this);
    label_->addGestureRecognizer(pan);
    label_->addGestureRecognizer(std::make_shared<UITapGestureRecognizer>(this, "tapLabel"));
    addSubview(label_);
}

void velaAppHostingView::loadPlugIn() {
    const auto path = VelaSettingsManager::sharedInstance().getBundlePathByIdentifier(identifier_);
    const bool exists = path && foundation::FileManager::shared().fileExists(*path);
    const auto bundle = exists ? plugins::Bundle::open(*path) : nullptr;
    if (!bundle) {
        foundation::log("Couldn't load bundle in " + path.value_or("(null)"));
        if (plugins::isDisabled(identifier_))
            showDisabledNotice();
        return;
    }
    bundleView_ = bundle->makePrincipalView();
    observation_ = foundation::NotificationCenter::defaultCenter().addObserver(
        leftWindowGrabber::notificationName,
        [this](const foundation::Notification& notification) { velaNotification(notification); });
    if (!bundleView_)
        return;
    bundleView_->setUserInteractionEnabled(true);
    bundleView_->setBackgroundColor(Color::clear());
    addSubview(bundleView_);
}

void velaAppHostingView::setAppView(velaApplicationView* appView) {
    appView_ = appView;
}

void velaAppHostingView::setUserInteractionEnabled(bool) {
    UIView::setUserInteractionEnabled(true);
}

void velaAppHostingView::setBackgroundColor(std::optional<Color>) {
    UIView::setBackgroundColor(Color::clear());
}

void velaAppHostingView::setFrame(Rect frame) {
    UIView::setFrame(frame);
    label_->sizeToFit();
    label_->setFrame({0, titleTop, frame.width, label_->frame().height});
    layOutContent();
}

void velaAppHostingView::layOutContent() {
    const Size size = bounds().size();
    const double top = label_->frame().maxY() + titleGap;
    for (const auto& content : {bundleView_, disabledNotice_})
        if (content)
            content->setFrame({0, top, size.width, size.height - top});
}

void velaAppHostingView::showDisabledNotice() {
    disabledNotice_ = std::make_shared<disabledNotice>(identifier_, [this] {
        const auto notice = std::exchange(disabledNotice_, nullptr);
        notice->removeFromSuperview();
        loadPlugIn();
        layOutContent();
        appBecomeActive();
    });
    addSubview(disabledNotice_);
}

void velaAppHostingView::forward(runtime::Selector method) {
    if (!bundleView_ || !runtime::respondsTo(*bundleView_, method))
        return;
    const runtime::Message<void()> message(method);
    message(*bundleView_);
}

void velaAppHostingView::velaNotification(const foundation::Notification& notification) {
    const auto& name = notification.object["name"];
    if (name.equals("invoked"))
        velaInvoked();
    else if (name.equals("dismissed"))
        velaDismissed();
}

bool velaAppHostingView::needsReverse() const {
    const auto& version = foundation::ProcessInfo::shared().systemVersion;
    if (foundation::compareVersionsNumerically(version, turnedCoordinatesVersion) < 0)
        return false;
    const UIView* board = superview() ? superview()->superview() : nullptr;
    const double height = board ? board->frame().height : 0;
    return height != UIScreen::mainScreen().bounds().height;
}

float velaAppHostingView::fingerPosition(const UIPanGestureRecognizer& pan) const {
    const auto* application = UIApplication::sharedApplication();
    const Point position = pan.locationInView(application ? application->keyWindow() : nullptr);
    return static_cast<float>(needsReverse() ? position.x : position.y);
}

/// How far the drag has come from the open position (0) to the tile's closed one (1).
float velaAppHostingView::progress() const {
    const double way = appView_->originalFrame().y - appView_->board()->contentOffset().y;
    const auto part = static_cast<float>(static_cast<double>(last_ - first_) / way);
    // Written so that 0 / 0, a tile that need not move at all, counts as closed.
    const float atMostOne = part < 1 ? part : 1;
    return atMostOne > 0 ? atMostOne : 0;
}

void velaAppHostingView::handlePan(UIGestureRecognizer& recognizer) {
    const auto* pan = dynamic_cast<UIPanGestureRecognizer*>(&recognizer);
    if (!pan || !appView_ || !appView_->board())
        return;
    if (pan->state() == GestureState::Began) {
        appWillEnterBackground();
        first_ = fingerPosition(*pan);
    }
    last_ = fingerPosition(*pan);
    const float part = progress();
    if (pan->state() == GestureState::Began || pan->state() == GestureState::Changed)
        follow(part);
    else
        finish(part);
}

void velaAppHostingView::follow(float part) {
    for (const auto& tile : appView_->board()->apps()) {
        tile->followClosing(part);
        if (tile->hostingView().get() == this)
            setAlpha(1 - part);
    }
}

void velaAppHostingView::finish(float part) {
    const auto tiles = appView_->board()->apps();
    for (const auto& tile : tiles) {
        if (part <= 0.5f) {
            appBecomeActive();
            tile->openOpenedApp();
        } else {
            appDidEnterBackground();
            tile->closeOpenedApp();
        }
    }
}

void velaAppHostingView::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["identifier"] = identifier_;
    properties["first"] = first_;
    properties["last"] = last_;
}

} // namespace vela
