// The scrolling text area of the music panel: a lyric, a ring while one is being fetched, or a short word on
// why there is none.
//
// The top of what is seen fades out. A short text stands in the middle. Main thread only.
#pragma once

#include "platform/toolkit/views/UITextView.h"
#include "vela/nowplaying/M13ProgressViewRing.h"

namespace vela {

class lyricView : public toolkit::UITextView, private toolkit::ScrollViewDelegate {
    RUNTIME_CLASS()
public:
    explicit lyricView(toolkit::Rect frame = {});
    ~lyricView() override;

    const std::shared_ptr<M13ProgressViewRing>& ring() const { return ring_; }
    /// Not while the user drags.
    bool canAutoScroll() const { return canAutoScroll_; }
    void setCanAutoScroll(bool can) { canAutoScroll_ = can; }

    using UITextView::setText;
    /// setText:withError: The code is one of LyricResult's; any other number counts as SongNotUsable. The
    /// text counts only when one is present.
    void setText(const std::string& text, int withError);
    /// Takes the text away and shows the ring.
    void startAnimatingRing();
    void stopAnimatingRing();

    /// Centres a text that is shorter than the view, and puts the ring into the middle of what is seen.
    void setContentSize(toolkit::Size size) override;
    void setFrame(toolkit::Rect frame) override;
    void describeProperties(nlohmann::json& properties) const override;

private:
    void addRing();
    void addMask();
    void show(const std::string& text, int code);
    void showPlaceholder(const std::string& text);
    void scrollViewDidScroll(UIScrollView& view) override;
    void scrollViewWillBeginDragging(UIScrollView& view) override;
    void scrollViewWillEndDragging(UIScrollView& view, toolkit::Point velocity,
                                   toolkit::Point& targetContentOffset) override;

    std::shared_ptr<M13ProgressViewRing> ring_;
    bool canAutoScroll_ = true;
};

} // namespace vela
