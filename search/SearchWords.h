/// The words of a search text, for the modes that look for words.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace quorvin {

/// Words of one search text, numbered from 1; slot 0 stays empty.
class SearchWords {
public:
    /// Most words of a search text.
    static constexpr int kMost = 50;

    /// Splits `pattern` at its blanks, several of which count as one, and returns the number of words, at
    /// least 1. `plusSeparates`: a "+" behind the first word separates like a blank, as it does in the search
    /// for all words; in the first word, and without it everywhere, "+" joins words into a phrase.
    /// Raises RuntimeError 9 for more than kMost words.
    int split(std::string_view pattern, bool plusSeparates);

    /// Word `w`, 1..the number split into, with a blank for each "+".
    std::string phrase(int w) const;

private:
    std::array<std::string, kMost + 1> searchWords;
};

}  // namespace quorvin
