// The methods that the product adds to the host's application object, as typed messages.
//
// Sent to a null object they answer a zero value, as they do before the hooks are installed on none.
#pragma once

#include "platform/runtime/Message.h"
#include "platform/toolkit/geometry/Geometry.h"
#include "platform/toolkit/rendering/Image.h"
#include "platform/toolkit/windows/UIWindow.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vela::messages {

using WindowPointer = std::shared_ptr<toolkit::UIWindow>;
using ImagePointer = std::shared_ptr<const toolkit::Image>;

inline const runtime::Message<WindowPointer()> darkingWindow{"darkingWindow"};
inline const runtime::Message<WindowPointer()> socialWindow{"socialWindow"};
inline const runtime::Message<WindowPointer()> leftGrabberWindow{"leftGrabberWindow"};
inline const runtime::Message<WindowPointer()> rightGrabberWindow{"rightGrabberWindow"};
inline const runtime::Message<ImagePointer()> getScreenImage{"getScreenImage"};
inline const runtime::Message<toolkit::Rect(std::int64_t)> getScreenFrameByOrientation{
    "getScreenFrameByOrientation:"};
inline const runtime::Message<void()> velaCycler{"velaCycler"};
inline const runtime::Message<std::string()> getOffID{"getOffID"};
inline const runtime::Message<float()> rightScalePortrait{"rightScalePortrait"};
inline const runtime::Message<float()> rightScaleLandscape{"rightScaleLandscape"};
inline const runtime::Message<float()> leftScalePortrait{"leftScalePortrait"};
inline const runtime::Message<float()> leftScaleLandscape{"leftScaleLandscape"};
inline const runtime::Message<float()> rightSize{"rightSize"};
inline const runtime::Message<float()> leftSize{"leftSize"};
inline const runtime::Message<float(std::int64_t)> leftSizeForOrientation{"leftSizeForOrientation:"};
inline const runtime::Message<float(std::int64_t)> rightSizeForOrientation{"rightSizeForOrientation:"};
inline const runtime::Message<void(std::int64_t, bool)> velaWillRotate{"velaWillRotate:isSpring:"};
inline const runtime::Message<void()> dismissVela{"dismissVela"};

} // namespace vela::messages
