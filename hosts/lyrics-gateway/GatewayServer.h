// The HTTP server on 127.0.0.1: takes requests apart and puts answers together.
//
// Requests are answered on threads of their own until the server goes.
#pragma once

#include "hosts/lyrics-gateway/LyricSource.h"

#include <memory>
#include <string_view>

struct MHD_Daemon;

namespace gateway {

class GatewayServer {
public:
    /// Listens at once; throws std::runtime_error when the port cannot be had. `port` 0 takes a free one. The
    /// source outlives the server.
    GatewayServer(LyricSource& source, int port);
    ~GatewayServer();
    GatewayServer(const GatewayServer&) = delete;
    GatewayServer& operator=(const GatewayServer&) = delete;

    int port() const;

    struct Answer {
        int status = 0;
        const char* contentType = "";
        std::string body = {};
    };
    /// What a GET of `target` is answered with.
    Answer answerTo(std::string_view target) const;

private:
    LyricSource& source_;
    MHD_Daemon* daemon_;
};

} // namespace gateway
