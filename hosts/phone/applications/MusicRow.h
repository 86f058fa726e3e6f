// A line of a list of songs or stations: a cover, two lines of text, and a word at the right.
#pragma once

#include "hosts/phone/applications/RowList.h"
#include "platform/media/MPMediaItemArtwork.h"
#include "platform/toolkit/views/UIImageView.h"
#include "platform/toolkit/views/UILabel.h"

namespace phone {

class MusicRow : public ListRow {
    RUNTIME_CLASS()
public:
    explicit MusicRow(toolkit::Color tint);

    void setText(const std::string& title, const std::string& subtitle, const std::string& remark);
    /// Shows the artwork as soon as it is there, and `placeholder` until then or without one.
    void setCover(const std::shared_ptr<media::MPMediaItemArtwork>& artwork,
                  std::shared_ptr<const toolkit::Image> placeholder);
    /// Whether this is what plays now.
    void setCurrent(bool current);
    /// A red sign before the row that takes it away; empty for none.
    void setRemoveHandler(std::function<void()> remove);

    void layoutSubviews() override;

    static constexpr double height = 60;    // points
    static constexpr double coverSide = 44; // points

private:
    class RemoveButton;

    toolkit::Color tint_;
    std::shared_ptr<RemoveButton> removeButton_;
    std::shared_ptr<toolkit::UIImageView> cover_;
    std::shared_ptr<toolkit::UILabel> title_;
    std::shared_ptr<toolkit::UILabel> subtitle_;
    std::shared_ptr<toolkit::UILabel> remark_;
    std::shared_ptr<toolkit::UIView> hairline_;
    foundation::Handle loading_;
};

} // namespace phone
