// Why the program cannot go on: one sentence for standard error. It ends with exit code 2.
#pragma once

#include <stdexcept>

namespace device {

class ProgramError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace device
