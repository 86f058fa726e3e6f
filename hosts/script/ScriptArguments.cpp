#include "hosts/script/ScriptArguments.h"

#include "hosts/script/PreferenceValue.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>

namespace script {

namespace {

/// Far beyond any screen: a finger may leave the glass, but not the range where points are exact.
constexpr double coordinateLimit = 100'000;
constexpr std::size_t maximumFileNameBytes = 200;

bool isPlainFileName(const std::string& name) {
    const auto isUnfit = [](unsigned char c) { return c < 0x20 || c == 0x7F || c == '/'; };
    return !name.starts_with('.') && name.size() <= maximumFileNameBytes &&
           std::none_of(name.begin(), name.end(), isUnfit);
}

} // namespace

std::string ScriptArguments::takeWord(std::string_view what) {
    if (next_ == words_.size())
        throw std::invalid_argument(words_.front() + " lacks " + std::string(what));
    return words_[next_++];
}

double ScriptArguments::takeNumber(std::string_view what, double least, double most) {
    const double value = parseNumber(takeWord(what), what);
    if (value < least || value > most) {
        std::ostringstream reason;
        reason << what << " " << value << " is not between " << least << " and " << most;
        throw std::invalid_argument(reason.str());
    }
    return value;
}

int ScriptArguments::takeInteger(std::string_view what, int least, int most) {
    const double value = takeNumber(what, least, most);
    if (value != std::floor(value))
        throw std::invalid_argument(std::string(what) + " is not a whole number");
    return static_cast<int>(value);
}

toolkit::Point ScriptArguments::takePoint() {
    const double x = takeNumber("the x coordinate", -coordinateLimit, coordinateLimit);
    const double y = takeNumber("the y coordinate", -coordinateLimit, coordinateLimit);
    return {x, y};
}

std::string ScriptArguments::takeFileName(std::string_view extension) {
    const std::string name = takeWord("a file name");
    if (!isPlainFileName(name) || name.size() <= extension.size() || !name.ends_with(extension))
        throw std::invalid_argument("\"" + name + "\" is not a plain file name ending in " +
                                    std::string(extension));
    return name;
}

bool ScriptArguments::takeKeyword(std::string_view keyword) {
    if (next_ == words_.size() || words_[next_] != keyword)
        return false;
    ++next_;
    return true;
}

void ScriptArguments::expectEnd() const {
    if (next_ < words_.size())
        throw std::invalid_argument("\"" + words_[next_] + "\" is one word too many for " + words_.front());
}

} // namespace script
