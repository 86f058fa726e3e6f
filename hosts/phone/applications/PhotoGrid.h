// The photo library as a scrolling grid of small pictures.
#pragma once

#include "platform/toolkit/scrolling/UIScrollView.h"
#include "platform/toolkit/views/UIImageView.h"
#include "platform/toolkit/views/UILabel.h"

namespace phone {

class PhotoGrid : public toolkit::UIScrollView {
    RUNTIME_CLASS()
public:
    /// `chosen` gets the number of a tapped picture and its rectangle on the screen.
    PhotoGrid(int count, std::function<void(int, toolkit::Rect)> chosen);

    void layoutSubviews() override;
    /// The rectangle of a picture on the screen.
    toolkit::Rect pictureOnScreen(int number) const;

private:
    void addSection(const std::string& title, const std::string& date, int first, int count);
    void handleTap(toolkit::Point point);

    struct Section {
        std::shared_ptr<toolkit::UILabel> title;
        std::shared_ptr<toolkit::UILabel> date;
        int first;
        int count;
    };
    std::function<void(int, toolkit::Rect)> chosen_;
    std::vector<Section> sections_;
    std::vector<std::shared_ptr<toolkit::UIImageView>> pictures_;
    double drawnSide_ = 0;
};

} // namespace phone
