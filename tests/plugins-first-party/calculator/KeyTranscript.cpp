#include "KeyTranscript.h"

#include <map>
#include <sstream>
#include <stdexcept>

namespace calculatorplugin {

namespace {

const std::map<std::string, Key> keysByWord{
    {"+", Key::Add},           {"-", Key::Subtract},     {"×", Key::Multiply},   {"÷", Key::Divide},
    {"=", Key::Equals},        {"%", Key::Percent},      {"±", Key::Sign},       {"C", Key::Clear},
    {"<", Key::Backspace},     {"MC", Key::MemoryClear}, {"M+", Key::MemoryAdd}, {"M-", Key::MemorySubtract},
    {"MR", Key::MemoryRecall},
};

} // namespace

void pressAll(Calculator& calculator, const std::string& words) {
    std::istringstream stream(words);
    for (std::string word; stream >> word;) {
        if (const auto key = keysByWord.find(word); key != keysByWord.end()) {
            calculator.press(key->second);
            continue;
        }
        for (const char character : word) {
            if (character != '.' && (character < '0' || character > '9'))
                throw std::invalid_argument(word);
            calculator.press(character == '.' ? Key::Point : static_cast<Key>(character - '0'));
        }
    }
}

std::string displayAfter(const std::string& words) {
    Calculator calculator;
    pressAll(calculator, words);
    return calculator.display();
}

} // namespace calculatorplugin
