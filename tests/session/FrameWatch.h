// Somebody who looks at one point of the screen, in each frame that the compositor makes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace tests {

class FrameWatch {
public:
    /// Throws std::runtime_error when there is no connection, or no way to look.
    FrameWatch(const std::filesystem::path& runtimeDirectory, const std::string& display);
    ~FrameWatch();

    struct Frame {
        std::uint32_t pixel = 0; // as the compositor's own pictures have it
        double time = 0;         // seconds of the compositor's clock, when it was shown
    };
    /// Waits for the next frame and answers what it shows at a point, in points of the screen. Throws
    /// std::runtime_error when none comes.
    Frame next(int x, int y);

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace tests
