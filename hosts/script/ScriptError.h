// A script that cannot be read or played: where, and why.
#pragma once

#include <stdexcept>
#include <string>

namespace script {

class ScriptError : public std::runtime_error {
public:
    /// `line` counts from 1; 0 stands for the file as a whole.
    ScriptError(const std::string& file, int line, const std::string& reason)
        : std::runtime_error(file + ":" + (line > 0 ? std::to_string(line) + ": " : " ") + reason),
          line_(line) {}

    int line() const { return line_; }

private:
    int line_;
};

} // namespace script
