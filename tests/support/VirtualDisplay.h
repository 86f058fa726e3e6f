// An X server without a screen, for the time of a test.
#pragma once

#include "tests/support/BackgroundProcess.h"

#include <memory>
#include <string>

#include <unistd.h>

namespace support {

class VirtualDisplay {
public:
    VirtualDisplay() {
        int output = -1;
        server_ = std::make_unique<BackgroundProcess>(std::vector<std::string>{"Xvfb", "-displayfd", "1",
                                                                               "-screen", "0", "1280x1200x24",
                                                                               "-nolisten", "tcp"},
                                                      std::vector<std::string>{}, &output);
        if (!server_->started())
            return;
        std::string number;
        for (char c = 0; ::read(output, &c, 1) == 1 && c != '\n';)
            number += c;
        close(output);
        if (!number.empty())
            name_ = ":" + number;
    }

    /// ":7"; empty when no server could be started.
    const std::string& name() const { return name_; }

private:
    std::unique_ptr<BackgroundProcess> server_;
    std::string name_;
};

} // namespace support
