#include "text/text.h"

#include <algorithm>

namespace rotavel {

namespace {

char LowerCase(char character) {
    const bool isUpperCase = character >= 'A' && character <= 'Z';
    return isUpperCase ? static_cast<char>(character - 'A' + 'a') : character;
}

}  // namespace

std::u16string_view TrimBlanks(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

std::u16string ReplaceCharacter(std::u16string_view text, char16_t from, char16_t to) {
    std::u16string result(text);
    std::replace(result.begin(), result.end(), from, to);
    return result;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(),
                      [](char a, char b) { return LowerCase(a) == LowerCase(b); });
}

}  // namespace rotavel
