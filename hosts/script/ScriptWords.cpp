#include "hosts/script/ScriptWords.h"

namespace script {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

char unescaped(char c) {
    switch (c) {
    case '"':
    case '\\':
        return c;
    case 'n':
        return '\n';
    default:
        throw std::invalid_argument("a backslash is followed by something other than \", \\ or n");
    }
}

/// Reads from behind the opening quote; leaves `at` behind the closing one.
std::string quotedWord(std::string_view line, std::size_t& at) {
    std::string word;
    while (at < line.size()) {
        const char c = line[at++];
        if (c == '"') {
            if (at < line.size() && !isBlank(line[at]) && line[at] != '#')
                throw std::invalid_argument("a closing quote is followed by more of the word");
            return word;
        }
        if (c == '\\') {
            if (at == line.size())
                break;
            word += unescaped(line[at++]);
        } else {
            word += c;
        }
    }
    throw std::invalid_argument("a quote is not closed");
}

std::string bareWord(std::string_view line, std::size_t& at) {
    std::string word;
    while (at < line.size() && !isBlank(line[at]) && line[at] != '#') {
        if (line[at] == '"' && word.ends_with('='))
            return word + quotedWord(line, ++at);
        if (line[at] == '"')
            throw std::invalid_argument("a quote stands within a word");
        word += line[at++];
    }
    return word;
}

} // namespace

std::vector<std::string> splitWords(std::string_view line) {
    std::vector<std::string> words;
    std::size_t at = 0;
    for (;;) {
        while (at < line.size() && isBlank(line[at]))
            ++at;
        if (at == line.size() || line[at] == '#')
            return words;
        if (line[at] == '"')
            words.push_back(quotedWord(line, ++at));
        else
            words.push_back(bareWord(line, at));
    }
}

} // namespace script
