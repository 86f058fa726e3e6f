// What the process holds on to: as little as can be, for most of its life nobody looks at it.
#pragma once

namespace session {

class MemoryUse {
public:
    /// From now on whatever is freed goes back to the system soon. Before there are other threads.
    static void keepLow();
    /// Lets go of everything that can be made again, as soon as nothing of the product's is seen. Main
    /// thread.
    static void letGoOfSpare();
};

} // namespace session
