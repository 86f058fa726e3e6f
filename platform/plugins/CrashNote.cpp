#include "platform/plugins/CrashNote.h"

#include "platform/foundation/FileManager.h"
#include "platform/plugins/DisabledPlugins.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

namespace plugins {

namespace {

constexpr std::array fatalSignals{SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
/// A plug-in may well crash by using up the main stack.
constexpr std::size_t handlerStackBytes = 64 * 1024;

/// Everything that the handler touches. Static, because a signal may arrive until the very end.
struct State {
    std::atomic<const std::string*> identifier{nullptr};
    std::atomic<CrashAction> action{nullptr};
    std::atomic<int> directory{-1};
    pid_t mainThread = 0;
    std::array<struct sigaction, fatalSignals.size()> former{};
    std::filesystem::path root; // what `directory` belongs to
    bool installed = false;
};
State state;
static_assert(std::atomic<const std::string*>::is_always_lock_free);

const char* noteName() {
    return std::strrchr(crashNotePath, '/') + 1;
}

void writeNote(const std::string& identifier) {
    const int note = openat(state.directory, noteName(),
                            O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0644);
    if (note < 0)
        return;
    const char* bytes = identifier.data();
    std::size_t left = identifier.size();
    while (left > 0) {
        const ssize_t written = write(note, bytes, left);
        if (written <= 0)
            break;
        bytes += written;
        left -= static_cast<std::size_t>(written);
    }
    fsync(note);
    close(note);
}

void unblockFatalSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : fatalSignals)
        sigaddset(&set, signal);
    sigprocmask(SIG_UNBLOCK, &set, nullptr);
}

void restoreFormerActions() {
    for (std::size_t i = 0; i < fatalSignals.size(); ++i)
        sigaction(fatalSignals[i], &state.former[i], nullptr);
}

void handleFatalSignal(int signal, siginfo_t* information, void*) {
    restoreFormerActions(); // a second fault is not to come here again
    const std::string* identifier = state.identifier.load();
    if (identifier && gettid() == state.mainThread) {
        writeNote(*identifier);
        if (const CrashAction action = state.action.load()) {
            unblockFatalSignals();
            action();
        }
    }
    // A fault happens again on return; a signal that somebody sent has to be sent again.
    if (information->si_code <= 0)
        raise(signal);
}

/// A plug-in that ends the process has taken it down, too.
void handleExit() {
    const std::string* identifier = state.identifier.exchange(nullptr);
    if (!identifier || gettid() != state.mainThread)
        return;
    writeNote(*identifier);
    if (const CrashAction action = state.action.load())
        action();
}

void giveHandlerAStack() {
    stack_t present{};
    if (sigaltstack(nullptr, &present) != 0 || !(present.ss_flags & SS_DISABLE))
        return;
    static std::array<char, handlerStackBytes> memory;
    stack_t stack{};
    stack.ss_sp = memory.data();
    stack.ss_size = memory.size();
    sigaltstack(&stack, nullptr);
}

void installHandlers() {
    state.installed = true;
    giveHandlerAStack();
    std::atexit(handleExit);
    std::at_quick_exit(handleExit);
    struct sigaction handler {};
    handler.sa_sigaction = handleFatalSignal;
    handler.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&handler.sa_mask);
    for (std::size_t i = 0; i < fatalSignals.size(); ++i)
        sigaction(fatalSignals[i], &handler, &state.former[i]);
}

void openDirectory() {
    auto& files = foundation::FileManager::shared();
    if (state.directory >= 0 && state.root == files.deviceRoot())
        return;
    files.createDirectories(stateDirectory);
    const auto path = files.realPath(stateDirectory);
    const int opened = path ? open(path->c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC) : -1;
    const int former = state.directory.exchange(opened);
    if (former >= 0)
        close(former);
    state.root = files.deviceRoot();
}

} // namespace

void setCrashAction(CrashAction action) {
    state.action = action;
}

void CrashNote::prepare() {
    state.mainThread = gettid(); // anew in a forked process
    if (!state.installed)
        installHandlers();
    openDirectory();
}

CrashNote::Scope::Scope(const std::string& identifier) : outer_(state.identifier.exchange(&identifier)) {}

CrashNote::Scope::~Scope() {
    state.identifier = outer_;
}

} // namespace plugins
