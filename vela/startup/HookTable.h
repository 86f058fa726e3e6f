// Everything that the product changes in its host: which methods it replaces and which it adds.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vela {

enum class HookKind { Replaced, Added };

struct Hook {
    std::string className;
    std::string selector;
    HookKind kind;
    /// Puts the hook in place; false, and nothing changed, when the host lacks what it needs.
    std::function<bool()> install;
};

/// The hooks in the order in which they are installed.
const std::vector<Hook>& hookTable();

/// Installs every hook of the table. A row whose class or method the host lacks is without effect.
void installHooks();

} // namespace vela
