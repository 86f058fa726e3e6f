#include "hosts/phone/program/PluginCrash.h"

#include "platform/foundation/Log.h"
#include "platform/plugins/CrashNote.h"
#include "platform/plugins/DisabledPlugins.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <unistd.h>

namespace phone {

namespace {

constexpr int exitPluginCrash = 3;

/// The next process's command line, ready for a signal handler. Static, because it is needed at the very end.
struct CommandLine {
    std::vector<std::string> texts;
    std::vector<char*> pointers;
};

CommandLine& nextCommandLine() {
    static auto& line = *new CommandLine;
    return line;
}

char* const* nextArguments = nullptr;

/// Runs in a signal handler.
void replaceProcess() {
    // Connections and files of this process are none of the next one's.
    close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    execve("/proc/self/exe", nextArguments, environ);
    _exit(exitPluginCrash);
}

} // namespace

void startAgainAfterPluginCrash(const Options& options, const std::filesystem::path& root) {
    CommandLine& line = nextCommandLine();
    line.texts = {"vela-phone"};
    line.texts.insert(line.texts.end(), options.arguments.begin(), options.arguments.end());
    line.texts.insert(line.texts.end(), {"--after-crash", std::filesystem::absolute(root)});
    line.pointers.clear();
    for (std::string& text : line.texts)
        line.pointers.push_back(text.data());
    line.pointers.push_back(nullptr);
    nextArguments = line.pointers.data();
    plugins::setCrashAction(replaceProcess);
}

void takeNoteOfPluginCrash(const Options& options) {
    const auto identifier = plugins::takeNoteOfCrash();
    if (!identifier && !options.afterCrash)
        return;
    const std::string message =
        "the plug-in " + identifier.value_or("(its name is lost)") +
        " crashed and is left out from now on; its tile on the board lets you enable it again";
    const bool playing = options.script && !options.keepOpen;
    if (options.afterCrash && (options.headless || playing))
        throw PluginCrash(message);
    foundation::log("vela-phone: " + message);
}

} // namespace phone
