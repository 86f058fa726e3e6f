// The words behind a command's name, taken one after the other. Everything that is missing, malformed or too
// much throws std::invalid_argument with a reason that a script's author understands.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/toolkit/geometry/Geometry.h"

namespace script {

class ScriptArguments {
public:
    /// `words` begin with the command's own name.
    explicit ScriptArguments(std::vector<std::string> words) : words_(std::move(words)) {}

    std::string takeWord(std::string_view what);
    double takeNumber(std::string_view what, double least, double most);
    int takeInteger(std::string_view what, int least, int most);
    toolkit::Point takePoint();
    /// The next word, which must be a file name of its own that ends in `extension` and leads nowhere else.
    std::string takeFileName(std::string_view extension);
    /// Takes the next word when it is `keyword`.
    bool takeKeyword(std::string_view keyword);
    bool atEnd() const { return next_ >= words_.size(); }
    void expectEnd() const;

private:
    std::vector<std::string> words_;
    std::size_t next_ = 1;
};

} // namespace script
