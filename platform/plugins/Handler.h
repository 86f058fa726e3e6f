// A plug-in's handler, kept by the phone and called through the guard.
//
// Shared with whatever calls it. A handler may replace or clear itself while it runs: it is destroyed only
// after its call, and like everything of a plug-in's within one.
#pragma once

#include "platform/plugins/PluginCall.h"

#include <functional>
#include <memory>
#include <utility>

namespace plugins {

template <class... A>
class Handler {
public:
    using Function = std::function<void(A...)>;

    explicit operator bool() const { return function_ != nullptr; }
    void set(Function function) {
        function_ = function ? std::make_shared<const Function>(std::move(function)) : nullptr;
    }

    void call(const std::shared_ptr<Caller>& caller, const char* name, A... arguments) const {
        if (!function_)
            return;
        auto kept = function_;
        PluginCall::run(caller, name, [&] {
            const auto running = std::move(kept);
            (*running)(std::forward<A>(arguments)...);
        });
    }

private:
    std::shared_ptr<const Function> function_;
};

} // namespace plugins
