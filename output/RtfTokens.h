/// RTF taken apart into its tokens.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quorvin {

struct RtfToken {
    enum class Kind {
        groupBegin,
        groupEnd,
        word,   ///< a control word, or a control symbol as a word of one character
        bytes,  ///< text in the code page in force
        code,   ///< one byte of such text, by its number
        end,
    };

    Kind kind = Kind::end;
    std::string_view text;         ///< of a word without its backslash, or of bytes; a view into the RTF
    std::optional<int> parameter;  ///< of a word
    char byte = 0;                 ///< of a code
};

/// Whatever the bytes, there is a token until the end: an escape that is cut short is left out. Line ends
/// mean nothing; the data behind \bin is skipped.
class RtfTokens {
public:
    explicit RtfTokens(std::string_view rtf) : rest_(rtf) {}

    RtfToken next();

private:
    std::string_view take(std::size_t count);
    RtfToken control();
    RtfToken word();
    std::optional<int> parameter();
    std::optional<char> code();

    std::string_view rest_;
};

}  // namespace quorvin
