#include "tests/support/TestHost.h"

#include "platform/toolkit/views/UIViewController.h"
#include "platform/toolkit/windows/UIScreen.h"

namespace tests {

using namespace toolkit;

TestHost::TestHost() {
    setCurrent(this);
    window = std::make_shared<UIWindow>(UIScreen::mainScreen().bounds());
    window->setBackgroundColor(Color::white(1));
    window->setRootViewController(std::make_shared<UIViewController>());
    window->makeKeyAndVisible();
    springBoard = std::make_shared<homescreen::SpringBoard>();
}

TestHost::~TestHost() {
    setCurrent(nullptr);
}

void TestHost::finishLaunching() {
    ++launches;
    if (duringLaunch)
        duringLaunch();
}

void TestHost::displayTurnedOff() {
    ++displayOffs;
    if (duringDisplayOff)
        duringDisplayOff();
}

std::shared_ptr<const Image> greyImage(std::uint8_t value, int width, int height) {
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width) * height * 4, value);
    for (std::size_t i = 3; i < pixels.size(); i += 4)
        pixels[i] = 255;
    return std::make_shared<Image>(width, height, width * 4, std::move(pixels), 1);
}

} // namespace tests
