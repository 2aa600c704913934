#include "app/CliDocument.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <optional>

#include "app/CliError.h"
#include "base/Ansi.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "output/DocumentTemplate.h"
#include "output/PrintMatrix.h"
#include "output/RtfWriter.h"
#include "rec/RecFile.h"

namespace quorvin {

namespace {

bool isControl(char32_t c)
{
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

/// A field's value; the template's tabs are its own, those of a value print as blanks.
std::string fieldText(const RecFile& file, int n)
{
    if (n > file.fieldCount()) throw RuntimeError(ErrorNumber::subscript);
    std::string value(trim(file.fieldValue(n)));
    std::replace(value.begin(), value.end(), '\t', ' ');
    return value;
}

/// The document beside the file; one that cannot be read is an error.
std::string storedDocument(const RecFile& file)
{
    PrintMatrix matrix;
    try {
        matrix.read(file);
    } catch (const std::exception&) {
        throw CliError{messages::kFileError + std::string(currentError().description())};
    }
    return matrix.DocumentTemplate;
}

/// Lines as all output has them.
std::string plainText(const RichText& text)
{
    std::u32string plain = text.text() + RichText::kParagraphEnd;
    for (char32_t& c : plain) {
        if (c == RichText::kLineBreak) c = RichText::kParagraphEnd;
        if (isControl(c) && c != RichText::kParagraphEnd && c != U'\t') c = U' ';
    }
    return toUtf8(plain);
}

}  // namespace

bool printDocument(const RecFile& file, DocumentFormat format)
{
    const DocumentTemplate document(storedDocument(file));
    if (document.Textserb.empty()) {
        std::cerr << "nessun documento accanto al file\n";
        return false;
    }
    RichText filled;
    std::optional<RuntimeError> failure;
    try {
        document.elabcom([&file](int n) { return fieldText(file, n); }, filled);
    } catch (const std::exception&) {
        failure = currentError();
    }
    std::cout << (format == DocumentFormat::rtf ? writeRtf(filled) + '\n' : plainText(filled));
    if (failure) throw CliError{messages::kHitError + std::string(failure->description())};
    return true;
}

}  // namespace quorvin
