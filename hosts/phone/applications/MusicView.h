// The music library: its songs as a list, and what plays at its foot.
#pragma once

#include "hosts/phone/applications/EmptyMusicView.h"
#include "hosts/phone/applications/MusicRow.h"
#include "hosts/phone/applications/NavigationBar.h"
#include "hosts/phone/applications/NowPlayingBar.h"

namespace phone {

class MusicView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    /// `music` outlives the view.
    explicit MusicView(PhoneMediaPort& music);

    /// Whether the application is in front and seen.
    void setActive(bool active);
    void layoutSubviews() override;

private:
    void libraryChanged();
    void showRow(MusicRow& row) const;
    std::string emptyText() const;
    void scrollToPlaying();

    PhoneMediaPort& music_;
    media::SharedMediaItems songs_;
    std::shared_ptr<const toolkit::Image> placeholder_;
    std::shared_ptr<RowList> list_;
    std::shared_ptr<EmptyMusicView> empty_;
    std::shared_ptr<NavigationBar> bar_;
    std::shared_ptr<NowPlayingBar> nowPlaying_;
    foundation::Handle library_;
};

} // namespace phone
