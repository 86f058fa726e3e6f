#include "platform/plugins/PluginCall.h"

#include "platform/foundation/Log.h"
#include "platform/plugins/CallWatchdog.h"
#include "platform/plugins/CrashNote.h"

#include <exception>
#include <optional>
#include <utility>

namespace plugins {

namespace {

/// What the exception said of itself that left `code`; nothing when none did. Asking it is the plug-in's
/// code, too.
std::optional<std::string> exceptionOf(const std::function<void()>& code) {
    try {
        code();
        return std::nullopt;
    } catch (const std::exception& exception) {
        const char* reason = exception.what();
        return reason ? reason : "";
    } catch (...) {
        return "an exception of an unknown kind";
    }
}

void end(Caller& caller, const char* method, const std::string& reason) {
    caller.ended = true;
    foundation::log("Plug-in " + caller.identifier + " threw in " + method +
                    " and is not called again: " + reason);
    if (const auto onEnd = std::exchange(caller.onEnd, nullptr))
        onEnd();
}

} // namespace

bool PluginCall::run(const std::shared_ptr<Caller>& caller, const char* method,
                     const std::function<void()>& code) {
    if (caller->ended)
        return false;
    const auto kept = caller;
    const auto keptView = kept->view.lock();
    std::optional<std::string> reason;
    {
        const CrashNote::Scope noted(kept->identifier);
        const CallWatchdog::Scope watched(kept->identifier, method);
        reason = exceptionOf(code);
    }
    if (reason && !kept->ended)
        end(*kept, method, *reason);
    return !kept->ended;
}

} // namespace plugins
