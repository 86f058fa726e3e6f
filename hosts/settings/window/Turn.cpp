#include "hosts/settings/window/Turn.h"

#include "platform/foundation/GlibRunLoop.h"

namespace settings {

void endTurn() {
    if (auto* loop = dynamic_cast<foundation::GlibRunLoop*>(&foundation::RunLoop::main()))
        loop->endTurn();
}

} // namespace settings
