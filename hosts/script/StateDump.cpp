#include "hosts/script/StateDump.h"

#include "platform/foundation/Log.h"
#include "platform/foundation/RunLoop.h"
#include "platform/media/MPUNowPlayingController.h"
#include "platform/plugins/CallRecord.h"
#include "platform/toolkit/scrolling/UIScrollView.h"
#include "platform/toolkit/views/UIButton.h"
#include "platform/toolkit/views/UITextField.h"
#include "platform/toolkit/views/UITextView.h"
#include "platform/toolkit/views/UIVisualEffectView.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/WindowServer.h"

#include <glib.h>

#include <memory>

namespace script {

namespace {

using nlohmann::json;

json describe(const toolkit::Point& point) {
    return {point.x, point.y};
}

json describe(const toolkit::Size& size) {
    return {size.width, size.height};
}

json describe(const toolkit::Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

json describe(const toolkit::Color& color) {
    return {color.red, color.green, color.blue, color.alpha};
}

json describe(const toolkit::AffineTransform& map) {
    return {map.a, map.b, map.c, map.d, map.tx, map.ty};
}

json describe(const toolkit::EdgeInsets& insets) {
    return {insets.top, insets.left, insets.bottom, insets.right};
}

json describeEffect(const std::optional<toolkit::VisualEffect>& effect) {
    if (!effect)
        return nullptr;
    const std::string style = effect->style == toolkit::BlurEffectStyle::Dark ? "dark" : "light";
    return effect->kind == toolkit::VisualEffect::Kind::Vibrancy ? "vibrancy-" + style : style;
}

void describeText(const toolkit::UIView& view, json& fields) {
    if (const auto* label = dynamic_cast<const toolkit::UILabel*>(&view)) {
        fields["text"] = label->text();
        fields["fontSize"] = label->font().size;
    } else if (const auto* button = dynamic_cast<const toolkit::UIButton*>(&view)) {
        fields["text"] = button->title();
        fields["fontSize"] = button->titleLabel()->font().size;
    } else if (const auto* textView = dynamic_cast<const toolkit::UITextView*>(&view)) {
        fields["text"] = textView->text();
        fields["fontSize"] = textView->font().size;
    } else if (const auto* textField = dynamic_cast<const toolkit::UITextField*>(&view)) {
        fields["text"] = textField->text();
        fields["fontSize"] = textField->font().size;
    }
}

void describeKind(const toolkit::UIView& view, json& fields) {
    if (const auto* window = dynamic_cast<const toolkit::UIWindow*>(&view))
        fields["level"] = window->windowLevel();
    if (const auto* imageView = dynamic_cast<const toolkit::UIImageView*>(&view))
        fields["image"] = imageView->image() ? describe(imageView->image()->size()) : json(nullptr);
    if (const auto* effectView = dynamic_cast<const toolkit::UIVisualEffectView*>(&view))
        fields["effect"] = describeEffect(effectView->effect());
    if (const auto* scrollView = dynamic_cast<const toolkit::UIScrollView*>(&view)) {
        fields["contentOffset"] = describe(scrollView->contentOffset());
        fields["contentSize"] = describe(scrollView->contentSize());
        fields["contentInset"] = describe(scrollView->contentInset());
    }
}

json describePresentation(const toolkit::Layer& layer) {
    const auto bounds = std::get<toolkit::Rect>(layer.presented(toolkit::LayerProperty::Bounds));
    return {{"frame", describe(layer.presentedToParent().apply(bounds))},
            {"alpha", std::get<double>(layer.presented(toolkit::LayerProperty::Opacity))}};
}

std::string base64(const foundation::PropertyList::Data& data) {
    const std::unique_ptr<gchar, decltype(&g_free)> text(g_base64_encode(data.data(), data.size()), g_free);
    return text.get();
}

json describeScreen(const HostState& host) {
    const auto& screen = toolkit::UIScreen::mainScreen();
    return {{"width", screen.bounds().width},
            {"height", screen.bounds().height},
            {"scale", screen.scale()},
            {"interface", host.interfaceOrientation},
            {"device", static_cast<int>(host.deviceOrientation)}};
}

/// Times are those of the state itself: seconds since the start.
json describePluginCalls(const HostState& host) {
    const double start = foundation::RunLoop::main().now() - host.time;
    json calls = json::array();
    for (const auto& call : plugins::recordedCalls())
        calls.push_back(
            {{"identifier", call.identifier}, {"method", call.method}, {"time", call.time - start}});
    return calls;
}

json describeNowPlaying() {
    const auto& controller = media::MPUNowPlayingController::sharedController();
    const auto& application = controller.nowPlayingAppBundleIdentifier();
    return {{"application", application ? json(*application) : json(nullptr)},
            {"playing", controller.isPlaying()},
            {"radio", controller.isRadioStation()},
            {"elapsed", controller.currentElapsed()},
            {"duration", controller.currentDuration()},
            {"volume", controller.currentVolume()},
            {"info", describeValue(controller.currentNowPlayingInfo())}};
}

} // namespace

json describeValue(const foundation::PropertyList& value) {
    if (value.isBool())
        return value.boolValue();
    if (value.isInteger())
        return value.integerValue();
    if (value.isReal())
        return value.doubleValue();
    if (const auto* string = value.string())
        return *string;
    if (const auto* data = value.data())
        return base64(*data);
    if (const auto* date = value.date())
        return date->seconds;
    if (const auto* array = value.array()) {
        json items = json::array();
        for (const auto& item : *array)
            items.push_back(describeValue(item));
        return items;
    }
    if (const auto* dictionary = value.dictionary()) {
        json entries = json::object();
        for (const auto& [key, entry] : *dictionary)
            entries[key] = describeValue(entry);
        return entries;
    }
    return nullptr;
}

json describeView(const toolkit::UIView& view) {
    const auto background = view.backgroundColor();
    json fields{{"class", view.isa().name()},
                {"frame", describe(view.frame())},
                {"bounds", describe(view.bounds())},
                {"alpha", view.alpha()},
                {"hidden", view.isHidden()},
                {"userInteraction", view.isUserInteractionEnabled()},
                {"background", background ? describe(*background) : json(nullptr)},
                {"transform", describe(view.transform())},
                {"cornerRadius", view.layer()->cornerRadius()},
                {"properties", json::object()}};
    describeKind(view, fields);
    describeText(view, fields);
    view.describeProperties(fields["properties"]);
    if (view.layer()->hasAnimations())
        fields["presentation"] = describePresentation(*view.layer());
    json& subviews = fields["subviews"] = json::array();
    for (const auto& subview : view.subviews())
        subviews.push_back(describeView(*subview));
    return fields;
}

json describeState(const HostState& host, const std::vector<foundation::Notification>& notifications) {
    auto& server = toolkit::WindowServer::shared();
    server.layoutIfNeeded();
    json state{{"time", host.time},
               {"screen", describeScreen(host)},
               {"frontmost", host.frontmost},
               {"locked", host.locked},
               {"display", host.displayOn},
               {"keyboard", describe(host.keyboard)},
               {"hud", host.hudCount},
               {"opened", host.openedAddresses},
               {"nowPlaying", describeNowPlaying()},
               {"log", foundation::loggedLines()},
               {"notifications", json::array()},
               {"pluginCalls", describePluginCalls(host)},
               {"windows", json::array()}};
    for (const auto& notification : notifications)
        state["notifications"].push_back(
            {{"name", notification.name}, {"object", describeValue(notification.object)}});
    for (const toolkit::UIWindow* window : server.windows())
        state["windows"].push_back(describeView(*window));
    return state;
}

std::string writeJson(const json& document) {
    return document.dump(1, ' ', false, json::error_handler_t::replace) + "\n";
}

} // namespace script
