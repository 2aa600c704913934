/// Input: a template as it is stored, RTF or plain, and behind it the texts of fields 1, 2 and so on, each
/// after a byte 0. Filling raises nothing but RuntimeErrors and agrees with the slow filling.
#include <algorithm>

#include "base/Ansi.h"
#include "base/RuntimeError.h"
#include "fuzz/FuzzTarget.h"
#include "output/DocumentTemplate.h"
#include "rec/RecFormat.h"
#include "tests/output/SlowFilling.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/WholeText.h"

namespace quorvin::fuzz {

namespace {

/// The longest field that a definition can announce.
constexpr std::size_t kLongest = 999;

/// Takes what stands before the first byte 0 off a text, and that byte.
std::string takeFirst(std::string& text)
{
    const std::size_t end = std::min(text.find('\0'), text.size());
    std::string first = text.substr(0, end);
    text.erase(0, end + 1);
    return first;
}

/// Control codes become blanks in a document, so that slow filling must not see them.
std::string fieldText(std::string text)
{
    text.resize(std::min(text.size(), kLongest));
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return text;
}

std::string ansi(const std::u32string& text)
{
    std::string result;
    std::ranges::transform(text, std::back_inserter(result), fromUnicode);
    return result;
}

}  // namespace

}  // namespace quorvin::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quorvin;
    using namespace quorvin::fuzz;
    std::string rest = bytesOf(data, size);
    const DocumentTemplate document(takeFirst(rest));
    test::Fields fields;
    for (int n = 1; n <= kMaxFields && !rest.empty(); ++n)
        fields[n] = fieldText(takeFirst(rest));

    RichText filled;
    const int error = test::errorOf([&] {
        document.elabcom(
            [&](int n) {
                if (!fields.contains(n)) throw RuntimeError(ErrorNumber::subscript);
                return fields.at(n);
            },
            filled);
    });
    std::string slow = ansi(document.Textserb.text());
    require(error == test::fillSlowly(slow, fields), "the same error");
    require(test::isWhole(filled), "a sound text");
    require(filled.isFull() || ansi(filled.text()) == slow, "the same text");
    return 0;
}
