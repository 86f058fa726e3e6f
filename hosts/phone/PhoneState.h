// What the phone's switches stand at, and what follows when one of them is thrown: which application is in
// front, whether the phone is locked and lit, and which way up the interface stands.
//
// Belongs to Phone, which turns what a hand does into calls of this.
#pragma once

#include "hosts/phone/Phone.h"
#include "hosts/phone/PhonePresenter.h"
#include "hosts/phone/PhoneScreens.h"
#include "hosts/phone/music/PhoneMediaPort.h"

namespace phone {

struct PhoneState {
    /// `openPlayer` brings the application of what the phone plays to the front.
    PhoneState(PhoneConfiguration newConfiguration, std::function<void()> openPlayer);

    bool isTablet() const { return configuration.model.starts_with("iPad"); }
    unsigned supportedOrientations() const;
    /// Turns the interface to what is in front; answers whether it had to.
    bool updateInterfaceOrientation();
    /// Brings status bar, key window and the applications' activity in line with what is in front.
    void frontChanged();
    void endTyping();
    void leaveFront();
    void closeSwitcher();
    void setDisplayOn(bool on);
    void showLockScreen();
    /// By the buttons, a sixteenth a step.
    void changeVolume(int steps);
    /// From 0 to 1; the volume display shows it.
    void setVolume(double newVolume);

    PhoneConfiguration configuration;
    std::shared_ptr<homescreen::SpringBoard> springBoard = std::make_shared<homescreen::SpringBoard>();
    WallClock clock;
    double volume = 0.5;
    PhoneMediaPort music;
    std::shared_ptr<ApplicationStage> stage;
    PhonePresenter presenter;
    std::unique_ptr<PhoneScreens> screens; // null until the launch
    std::shared_ptr<Application> active;   // in front, seen and unlocked
    std::int64_t interfaceOrientation = 1;
    bool locked = false;
    bool displayOn = true;
    int hudCount = 0;
};

} // namespace phone
