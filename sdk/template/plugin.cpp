// A plug-in to begin with: it counts taps, keeps the count over restarts, and rests while nobody looks.
#include <VelaPlugin.h>

#include <cstdio>
#include <cstdlib>
#include <string>

using namespace vela::plugin;

class TemplateView : public View {
public:
    explicit TemplateView(Host& host) : View(host) {
        taps_ = std::atoi(host.storage().read("taps").value_or("0").c_str());
        button_->setBackground(colors::fill);
        button_->setCornerRadius(12);
        button_->setFont({.size = 22, .weight = Weight::Medium});
        button_->onTap([this] { tapped(); });
    }

    // The view has a size, or another one: place the children.
    void layout(Rect bounds) override {
        button_->setFrame({bounds.x + 40, bounds.bottom() - 110, bounds.width - 80, 56});
    }

    // Draw what lies behind the children. Call setNeedsDisplay() when it should look different.
    void draw(Canvas& canvas, Rect bounds) override {
        const WallTime time = host().wallTime();
        const long minutes = static_cast<long>((time.seconds + time.secondsFromUtc) / 60);
        char clock[16];
        std::snprintf(clock, sizeof clock, "%ld:%02ld", minutes / 60 % 24, minutes % 60);
        canvas.drawText(clock, {0, 20, bounds.width, 70},
                        {.font = {.size = 56, .weight = Weight::Thin, .monospacedDigits = true},
                         .alignment = Alignment::Center},
                        colors::primary);
        canvas.drawText(std::to_string(taps_) + " taps", {0, 100, bounds.width, 40},
                        {.font = {.size = 24}, .alignment = Alignment::Center}, colors::secondary);
    }

    // From here on: the optional methods. Take away what you do not need.

    // The tile is fully open. It may be called several times in a row.
    void appBecomeActive() { start(); }
    // The panel slides in; the tile may be open from the last time.
    void velaInvoked() { start(); }
    // The tile has been closed, or the panel put away: what is not seen should not work.
    void appDidEnterBackground() { timer_.reset(); }
    void velaDismissed() { timer_.reset(); }

private:
    void start() {
        setNeedsDisplay();
        if (!timer_)
            timer_ = host().startTimer(1, true, [this] { setNeedsDisplay(); });
    }

    void tapped() {
        ++taps_;
        host().storage().write("taps", std::to_string(taps_));
        setNeedsDisplay();
    }

    int taps_ = 0;
    std::unique_ptr<Button> button_ = host().addButton("Tap me");
    std::unique_ptr<Timer> timer_;
};
VELA_PRINCIPAL_CLASS(TemplateView)
