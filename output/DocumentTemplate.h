/// A document with markers for fields, and its filling from a record.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "output/RichText.h"

namespace quorvin {

/// A marker is "*(", the number of a field, ")*" and ten blanks, in any format.
class DocumentTemplate {
public:
    /// What the box of field n shows, in Windows-1252. Raises RuntimeError 9 where the file has no such
    /// field.
    using FieldText = std::function<std::string(int n)>;

    DocumentTemplate() = default;
    /// As it is stored: RTF, or plain text where the RTF signature is missing.
    explicit DocumentTemplate(std::string_view stored);

    /// The template itself.
    RichText Textserb;

    /// Puts a copy of the template into `Textcomunic`, each marker replaced by its field's text without the
    /// blanks at its ends. How much a marker takes with it depends on its number n and on the text's length
    /// L: 4 characters, and L - n more when n is below L, n more otherwise. "*(" is taken with the first
    /// ")*", wherever it stands; what a field's text brings is no part of a marker. Raises RuntimeError 5 for
    /// "*(" without ")*" behind it and the reverse, and 9 for a number that is no field's; the markers before
    /// it are filled then.
    void elabcom(const FieldText& fieldText, RichText& Textcomunic) const;

    static std::string marker(int field);
    /// RTF on one line, ASCII, without double quotes; nothing for a template without text.
    std::string toStored() const;
};

}  // namespace quorvin
