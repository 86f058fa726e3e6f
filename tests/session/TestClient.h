// A program of the test's own in the session: a hand on a pointer and a keyboard, and a window that notes
// what reaches it.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tests {

class TestClient {
public:
    /// Throws std::runtime_error when there is no connection.
    TestClient(const std::filesystem::path& runtimeDirectory, const std::string& display);
    ~TestClient();

    /// Opens a window over the whole screen and waits until it is shown.
    void openWindow(const std::string& application);
    void closeWindow();
    /// Presses of the button that have reached the window, as "100,200".
    std::vector<std::string> presses();
    /// Fingers that have been put on the window, in the same way.
    std::vector<std::string> touches();
    bool hasKeyboard();
    /// The numbers of the keys that have been pressed in the window.
    std::vector<unsigned> keys();

    /// The pointer; points of a screen of `width` × `height` points, times in milliseconds.
    void setScreen(int width, int height);
    void moveTo(double x, double y, unsigned time);
    void press(unsigned time);
    void release(unsigned time);
    /// Adds a keyboard; its layout is named as keymaps do, "de". Keys count as the kernel's.
    void addKeyboard(const std::string& layout);
    void pressKey(unsigned key);
    void releaseKey(unsigned key);
    /// Serves whatever the compositor sends.
    void serve();

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace tests
