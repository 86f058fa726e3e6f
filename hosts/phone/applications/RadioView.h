// The list of stations, the page that a station is entered on, and what plays.
#pragma once

#include "hosts/phone/applications/MusicRow.h"
#include "hosts/phone/applications/NavigationBar.h"
#include "hosts/phone/applications/NowPlayingBar.h"
#include "hosts/phone/applications/StationForm.h"

namespace phone {

class RadioView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    /// `music` outlives the view.
    explicit RadioView(PhoneMediaPort& music);

    /// Whether the application is in front and seen.
    void setActive(bool active);
    /// On the screen; its height is 0 while the keyboard does not show.
    void setKeyboardFrame(toolkit::Rect frame);
    void layoutSubviews() override;

private:
    enum class Mode { List, Editing, Adding };
    void setMode(Mode mode);
    void showButtons();
    void reload();
    void showRow(MusicRow& row);
    void choose(std::size_t line);
    void remove(std::size_t line);
    void save();

    PhoneMediaPort& music_;
    Mode mode_ = Mode::List;
    double keyboardHeight_ = 0;
    std::vector<RadioStation> stations_;
    std::shared_ptr<const toolkit::Image> cover_;
    std::shared_ptr<RowList> list_;
    std::shared_ptr<toolkit::UILabel> empty_;
    std::shared_ptr<StationForm> form_;
    std::shared_ptr<NavigationBar> bar_;
    std::shared_ptr<NowPlayingBar> nowPlaying_;
};

} // namespace phone
