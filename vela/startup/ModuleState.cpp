#include "vela/startup/ModuleState.h"

namespace vela {

ModuleState& moduleState() {
    static auto& state = *new ModuleState; // never torn down
    return state;
}

} // namespace vela
