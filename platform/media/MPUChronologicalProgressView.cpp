#include "platform/media/MPUChronologicalProgressView.h"

using namespace toolkit;

namespace media {

namespace {

constexpr double timeFontSize = 11; // points
constexpr double edgeAlpha = 0.35;

} // namespace

runtime::Class& MPUChronologicalProgressView::staticClass() {
    static runtime::Class& cls = runtime::ClassBuilder<MPUChronologicalProgressView>(
                                     "MPUChronologicalProgressView", &UIView::staticClass())
                                     .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPUChronologicalProgressView)

MPUChronologicalProgressView::MPUChronologicalProgressView(std::int64_t) {}

std::shared_ptr<UILabel> MPUChronologicalProgressView::_createTimeLabelWithStyle(std::int64_t) const {
    auto label = std::make_shared<UILabel>();
    Font font = Font::system(timeFontSize);
    font.monospacedDigits = true;
    label->setFont(font);
    label->setTextColor(Color::white(1));
    label->setTextEdge(Color::black().withAlpha(edgeAlpha));
    return label;
}

} // namespace media
