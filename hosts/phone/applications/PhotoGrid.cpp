#include "hosts/phone/applications/PhotoGrid.h"

#include "hosts/phone/artwork/PhotoArtwork.h"
#include "hosts/phone/screens/Labels.h"
#include "platform/toolkit/gestures/UITapGestureRecognizer.h"
#include "platform/toolkit/windows/UIScreen.h"

#include <cmath>

using namespace toolkit;

namespace phone {

namespace {

constexpr double gap = 2;           // points between pictures
constexpr double headerHeight = 52; // of a section
constexpr double narrowestPicture = 88;

} // namespace

runtime::Class& PhotoGrid::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<PhotoGrid>("PhotoGrid", &UIScrollView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(PhotoGrid)

PhotoGrid::PhotoGrid(int count, std::function<void(int, Rect)> chosen) : chosen_(std::move(chosen)) {
    setBackgroundColor(Color::white(1));
    const int recent = count * 3 / 10, earlier = count * 4 / 10;
    addSection("Saturday", "March 19", 0, recent);
    addSection("Out and about", "March 5 – 13", recent, earlier);
    addSection("Winter", "January – February", recent + earlier, count - recent - earlier);
    auto tap = std::make_shared<UITapGestureRecognizer>(nullptr, runtime::Selector("tapped:"));
    tap->addHandler([this](UIGestureRecognizer& recognizer) {
        if (recognizer.state() == GestureState::Ended)
            handleTap(recognizer.locationInView(this));
    });
    addGestureRecognizer(tap);
}

void PhotoGrid::addSection(const std::string& title, const std::string& date, int first, int count) {
    Section section{makeLabel(title, Font::system(16, FontWeight::Semibold), Color::black()),
                    makeLabel(date, Font::system(12), Color::white(0.45)), first, count};
    addSubview(section.title);
    addSubview(section.date);
    sections_.push_back(section);
    for (int i = 0; i < count; ++i) {
        pictures_.push_back(std::make_shared<UIImageView>());
        pictures_.back()->setContentMode(ContentGravity::AspectFill);
        pictures_.back()->setClipsToBounds(true);
        addSubview(pictures_.back());
    }
}

void PhotoGrid::layoutSubviews() {
    const double width = bounds().width;
    const int columns = std::max(4, static_cast<int>(width / (narrowestPicture + 20)));
    const double side = (width - gap * (columns - 1)) / columns;
    double y = 0;
    for (const Section& section : sections_) {
        section.title->setFrame({12, y + 8, width - 24, 22});
        section.date->setFrame({12, y + 29, width - 24, 16});
        y += headerHeight;
        for (int i = 0; i < section.count; ++i)
            pictures_[static_cast<std::size_t>(section.first + i)]->setFrame(
                {(i % columns) * (side + gap), y + (i / columns) * (side + gap), side, side});
        y += std::ceil(section.count / static_cast<double>(columns)) * (side + gap) + 6;
    }
    setContentSize({width, y});
    if (drawnSide_ > 0 && side <= drawnSide_ * 1.1)
        return;
    drawnSide_ = side;
    for (std::size_t i = 0; i < pictures_.size(); ++i)
        pictures_[i]->setImage(drawPhoto(static_cast<int>(i), {std::ceil(side), std::ceil(side)},
                                         UIScreen::mainScreen().scale()));
}

Rect PhotoGrid::pictureOnScreen(int number) const {
    const auto& picture = pictures_[static_cast<std::size_t>(number)];
    return picture->convertRectTo(picture->bounds(), nullptr);
}

void PhotoGrid::handleTap(Point point) {
    for (std::size_t i = 0; i < pictures_.size(); ++i)
        if (pictures_[i]->frame().contains(point))
            return chosen_(static_cast<int>(i), pictureOnScreen(static_cast<int>(i)));
}

} // namespace phone
