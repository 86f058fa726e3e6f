#include "vela/nowplaying/NowPlayingState.h"

namespace vela::nowplaying {

NowPlayingState& nowPlayingState() {
    static auto& state = *new NowPlayingState; // never torn down
    return state;
}

} // namespace vela::nowplaying
