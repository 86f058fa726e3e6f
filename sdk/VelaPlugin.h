// The contract between the board and its plug-ins: everything that a plug-in needs, and all that it includes.
//
// A plug-in is a view class and just the optional methods that it wants:
//
//     #include "VelaPlugin.h"
//     using namespace vela::plugin;
//
//     class HelloView : public View {
//     public:
//         using View::View;
//         void draw(Canvas& canvas, Rect bounds) override {
//             canvas.drawText("Hello", bounds, {.font = {.size = 40}, .alignment = Alignment::Center},
//             colors::primary);
//         }
//         void velaInvoked() { setNeedsDisplay(); }
//     };
//     VELA_PRINCIPAL_CLASS(HelloView)
//
// The optional methods, public and without argument, are found by their names: appWillBecomeFirstResponder,
// appBecomeActive, appWillEnterBackground, appDidEnterBackground, tapTitleLabel, velaInvoked, velaDismissed.
// Each may be called at any time and repeatedly.
//
// The phone hands its services over when it makes the view, so a plug-in links nothing. Coordinates are
// points with y growing downwards, times seconds, texts UTF-8 and never markup. Everything is called, and is
// to be called, on the main thread; a call that takes long holds the whole phone up. An exception that leaves
// the plug-in ends it: the view is not called again.
//
// What is made by add… or startTimer is yours: it is shown, or runs, until you let go of it. Let go of
// everything with the view, at the latest. A handler may let go of the very thing that called it.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

/// The number of this contract. A bundle names the one that it was built with under "VelaPluginABI"; the
/// phone loads no other.
#define VELA_PLUGIN_ABI 1

namespace vela::plugin {

// ---- Geometry, colours, text

struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    double width = 0;
    double height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double right() const { return x + width; }
    double bottom() const { return y + height; }
    Point center() const { return {x + width / 2, y + height / 2}; }
    Size size() const { return {width, height}; }
    bool contains(Point p) const { return p.x >= x && p.x < right() && p.y >= y && p.y < bottom(); }
    Rect insetBy(double dx, double dy) const { return {x + dx, y + dy, width - 2 * dx, height - 2 * dy}; }
    Rect offsetBy(double dx, double dy) const { return {x + dx, y + dy, width, height}; }
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// Red, green, blue and alpha from 0 to 1.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    static constexpr Color white(double white, double alpha = 1) { return {white, white, white, alpha}; }
    constexpr Color withAlpha(double newAlpha) const { return {red, green, blue, newAlpha}; }
    friend bool operator==(const Color&, const Color&) = default;
};

/// What reads well on the panel, which is dark glass.
namespace colors {
inline constexpr Color clear{0, 0, 0, 0};
inline constexpr Color primary = Color::white(1);
inline constexpr Color secondary = Color::white(1, 0.6);
inline constexpr Color faint = Color::white(1, 0.35);
inline constexpr Color separator = Color::white(1, 0.18);
inline constexpr Color fill = Color::white(1, 0.14);        // a button, a field, a card
inline constexpr Color pressedFill = Color::white(1, 0.32); // the same under a finger
inline constexpr Color orange{1, 0.62, 0.04, 1};
inline constexpr Color yellow{1, 0.84, 0.04, 1};
inline constexpr Color green{0.2, 0.84, 0.3, 1};
inline constexpr Color blue{0.25, 0.61, 1, 1};
inline constexpr Color purple{0.75, 0.45, 0.95, 1};
inline constexpr Color red{1, 0.27, 0.23, 1};
} // namespace colors

enum class Weight { Thin, Light, Regular, Medium, Semibold, Bold };
enum class Alignment { Left, Center, Right };
enum class VerticalAlignment { Top, Middle, Bottom };

/// The system font.
struct Font {
    double size = 17; // points
    Weight weight = Weight::Regular;
    bool monospacedDigits = false; // so that a running clock does not tremble
    friend bool operator==(const Font&, const Font&) = default;
};

struct TextStyle {
    Font font{};
    Alignment alignment = Alignment::Left;
    VerticalAlignment verticalAlignment = VerticalAlignment::Middle;
    int lines = 1; // what does not fit is cut off with an ellipsis; 0: as many as it takes
    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

// ---- Drawing

/// A picture. It may be kept as long as the view lives.
class Image {
public:
    virtual ~Image() = default;
    /// In points.
    virtual Size size() const = 0;
};
using ImagePointer = std::shared_ptr<const Image>;

/// Lines, curves and arcs.
class Path {
public:
    enum class Kind { Move, Line, Curve, Arc, Close };
    struct Element {
        Kind kind;
        Point to;       // for an arc its centre
        Point control1; // for an arc radius and start
        Point control2; // for an arc end
    };

    Path& moveTo(Point p) { return add({Kind::Move, p, {}, {}}); }
    Path& lineTo(Point p) { return add({Kind::Line, p, {}, {}}); }
    Path& curveTo(Point control1, Point control2, Point p) {
        return add({Kind::Curve, p, control1, control2});
    }
    /// Radians from the x axis, clockwise; joined to what comes before by a line.
    Path& arc(Point center, double radius, double start, double end) {
        return add({Kind::Arc, center, {radius, start}, {end, 0}});
    }
    Path& close() { return add({Kind::Close, {}, {}, {}}); }
    const std::vector<Element>& elements() const { return elements_; }

private:
    Path& add(const Element& element) {
        elements_.push_back(element);
        return *this;
    }
    std::vector<Element> elements_;
};

enum class LineCap { Butt, Round, Square };

struct GradientStop {
    double location = 0; // from 0 to 1
    Color color{};
};

/// What a view draws with, valid within the call that it was handed to.
class Canvas {
public:
    virtual void save() = 0;
    /// Takes back transforms and clips made since the matching save().
    virtual void restore() = 0;
    virtual void translate(double x, double y) = 0;
    virtual void scale(double x, double y) = 0;
    /// Radians, clockwise.
    virtual void rotate(double angle) = 0;
    virtual void clip(Rect rect, double cornerRadius = 0) = 0;

    virtual void fill(Rect rect, Color color) = 0;
    virtual void fillRounded(Rect rect, double cornerRadius, Color color) = 0;
    virtual void fillEllipse(Rect rect, Color color) = 0;
    virtual void fill(const Path& path, Color color) = 0;
    virtual void fillGradient(Rect rect, Point from, Point to, const std::vector<GradientStop>& stops) = 0;
    virtual void stroke(const Path& path, double width, Color color, LineCap cap = LineCap::Round) = 0;
    virtual void drawImage(const Image& image, Rect into, double opacity = 1) = 0;
    /// Within `rect`, aligned in it and broken at its width.
    virtual void drawText(std::string_view text, Rect rect, const TextStyle& style, Color color) = 0;

protected:
    ~Canvas() = default;
};

// ---- Touches

enum class TouchPhase { Began, Moved, Ended, Cancelled };

struct Touch {
    std::int64_t finger = 0; // the same from began to ended; several fingers may be down
    TouchPhase phase = TouchPhase::Began;
    Point point{};   // in the coordinates of the view that was touched, also while outside of it
    double time = 0; // as Host::now()
};

// ---- Child views: made by the phone, kept by the plug-in

/// What all child views have. One that is let go of is gone from the screen.
class Child {
public:
    virtual ~Child() = default;
    virtual Rect frame() const = 0;
    virtual void setFrame(Rect frame) = 0;
    virtual void setHidden(bool hidden) = 0;
    virtual void setAlpha(double alpha) = 0;
    virtual void setBackground(Color color) = 0;
    virtual void setCornerRadius(double radius) = 0;
    /// The size that the content takes, within `available` where it can adapt.
    virtual Size sizeThatFits(Size available) const = 0;
    virtual void bringToFront() = 0;
};

class Label : public Child {
public:
    virtual void setText(std::string_view text) = 0;
    virtual void setFont(Font font) = 0;
    virtual void setColor(Color color) = 0;
    virtual void setAlignment(Alignment alignment) = 0;
    /// 0: as many as it takes.
    virtual void setLines(int lines) = 0;
};

class Button : public Child {
public:
    virtual void setTitle(std::string_view title) = 0;
    virtual void setFont(Font font) = 0;
    virtual void setColor(Color color) = 0;
    /// A picture instead of the title; null for the title again.
    virtual void setImage(const ImagePointer& image) = 0;
    virtual void setEnabled(bool enabled) = 0;
    /// Called when a finger has been lifted on it.
    virtual void onTap(std::function<void()> handler) = 0;
};

/// A part of the view that is drawn and touched by itself: a graph, a dial, a row of a list.
class DrawnArea : public Child {
public:
    /// `bounds` begins at (0, 0).
    virtual void onDraw(std::function<void(Canvas&, Rect bounds)> handler) = 0;
    /// Without a handler touches go to what lies beneath.
    virtual void onTouch(std::function<void(const Touch&)> handler) = 0;
    virtual void setNeedsDisplay() = 0;
};

/// What text views and text fields have: a tap brings the phone's keyboard up.
class TextInput : public Child {
public:
    virtual std::string text() const = 0;
    /// Calls no handler.
    virtual void setText(std::string_view text) = 0;
    virtual void setFont(Font font) = 0;
    virtual void setColor(Color color) = 0;
    virtual void setAlignment(Alignment alignment) = 0;
    virtual bool isEditing() const = 0;
    /// Brings the keyboard up or puts it away.
    virtual void setEditing(bool editing) = 0;
    /// After every edit by the user.
    virtual void onChange(std::function<void()> handler) = 0;
    /// When the keyboard came (true) or went (false) for it.
    virtual void onEditing(std::function<void(bool editing)> handler) = 0;
};

/// Lines of text that scroll.
class TextView : public TextInput {
public:
    virtual void setEditable(bool editable) = 0;
};

/// One line; the return key ends the editing.
class TextField : public TextInput {
public:
    virtual void setPlaceholder(std::string_view placeholder) = 0;
};

class ScrollArea;

/// Where child views are put: the plug-in's own view, or the content of a scrolling area. Later ones lie
/// above earlier ones. New ones have an empty frame.
class Container {
public:
    [[nodiscard]] virtual std::unique_ptr<Label> addLabel(std::string_view text = {}) = 0;
    [[nodiscard]] virtual std::unique_ptr<Button> addButton(std::string_view title = {}) = 0;
    [[nodiscard]] virtual std::unique_ptr<DrawnArea> addDrawnArea() = 0;
    [[nodiscard]] virtual std::unique_ptr<ScrollArea> addScrollArea() = 0;
    [[nodiscard]] virtual std::unique_ptr<TextView> addTextView() = 0;
    [[nodiscard]] virtual std::unique_ptr<TextField> addTextField() = 0;

protected:
    ~Container() = default;
};

/// Content larger than the view, moved by the finger. Let go of what was added to it before letting go of it.
class ScrollArea : public Child {
public:
    virtual Container& content() = 0;
    virtual void setContentSize(Size size) = 0;
    virtual Point offset() const = 0;
    virtual void setOffset(Point offset, bool animated = false) = 0;
};

// ---- Services

/// Runs as long as it is kept.
class Timer {
public:
    virtual ~Timer() = default;
};

/// The time of day.
struct WallTime {
    double seconds = 0;     // since 1970-01-01 00:00 UTC
    int secondsFromUtc = 0; // of the phone's time zone at that moment, positive east of Greenwich
};

/// A directory of the plug-in's own, kept over restarts and updates. Names are plain: no "/", not beginning
/// with
/// ".", at most 200 bytes.
class Storage {
public:
    /// The whole file; nothing when there is none.
    virtual std::optional<std::string> read(std::string_view name) const = 0;
    /// Writes the whole file, at most 16 MB: after a crash or a kill the old one stands or the new one. False
    /// when that failed.
    virtual bool write(std::string_view name, std::string_view contents) = 0;
    /// True when it stood there and is gone.
    virtual bool remove(std::string_view name) = 0;
    virtual std::vector<std::string> names() const = 0;

protected:
    ~Storage() = default;
};

/// What the phone does for a plug-in. It lives longer than the plug-in's view.
class Host : public Container {
public:
    // The view.
    virtual Rect bounds() const = 0;
    virtual void setNeedsDisplay() = 0;
    virtual void setNeedsLayout() = 0;
    /// Lets changes of children's frames and alphas run over `duration` seconds.
    virtual void animate(double duration, const std::function<void()>& changes) = 0;

    // Time. What is closed should cost nothing: stop timers in appDidEnterBackground and velaDismissed.
    /// Seconds on a clock that never goes back; its zero means nothing.
    virtual double now() const = 0;
    virtual WallTime wallTime() const = 0;
    /// The offset from UTC, in seconds, of a zone ("Europe/Lisbon") at a moment (seconds since 1970); nothing
    /// for a zone that the phone does not know.
    virtual std::optional<int> secondsFromUtcIn(std::string_view zone, double seconds) const = 0;
    /// Calls `handler` once after `interval` seconds, or every `interval` seconds, at most 60 times a second.
    [[nodiscard]] virtual std::unique_ptr<Timer> startTimer(double interval, bool repeats,
                                                            std::function<void()> handler) = 0;

    // Files.
    virtual Storage& storage() = 0;
    /// A picture of the bundle by its path there ("moon.png"); on finer screens "moon@2x.png" is preferred.
    /// Null when it cannot be read.
    virtual ImagePointer image(std::string_view path) = 0;
    /// Another file of the bundle, whole; nothing when it cannot be read.
    virtual std::optional<std::string> resource(std::string_view path) const = 0;

    /// What a text takes when broken at `width`; below 0: without limit.
    virtual Size measure(std::string_view text, const TextStyle& style, double width = -1) const = 0;
    /// One line in the system log, with the plug-in's identifier before it.
    virtual void log(std::string_view line) = 0;

protected:
    ~Host() = default;
};

// ---- The view

/// What a plug-in derives its view from. The phone makes one, with a zero frame, sizes it, and keeps it until
/// the board goes.
class View {
public:
    explicit View(Host& host) : host_(host) {}
    virtual ~View() = default;
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    /// Draws the view behind its children, when first shown and after setNeedsDisplay().
    virtual void draw(Canvas&, Rect /*bounds*/) {}
    /// Places the children, when the size has changed and after setNeedsLayout().
    virtual void layout(Rect /*bounds*/) {}
    // Touches that no child took. A drag may be cancelled when the phone takes it over.
    virtual void touchBegan(const Touch&) {}
    virtual void touchMoved(const Touch&) {}
    virtual void touchEnded(const Touch&) {}
    virtual void touchCancelled(const Touch&) {}

    Host& host() const { return host_; }
    Rect bounds() const { return host_.bounds(); }
    void setNeedsDisplay() { host_.setNeedsDisplay(); }
    void setNeedsLayout() { host_.setNeedsLayout(); }

private:
    Host& host_;
};

// ---- The principal class

/// What the library exports: how to make the view, and which optional methods it has.
struct PrincipalClass {
    struct Method {
        const char* name;
        void (*call)(View&); // null when the class has no such method
    };
    static constexpr std::size_t methodCount = 7;

    int abi;
    const char* name;
    View* (*create)(Host&);
    bool draws;
    Method methods[methodCount];
};

namespace detail {

/// False for a class that is known to have left View::draw as it is; it then needs no picture of its own.
template <class T>
consteval bool drawsSomething() {
    if constexpr (requires { &T::draw; })
        return !std::is_same_v<decltype(&T::draw), void (View::*)(Canvas&, Rect)>;
    else
        return true;
}

} // namespace detail

#define VELA_DETAIL_METHOD(method)                                                                               \
    {                                                                                                            \
#method, [] {                                                                                                  \
            if constexpr (requires(T& view) { view.method(); })                                                        \
                return static_cast<void (*)(View&)>([](View& view) { static_cast<T&>(view).method(); });               \
            else                                                                                                       \
                return static_cast<void (*)(View&)>(nullptr);                                                          \
        }() \
    }

template <class T>
consteval PrincipalClass principalClass(const char* name) {
    static_assert(std::derived_from<T, View>, "a principal class derives from vela::plugin::View");
    static_assert(std::constructible_from<T, Host&>,
                  "a principal class is made from a Host& (\"using View::View;\" does it)");
    return {VELA_PLUGIN_ABI,
            name,
            [](Host& host) -> View* { return new T(host); },
            detail::drawsSomething<T>(),
            {VELA_DETAIL_METHOD(appWillBecomeFirstResponder), VELA_DETAIL_METHOD(appBecomeActive),
             VELA_DETAIL_METHOD(appWillEnterBackground), VELA_DETAIL_METHOD(appDidEnterBackground),
             VELA_DETAIL_METHOD(tapTitleLabel), VELA_DETAIL_METHOD(velaInvoked),
             VELA_DETAIL_METHOD(velaDismissed)}};
}

#undef VELA_DETAIL_METHOD

} // namespace vela::plugin

/// Exports the view class that the bundle names under "NSPrincipalClass". Once per plug-in, in a .cpp file,
/// in the namespace of the class.
#define VELA_PRINCIPAL_CLASS(Type)                                                                           \
    extern "C" {                                                                                             \
    __attribute__((                                                                                          \
        visibility("default"))) extern const ::vela::plugin::PrincipalClass velaPrincipalClass_##Type;       \
    constinit const ::vela::plugin::PrincipalClass velaPrincipalClass_##Type =                               \
        ::vela::plugin::principalClass<Type>(#Type);                                                         \
    }
