// The lyrics gateway, a program of its own that runs beside the home screen for as long as that does.
//
// It is wanted when the product's configuration on the device names this machine for its lyrics
// ("http://127.0.0.1:PORT"). Where the port is in use, by the gateway of another phone, that one serves; when
// it goes, this one takes its place. Main thread, with a main loop in real time.
#pragma once

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/Handle.h"

#include <glib.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace device {

class LyricsGatewayProcess {
public:
    /// Where the user's own texts of lyrics lie, below the XDG data directory.
    static std::filesystem::path userDirectory();

    /// Starts it, if it is wanted and can be started. There must be a device root. Texts of lyrics are looked
    /// for in `directories` before anything on the network is asked.
    /// `settled` is called once, in a later turn: when lyrics can be asked for, or when it is clear that this
    /// gateway will not be the one that answers.
    explicit LyricsGatewayProcess(const std::vector<std::filesystem::path>& directories,
                                  std::function<void()> settled = {});
    /// Ends it.
    ~LyricsGatewayProcess();
    LyricsGatewayProcess(const LyricsGatewayProcess&) = delete;
    LyricsGatewayProcess& operator=(const LyricsGatewayProcess&) = delete;

    /// The port that the configuration on the device names; nothing when it names another machine.
    static std::optional<int> configuredPort();

private:
    void start();
    void listenTo(int output);
    void heard();
    void settle();
    void ended();

    std::vector<std::string> command_;
    GPid process_ = 0; // 0 while none runs
    guint watch_ = 0;
    guint outputWatch_ = 0;
    foundation::FileDescriptor output_; // until it has said that it stands
    std::function<void()> settled_;
    foundation::Handle again_;
    double pause_ = 2; // seconds before the next try; longer each time
};

} // namespace device
