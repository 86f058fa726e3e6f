#include "hosts/phone/program/HeadlessRunner.h"

#include "hosts/device/ProgramError.h"
#include "hosts/phone/program/RunningPhone.h"
#include "hosts/script/ScriptPlayer.h"
#include "platform/foundation/URLSession.h"
#include "platform/foundation/VirtualRunLoop.h"

namespace phone {

namespace {

/// Seconds beyond a script's own duration, for the turns between its commands.
constexpr double slack = 60;

} // namespace

void runHeadless(const Options& options, const script::Script& script) {
    foundation::URLSession::setReach(foundation::URLSession::Reach::ThisMachine);
    // Both live until the process ends: the extension's timers and windows refer to them.
    auto& loop = *new foundation::VirtualRunLoop;
    foundation::RunLoop::setMain(&loop);
    auto& running = *new RunningPhone(options, RunningPhone::configurationOf(options));

    bool finished = false;
    std::optional<script::ScriptError> failure;
    script::ScriptPlayer player(script, running.scriptTarget());
    player.start([&](const std::optional<script::ScriptError>& error) {
        finished = true;
        failure = error;
    });
    if (!loop.runUntil([&] { return finished; }, script::ScriptPlayer::durationOf(script) + slack))
        throw device::ProgramError("the script did not come to its end");
    if (failure)
        throw *failure;
}

} // namespace phone
