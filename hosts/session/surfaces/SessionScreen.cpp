#include "hosts/session/surfaces/SessionScreen.h"

#include "hosts/session/surfaces/ScreenCapture.h"
#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/gestures/TouchDispatcher.h"
#include "platform/toolkit/views/TextInput.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/WindowServer.h"

#include <algorithm>
#include <cmath>

namespace session {

using toolkit::Point;
using toolkit::SeparateWindow;
using toolkit::TouchDispatcher;
using toolkit::UIScreen;
using toolkit::WindowServer;

namespace {

/// The darkest that nobody sees: one step of 255 is more.
constexpr double unseenAlpha = 0.0101;

constexpr double captureLife = 0.2; // seconds
/// How long a frame waits for a finger's next movement, which it would be too late for otherwise; seconds.
/// The rest of the frame's time must do for painting.
constexpr double patience = 0.006;

/// A finger that has gone so far is on its way; one that rests at the edge leaves the screen to others.
constexpr double coverDistance = 4; // points

double distance(Point a, Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

bool canBeTold(const SeparateWindow& shown) {
    const auto& look = shown.picture->look();
    return look.glass || !look.content.isEmpty() ||
           (look.color && look.color->alpha * look.opacity > unseenAlpha);
}

double now() {
    return foundation::RunLoop::main().now();
}

} // namespace

SessionScreen::SessionScreen(Connection& connection, Callbacks callbacks)
    : connection_(connection),
      callbacks_(std::move(callbacks)),
      pixels_(connection.globals()),
      glass_(*connection.globals().shm, connection.globals().viewporter != nullptr) {
    takeSeat();
    connection.globals().setSeatOffered([this] { takeSeat(); });
    commitHook_ =
        foundation::RunLoop::main().addTurnHook(foundation::TurnPhase::Commit, [this] { present(); });
}

SessionScreen::~SessionScreen() {
    connection_.globals().setSeatOffered({});
    cancelAllFingers();
}

/// Some compositors have no seat before there is something to touch or type with.
void SessionScreen::takeSeat() {
    auto seat = connection_.globals().bindSeat();
    if (!seat)
        return;
    cancelAllFingers(); // those of the former seat
    seat_ = std::make_unique<Seat>(std::move(seat), *this);
}

// ---- Output

void SessionScreen::setOutput(const Output* output) {
    if (output != output_) {
        takeDownStage();
        takeDownStrips();
        takeDownCover();
    }
    output_ = output;
    due_ = true;
}

void SessionScreen::setWithheld(bool withheld) {
    if (withheld == withheld_)
        return;
    withheld_ = withheld;
    due_ = true;
    if (withheld) {
        takeDownStage();
        takeDownStrips();
        takeDownCover();
        connection_.flush();
    }
}

/// The product asks for the picture to choose a panel's glass by, right before or after the glass itself
/// needs it; the compositor takes a frame's time to give it. As long as a finger is down it stays the same
/// one.
std::shared_ptr<const toolkit::Image> SessionScreen::capture() {
    if (!output_)
        return nullptr;
    const bool isOld = fingers_.empty() && now() - captureTime_ > captureLife;
    if (!captured_ || isOld) {
        captured_ = ScreenCapture::take(connection_, *output_, glass_.pixelsPerPoint());
        captureTime_ = now();
    }
    return captured_;
}

// ---- Frames

void SessionScreen::present() {
    if (!output_ || withheld_ || fingerAwaited_ || (stage_ && stage_->isBusy()))
        return;
    if (!due_ && !WindowServer::shared().needsFrame())
        return;
    due_ = false;
    // With its glass, through which the screen is seen as it was.
    if (stage_ && stage_->screen() != UIScreen::mainScreen().bounds().size())
        takeDownStage();
    // A pan begins with its panel beside the screen: from then on there is a frame's time to get it ready.
    const auto offScreen = fingers_.empty() ? toolkit::OffScreen::Ignored : toolkit::OffScreen::Prepared;
    const Windows& windows = WindowServer::shared().composeSeparately(offScreen);
    showStrips(windows);
    showStage(windows);
    connection_.flush();
}

/// While something on the stage is animated, a frame is due at once, and a finger that moves a moment later
/// would always be shown one frame late.
void SessionScreen::stageIsFree() {
    if (fingers_.empty() || !WindowServer::shared().needsFrame())
        return present();
    fingerAwaited_ = foundation::RunLoop::main().scheduleTimer(patience, false, [this] {
        fingerAwaited_.reset();
        present();
    });
}

void SessionScreen::showStrips(const Windows& windows) {
    std::map<std::uint64_t, PointRect> wanted;
    for (const SeparateWindow& shown : windows)
        if (!canBeTold(shown) && shown.window->takesTouchAt(shown.window->bounds().center()))
            wanted[shown.window->layer()->id()] = PointRect::around(shown.window->frame());
    for (auto strip = strips_.begin(); strip != strips_.end();) {
        if (wanted.contains(strip->first)) {
            ++strip;
            continue;
        }
        cancelFingersOn(strip->second.surface->surface());
        strip = strips_.erase(strip);
    }
    for (const auto& [id, frame] : wanted) {
        Strip& strip = strips_[id];
        if (!strip.surface)
            strip.surface = std::make_unique<LayerSurface>(
                connection_.globals(), pixels_, *output_, "vela-grabber",
                [&strip] { strip.surface->commit(); }, [this, id = id] { closeStrip(id); });
        if (strip.frame == frame)
            continue;
        strip.frame = frame;
        strip.surface->place(frame);
        strip.surface->setTouchable({{0, 0, frame.width, frame.height}});
        strip.surface->commit();
    }
}

/// The compositor has taken it away; another one follows with the next frame.
void SessionScreen::closeStrip(std::uint64_t id) {
    // Later, for the strip itself is calling.
    foundation::RunLoop::main().performOnMain([self = std::weak_ptr(alive_), this, id] {
        const auto strip = self.expired() ? strips_.end() : strips_.find(id);
        if (strip == strips_.end())
            return;
        cancelFingersOn(strip->second.surface->surface());
        strips_.erase(strip);
        due_ = true;
    });
}

void SessionScreen::closeStage() {
    foundation::RunLoop::main().performOnMain([self = std::weak_ptr(alive_), this] {
        if (self.expired())
            return;
        takeDownStage();
        due_ = true;
    });
}

void SessionScreen::showStage(const Windows& windows) {
    Windows seen;
    std::ranges::copy_if(windows, std::back_inserter(seen), canBeTold);
    if (seen.empty()) {
        if (fingers_.empty())
            captured_.reset();
        return takeDownStage();
    }
    if (!stage_)
        putUpStage();
    useKeyboard(seen);
    stage_->show(seen);
}

void SessionScreen::putUpStage() {
    const toolkit::Size screen = UIScreen::mainScreen().bounds().size();
    // Before anything of the product's can be on it.
    glass_.setScene(capture(), screen);
    stage_ = std::make_unique<Stage>(connection_.globals(), pixels_, glass_, *output_, screen,
                                     Stage::Callbacks{[this] { stageIsFree(); }, [this] { closeStage(); }});
    callbacks_.seen(true);
}

void SessionScreen::takeDownStage() {
    if (!stage_)
        return;
    cancelFingersOn(stage_->surface());
    // What is typed into goes with it, and would take text out of sight the next time.
    if (auto* input = toolkit::TextInput::current())
        input->resignFirstResponder();
    stage_.reset();
    glass_.clear();
    captured_.reset();
    if (keyboardUse_ != KeyboardUse::None) {
        keyboardUse_ = KeyboardUse::None;
        callbacks_.keyboardTaken(false);
    }
    callbacks_.seen(false);
}

void SessionScreen::takeDownStrips() {
    for (const auto& [id, strip] : strips_)
        cancelFingersOn(strip.surface->surface());
    strips_.clear();
}

/// The stage takes the keyboard while a panel stands open, and not before: until then a pan may come to
/// nothing.
void SessionScreen::useKeyboard(const Windows& windows) {
    const bool open = fingers_.empty() && std::ranges::any_of(windows, [](const SeparateWindow& shown) {
                          return shown.window->takesTouchAt(shown.window->bounds().center());
                      });
    const bool held = keyboardUse_ == KeyboardUse::Exclusive && !fingers_.empty();
    const KeyboardUse use = open || held ? KeyboardUse::Exclusive : KeyboardUse::None;
    if (use != keyboardUse_)
        callbacks_.keyboardTaken(use == KeyboardUse::Exclusive);
    keyboardUse_ = use;
    stage_->setKeyboardUse(use);
}

// ---- Fingers and keys

std::optional<Point> SessionScreen::originOf(wl_surface* surface) const {
    if ((stage_ && stage_->surface() == surface) || (cover_ && cover_->surface() == surface))
        return Point{0, 0};
    for (const auto& [id, strip] : strips_)
        if (strip.surface->surface() == surface)
            return strip.frame.rect().origin();
    return std::nullopt;
}

double SessionScreen::timeOf(std::uint32_t milliseconds, bool isFirst) {
    return clock_.timeOf(milliseconds, now(), isFirst);
}

void SessionScreen::fingerDown(std::int64_t finger, wl_surface* surface, Point point, std::uint32_t time) {
    const auto origin = originOf(surface);
    if (!origin)
        return;
    const double seconds = timeOf(time, fingers_.empty());
    if (fingers_.empty())
        captured_.reset(); // what another touch has found
    if (!stage_)
        capture(); // which a pan is about to need, and has no time for
    const Point place{point.x + origin->x, point.y + origin->y};
    fingers_[finger] = {surface, *origin, place, place};
    TouchDispatcher::shared().touchDown(finger, place, seconds);
}

void SessionScreen::fingerMoved(std::int64_t finger, Point point, std::uint32_t time) {
    const auto found = fingers_.find(finger);
    if (found == fingers_.end())
        return;
    fingerAwaited_.reset();
    Finger& moved = found->second;
    if (finger == pointerFinger) {
        moved.last = {point.x + moved.origin.x, point.y + moved.origin.y};
    } else {
        moved.last = read(moved, point);
        if (distance(moved.last, moved.start) >= coverDistance)
            putUpCover();
    }
    TouchDispatcher::shared().touchMove(finger, moved.last, timeOf(time, false));
}

/// A point of the finger's own surface, of one that covers the screen, or of a strip.
Point SessionScreen::read(const Finger& finger, Point point) const {
    Point nearest{point.x + finger.origin.x, point.y + finger.origin.y};
    const auto consider = [&](Point place) {
        if (distance(place, finger.last) < distance(nearest, finger.last))
            nearest = place;
    };
    consider(point);
    for (const auto& [id, strip] : strips_) {
        const toolkit::Rect frame = strip.frame.rect();
        const Point place{point.x + frame.x, point.y + frame.y};
        if (frame.contains(place))
            consider(place);
    }
    return nearest;
}

void SessionScreen::fingerUp(std::int64_t finger, std::uint32_t time) {
    if (fingers_.erase(finger) == 0)
        return;
    noteFingerGone();
    TouchDispatcher::shared().touchUp(finger, timeOf(time, false));
}

void SessionScreen::fingerCancelled(std::int64_t finger) {
    if (fingers_.erase(finger) == 0)
        return;
    noteFingerGone();
    TouchDispatcher::shared().touchCancel(finger, now());
}

void SessionScreen::noteFingerGone() {
    due_ = true; // the keyboard waits for the last finger
    fingerAwaited_.reset();
    if (fingers_.empty())
        takeDownCover();
}

void SessionScreen::cancelFingers(const std::function<bool(wl_surface*)>& isOn) {
    std::vector<std::int64_t> cancelled;
    for (const auto& [finger, touched] : fingers_)
        if (isOn(touched.surface))
            cancelled.push_back(finger);
    for (const std::int64_t finger : cancelled)
        fingerCancelled(finger);
}

void SessionScreen::cancelAllFingers() {
    cancelFingers([](wl_surface*) { return true; });
}

void SessionScreen::cancelFingersOn(const wl_surface* surface) {
    cancelFingers([surface](wl_surface* touched) { return touched == surface; });
}

void SessionScreen::putUpCover() {
    if (cover_ || !output_)
        return;
    const PointRect screen = PointRect::around(UIScreen::mainScreen().bounds());
    cover_ = std::make_unique<LayerSurface>(
        connection_.globals(), pixels_, *output_, "vela-touch", [this] { cover_->commit(); },
        [this] {
            // Later, for the cover itself is calling.
            foundation::RunLoop::main().performOnMain([self = std::weak_ptr(alive_), this] {
                if (!self.expired())
                    takeDownCover();
            });
        });
    cover_->place(screen);
    cover_->setTouchable({screen});
    cover_->commit();
    connection_.flush();
}

void SessionScreen::takeDownCover() {
    // Out of the way first: with the last finger on it this is called again.
    if (const auto cover = std::move(cover_))
        cancelFingersOn(cover->surface());
}

void SessionScreen::keyPressed(Key key, const std::string& text) {
    toolkit::TextInput* input = toolkit::TextInput::current();
    if (!input) {
        if (key == Key::Escape)
            callbacks_.escapePressed();
        return;
    }
    switch (key) {
    case Key::Escape:
        return input->resignFirstResponder(); // as the phone's keyboard does when it is put away
    case Key::Backspace:
        return input->deleteBackward();
    case Key::Text:
        return input->insertText(text);
    }
}

} // namespace session
