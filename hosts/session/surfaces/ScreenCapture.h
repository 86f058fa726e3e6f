// Takes a picture of what an output shows.
#pragma once

#include "hosts/session/wayland/Connection.h"
#include "platform/toolkit/rendering/Image.h"

#include <memory>

namespace session {

class ScreenCapture {
public:
    /// Waits for the output's next frame, a tenth of a second at most. As the output is turned; null where
    /// the compositor gives no picture. The connection's other events wait meanwhile.
    static std::shared_ptr<const toolkit::Image> take(Connection& connection, const Output& output);
};

} // namespace session
