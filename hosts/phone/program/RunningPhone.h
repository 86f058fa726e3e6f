// A phone started as the command line says, with its extension loaded: what headless runs and the window
// share.
//
// Made once, after the main run loop, and never torn down: an extension's windows and timers live until the
// process ends.
#pragma once

#include "hosts/phone/program/DemonstrationMusic.h"
#include "hosts/phone/program/Options.h"
#include "hosts/phone/program/PhoneScriptTarget.h"
#include "hosts/phone/program/SessionMusic.h"

#include <memory>

namespace phone {

class RunningPhone {
public:
    /// There must be a device root. Throws device::ProgramError.
    RunningPhone(const Options& options, PhoneConfiguration configuration);

    /// The configuration that the command line asks for.
    static PhoneConfiguration configurationOf(const Options& options);

    Phone& phone() { return phone_; }
    script::ScriptTarget& scriptTarget() { return scriptTarget_; }

private:
    script::NotificationRecorder notifications_;
    Phone phone_;
    PhoneScriptTarget scriptTarget_;
    std::unique_ptr<DemonstrationMusic> demonstration_; // null when the command line says where music is
    std::unique_ptr<SessionMusic> sessionMusic_;        // null for a headless phone, which is to itself
};

} // namespace phone
