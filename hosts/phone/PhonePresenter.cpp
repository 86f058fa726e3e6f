#include "hosts/phone/PhonePresenter.h"

#include "hosts/applications/IconArtwork.h"
#include "hosts/device/MessagePage.h"
#include "hosts/phone/screens/ComposeSheet.h"
#include "hosts/phone/screens/ScreenController.h"
#include "platform/preferences/SLComposeViewController.h"
#include "platform/toolkit/windows/UIScreen.h"

#include <algorithm>

using namespace toolkit;
using preferences::SLComposeViewController;

namespace phone {

namespace {

constexpr double fadeDuration = 0.3; // seconds

} // namespace

PhonePresenter::PhonePresenter(OutsideWorld outside, const ApplicationStage& stage)
    : outside_(std::move(outside)), stage_(stage) {
    setCurrent(this);
}

PhonePresenter::~PhonePresenter() {
    if (current() == this)
        setCurrent(nullptr);
}

void PhonePresenter::fitScreen() {
    if (!window_)
        return;
    window_->fitScreen();
    for (const Presented& each : presented_)
        each.view->setFrame(UIScreen::mainScreen().bounds());
}

// Presenting

void PhonePresenter::present(const std::shared_ptr<UIViewController>& controller, bool animated,
                             std::function<void()> completion) {
    if (!window_) {
        window_ = std::make_shared<SystemWindow>(levels::presented, WindowSecurity::BehindLockScreen);
        window_->setRootViewController(
            std::make_shared<ScreenController>(std::make_shared<UIView>(), orientationMaskAll));
    }
    const auto sheet = std::dynamic_pointer_cast<SLComposeViewController>(controller);
    const auto view = sheet ? composeSheet(sheet) : controller->view();
    presented_.push_back({controller, view});
    view->setFrame(UIScreen::mainScreen().bounds());
    window_->rootViewController()->view()->addSubview(view);
    window_->fitScreen();
    window_->setHidden(false);
    view->layoutIfNeeded();
    view->setAlpha(0);
    fade({view}, 1, animated, std::move(completion));
    if (const auto writing = std::dynamic_pointer_cast<ComposeSheet>(view))
        writing->beginWriting();
}

void PhonePresenter::dismiss(UIViewController& controller, bool animated, std::function<void()> completion) {
    const auto first = std::find_if(presented_.begin(), presented_.end(), [&](const Presented& each) {
        return each.controller.get() == &controller;
    });
    std::vector<Presented> leaving(first, presented_.end());
    presented_.erase(first, presented_.end());
    if (leaving.empty()) {
        if (completion)
            completion();
        return;
    }
    std::vector<std::shared_ptr<UIView>> views;
    for (const Presented& each : leaving)
        views.push_back(each.view);
    fade(views, 0, animated, [window = window_, leaving, completion = std::move(completion)] {
        for (const Presented& each : leaving)
            each.view->removeFromSuperview();
        if (window->rootViewController()->view()->subviews().empty())
            window->setHidden(true);
        if (completion)
            completion();
    });
}

void PhonePresenter::fade(const std::vector<std::shared_ptr<UIView>>& views, double alpha, bool animated,
                          std::function<void()> completion) {
    UIView::animate(
        animated ? fadeDuration : 0, 0, AnimationCurve::EaseInOut,
        [&] {
            for (const auto& view : views)
                view->setAlpha(alpha);
        },
        [completion = std::move(completion)](bool) {
            if (completion)
                completion();
        });
}

// Messages

std::shared_ptr<UIView>
PhonePresenter::composeSheet(const std::shared_ptr<SLComposeViewController>& controller) {
    const std::weak_ptr weak(controller);
    const auto complete = [weak](SLComposeViewController::Result result) {
        if (const auto completed = weak.lock())
            completed->complete(result);
    };
    ComposeSheet::Answers answers;
    answers.cancelled = [complete] { complete(SLComposeViewController::Result::Cancelled); };
    answers.posted = [this, complete](const std::string& text) {
        post(text);
        complete(SLComposeViewController::Result::Done);
    };
    return std::make_shared<ComposeSheet>(controller->initialText(), std::move(answers));
}

void PhonePresenter::post(const std::string& message) {
    if (const auto page = device::messagePage(message))
        openUrl(*page);
}

// The world outside

bool PhonePresenter::canOpenUrl(const std::string& url) {
    return !outside_.canOpen || outside_.canOpen(url);
}

void PhonePresenter::openUrl(const std::string& url) {
    openedAddresses_.push_back(url);
    if (outside_.open)
        outside_.open(url);
}

// Applications

std::map<std::string, std::string> PhonePresenter::applications() {
    std::map<std::string, std::string> names;
    for (const auto& application : stage_.applications())
        names[application->bundleIdentifier()] = application->displayName();
    return names;
}

std::shared_ptr<const Image> PhonePresenter::applicationIcon(const std::string& bundleIdentifier,
                                                             double points) {
    for (const auto& application : stage_.applications())
        if (application->bundleIdentifier() == bundleIdentifier)
            return ::applications::drawIcon(application->description().entry.icon, points,
                                            UIScreen::mainScreen().scale());
    return nullptr;
}

} // namespace phone
