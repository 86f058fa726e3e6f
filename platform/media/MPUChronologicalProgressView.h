// The time line of now-playing controls. Others borrow the style of its time labels.
#pragma once

#include "platform/toolkit/views/UILabel.h"

#include <cstdint>

namespace media {

class MPUChronologicalProgressView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    /// initWithStyle:
    explicit MPUChronologicalProgressView(std::int64_t style);

    /// A label as the time line shows times with: white, and edged so that it can be read on glass of any
    /// brightness.
    std::shared_ptr<toolkit::UILabel> _createTimeLabelWithStyle(std::int64_t style) const;
};

} // namespace media
