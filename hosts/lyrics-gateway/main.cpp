#include "hosts/lyrics-gateway/GatewayOptions.h"
#include "hosts/lyrics-gateway/GatewayServer.h"

#include <csignal>
#include <cstdio>

using namespace gateway;

namespace {

constexpr int optionAtFault = 2, portInUse = 3;

int serve(const GatewayOptions& options, const sigset_t& endings) {
    LyricSource source(LyricFiles(options.directories),
                       options.service.empty() ? std::nullopt : std::optional(LyricService(options.service)));
    const GatewayServer server(source, options.port);
    std::printf("http://127.0.0.1:%d\n", server.port());
    std::fflush(stdout);
    int signal = 0;
    sigwait(&endings, &signal);
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    // Before any thread is made, so that all of them leave these to the main one.
    sigset_t endings;
    sigemptyset(&endings);
    sigaddset(&endings, SIGINT);
    sigaddset(&endings, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &endings, nullptr);
    try {
        const auto options = GatewayOptions::parse({arguments + 1, arguments + count});
        if (!options.help)
            return serve(options, endings);
        std::fputs(GatewayOptions::helpText().c_str(), stdout);
        return 0;
    } catch (const GatewayOptionsError& error) {
        std::fprintf(stderr, "vela-lyrics-gateway: %s\n", error.what());
        return optionAtFault;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vela-lyrics-gateway: %s\n", error.what());
        return portInUse;
    }
}
