#include "search/SearchWords.h"

#include <algorithm>
#include <cstddef>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace quorvin {

namespace {

void plusToBlank(std::string& text)
{
    std::replace(text.begin(), text.end(), '+', ' ');
}

}  // namespace

int SearchWords::split(std::string_view pattern, bool plusSeparates)
{
    std::string rest(pattern);
    for (int w = 1; w <= kMost; ++w) {
        rest = std::string(trim(rest));
        const std::size_t blank = rest.find(' ');
        std::string& word = searchWords[static_cast<std::size_t>(w)];
        if (blank == std::string::npos) {
            word = rest;
            return w;
        }
        // The word's end is found before: a "+" in the first word joins, those behind it separate.
        if (plusSeparates) plusToBlank(rest);
        word = rest.substr(0, blank);
        rest.erase(0, blank + 1);
    }
    throw RuntimeError(ErrorNumber::subscript);
}

std::string SearchWords::phrase(int w) const
{
    std::string text = searchWords[static_cast<std::size_t>(w)];
    plusToBlank(text);
    return text;
}

}  // namespace quorvin
