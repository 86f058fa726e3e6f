#include "hosts/phone/window/DeviceView.h"

#include "hosts/phone/window/DeviceWidget.h"
#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/animation/AnimatableValue.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "platform/toolkit/windows/WindowServer.h"

#include <cmath>
#include <numbers>

namespace phone {

namespace {

using toolkit::Point;
using toolkit::Rect;
using toolkit::Size;

/// Seconds that the picture takes to turn.
constexpr double rotationDuration = 0.35;
constexpr double degreesPerRadian = 180 / std::numbers::pi;

graphene_rect_t grapheneRect(const Rect& rect) {
    return {{static_cast<float>(rect.x), static_cast<float>(rect.y)},
            {static_cast<float>(rect.width), static_cast<float>(rect.height)}};
}

graphene_point_t graphenePoint(const Point& point) {
    return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

/// The same attitude, by the shorter way from `from`.
double nearestTurn(double angle, double from) {
    return from + std::remainder(angle - from, 2 * std::numbers::pi);
}

} // namespace

DeviceView::DeviceView(Phone& phone, Size screenSize)
    : phone_(phone),
      picture_(screenSize),
      screenScale_(toolkit::UIScreen::mainScreen().scale()),
      widget_(newDeviceWidget(
          [this](GtkSnapshot* snapshot, double width, double height) { draw(snapshot, width, height); })),
      frames_(widget_, [this] { return frame(); }),
      screenSize_(screenSize) {
    turnHook_ =
        foundation::RunLoop::main().addTurnHook(foundation::TurnPhase::Commit, [this] { turnEnded(); });
    g_signal_connect_swapped(widget_, "notify::scale-factor", G_CALLBACK(gtk_widget_queue_draw), widget_);
    frames_.request();
}

Point DeviceView::bodyPoint(Point widgetPoint) const {
    return layout_.bodyToArea.inverted().apply(widgetPoint);
}

Point DeviceView::screenPoint(Point widgetPoint) const {
    const int orientation = static_cast<int>(phone_.interfaceOrientation());
    return DeviceLayout::screenToBody(picture_, orientation).inverted().apply(bodyPoint(widgetPoint));
}

void DeviceView::setPressedPart(DevicePicture::Part part) {
    if (part == pressedPart_)
        return;
    pressedPart_ = part;
    gtk_widget_queue_draw(widget_);
}

void DeviceView::turnEnded() {
    auto& server = toolkit::WindowServer::shared();
    if (phone_.deviceOrientation() != orientation_) {
        orientation_ = phone_.deviceOrientation();
        // A phone that lies flat keeps the attitude it had.
        if (const auto angle = DeviceLayout::angleOf(orientation_)) {
            fromAngle_ = angle_;
            toAngle_ = nearestTurn(*angle, angle_);
            rotationBegin_ = foundation::RunLoop::main().now();
        }
    }
    if (server.needsFrame() || server.compositor().paintedFrames() != shownFrame_ || angle_ != toAngle_)
        frames_.request();
}

bool DeviceView::frame() {
    const bool turned = stepRotation();
    const bool changed = takeScreen();
    if (turned || changed)
        gtk_widget_queue_draw(widget_);
    return angle_ != toAngle_ || toolkit::WindowServer::shared().needsFrame();
}

bool DeviceView::takeScreen() {
    auto& server = toolkit::WindowServer::shared();
    const toolkit::Compositor& compositor = server.compositor();
    if (server.needsFrame())
        server.composeFrame();
    // Frames are composed for others as well: for pictures of the screen, for the choice of a blur.
    if (compositor.paintedFrames() == shownFrame_ || !compositor.pixels())
        return false;
    shownFrame_ = compositor.paintedFrames();
    screen_ = gtk::makeTexture(compositor.pixels(), compositor.pixelWidth(), compositor.pixelHeight(),
                               compositor.bytesPerRow());
    screenSize_ = {compositor.pixelWidth() / screenScale_, compositor.pixelHeight() / screenScale_};
    screenOrientation_ = static_cast<int>(phone_.interfaceOrientation());
    return true;
}

bool DeviceView::stepRotation() {
    if (angle_ == toAngle_)
        return false;
    const double elapsed = foundation::RunLoop::main().now() - rotationBegin_;
    const double progress = std::min(1.0, elapsed / rotationDuration);
    angle_ = progress >= 1
                 ? toAngle_
                 : fromAngle_ + (toAngle_ - fromAngle_) *
                                    toolkit::curveValue(toolkit::AnimationCurve::EaseInOut, progress);
    return true;
}

void DeviceView::updateBody(double pixelsPerPoint) {
    if (body_ && pixelsPerPoint == bodyPixelsPerPoint_)
        return;
    bodyPixelsPerPoint_ = pixelsPerPoint;
    const Size size = picture_.bodySize();
    const double margin = DevicePicture::margin;
    const auto image = toolkit::Image::draw(
        {size.width + 2 * margin, size.height + 2 * margin}, pixelsPerPoint, [&](toolkit::Canvas& canvas) {
            canvas.concat(toolkit::AffineTransform::translation(margin, margin));
            picture_.draw(canvas);
        });
    body_ = gtk::makeTexture(*image);
}

void DeviceView::draw(GtkSnapshot* snapshot, double width, double height) {
    const double pixelsPerUnit = gtk_widget_get_scale_factor(widget_);
    layout_ = DeviceLayout::fit(picture_, {{width, height}, angle_, toAngle_, pixelsPerUnit, screenScale_});
    updateBody(layout_.scale * pixelsPerUnit);

    const Size size = picture_.bodySize();
    const graphene_point_t center = graphenePoint(layout_.center);
    const graphene_point_t toCorner = graphenePoint({-size.width / 2, -size.height / 2});
    gtk_snapshot_save(snapshot);
    gtk_snapshot_translate(snapshot, &center);
    gtk_snapshot_rotate(snapshot, static_cast<float>(layout_.angle * degreesPerRadian));
    gtk_snapshot_scale(snapshot, static_cast<float>(layout_.scale), static_cast<float>(layout_.scale));
    gtk_snapshot_translate(snapshot, &toCorner);

    const graphene_rect_t body =
        grapheneRect(Rect({}, size).insetBy(-DevicePicture::margin, -DevicePicture::margin));
    gtk_snapshot_append_texture(snapshot, body_.get(), &body);
    drawScreen(snapshot);
    if (const Rect pressed = picture_.button(pressedPart_); !pressed.isEmpty()) {
        const graphene_rect_t rect = grapheneRect(pressed);
        GskRoundedRect rounded;
        gsk_rounded_rect_init_from_rect(&rounded, &rect,
                                        static_cast<float>(std::min(pressed.width, pressed.height) / 2));
        const GdkRGBA light{1, 1, 1, 0.25F};
        gtk_snapshot_push_rounded_clip(snapshot, &rounded);
        gtk_snapshot_append_color(snapshot, &light, &rect);
        gtk_snapshot_pop(snapshot);
    }
    gtk_snapshot_restore(snapshot);
}

void DeviceView::drawScreen(GtkSnapshot* snapshot) const {
    const Rect screen = picture_.screen();
    const graphene_point_t center = graphenePoint(screen.center());
    gtk_snapshot_save(snapshot);
    gtk_snapshot_translate(snapshot, &center);
    const double upright = DeviceLayout::angleOf(toolkit::DeviceOrientation{screenOrientation_}).value_or(0);
    gtk_snapshot_rotate(snapshot, static_cast<float>(-upright * degreesPerRadian));
    const graphene_rect_t content = grapheneRect(
        {-screenSize_.width / 2, -screenSize_.height / 2, screenSize_.width, screenSize_.height});
    if (screen_)
        gtk_snapshot_append_texture(snapshot, screen_.get(), &content);
    gtk_snapshot_restore(snapshot);
}

} // namespace phone
