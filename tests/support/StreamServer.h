// A server of radio streams and of lists of them, with its streams' sound made anew.
#pragma once

#include "tests/support/BackgroundProcess.h"
#include "tests/support/MusicFiles.h"
#include "tests/support/TemporaryDirectory.h"

#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

namespace support {

class StreamServer {
public:
    StreamServer() {
        const auto sound = directory_.path() / "stream.mp3";
        makeMusicFile(sound, {.seconds = 6, .options = {"-b:a", "128k"}});
        process_ = std::make_unique<BackgroundProcess>(
            std::vector<std::string>{"python3", VELA_SOURCE_DIR "/tests/support/stream_server.py", sound},
            std::vector<std::string>{}, &output_);
        std::string port;
        for (char digit = 0; read(output_, &digit, 1) == 1 && digit != '\n';)
            port += digit;
        base_ = "http://127.0.0.1:" + port;
    }
    StreamServer(const StreamServer&) = delete;
    StreamServer& operator=(const StreamServer&) = delete;
    ~StreamServer() { close(output_); }

    /// The address of one of the paths that stream_server.py lists.
    std::string address(const std::string& path) const { return base_ + path; }

private:
    tests::TemporaryDirectory directory_;
    int output_ = -1;
    std::unique_ptr<BackgroundProcess> process_;
    std::string base_;
};

} // namespace support
