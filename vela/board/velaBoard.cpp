#include "vela/board/velaBoard.h"

#include "platform/media/MPUChronologicalProgressView.h"

#include <nlohmann/json.hpp>

using namespace toolkit;

namespace vela {

runtime::Class& velaBoard::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<velaBoard>("velaBoard", &UIScrollView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(velaBoard)

velaBoard::velaBoard(Rect frame) : UIScrollView(frame), noApps_(media::MPUChronologicalProgressView(2)._createTimeLabelWithStyle(0)) {
    setDelegate(this);
    setScrollEnabled(true);
    setUserInteractionEnabled(true);
    setBackgroundColor(Color::clear());
    setShowsHorizontalScrollIndicator(false);
    setShowsVerticalScrollIndicator(false);

    noApps_->setText("No application installed");
    noApps_->setNumberOfLines(0);
    noApps_->setBackgroundColor(Color::clear());
    noApps_->setTextAlignment(TextAlignment::Center);
    noApps_->setFont(Font::system(30));
    noApps_->setUserInteractionEnabled(true);
    addSubview(noApps_);
    loadApps();
}

velaBoard::~velaBoard() {
    setDelegate(nullptr);
}

void velaBoard::loadApps() {
    if (retried_ > 1)
        return;
    ++retried_;
    setFrame(frame());
}

void velaBoard::setFrame(Rect frame) {
    UIScrollView::setFrame(frame);
    noApps_->setFrame(bounds());
    setContentSize({0, space()});
}

void velaBoard::describeProperties(nlohmann::json& properties) const {
    UIScrollView::describeProperties(properties);
    properties["retried"] = retried_;
}

} // namespace vela
