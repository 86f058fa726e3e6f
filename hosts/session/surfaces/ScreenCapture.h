// Takes a small picture of what an output shows, for glass and for judging how bright the screen is.
#pragma once

#include "hosts/session/wayland/Connection.h"
#include "platform/toolkit/rendering/Image.h"

#include <memory>

namespace session {

class ScreenCapture {
public:
    /// Waits for the output's next frame, a tenth of a second at most. As the output is turned, with so many
    /// pixels a point or a little more, each the average of those that it stands for; null where the
    /// compositor gives no picture. The connection's other events wait meanwhile.
    static std::shared_ptr<const toolkit::Image> take(Connection& connection, const Output& output,
                                                      double pixelsPerPoint);
};

} // namespace session
