/// Input: RTF of anybody's. What can be made out of it is a sound text, which is the same when it has been
/// written and read again.
#include <algorithm>

#include "fuzz/FuzzTarget.h"
#include "output/RtfReader.h"
#include "output/RtfWriter.h"
#include "tests/support/WholeText.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quorvin;
    using fuzz::require;
    const RichText text = readRtf(fuzz::bytesOf(data, size));
    require(test::isWhole(text), "a sound text");
    const std::string rtf = writeRtf(text);
    require(isRtf(rtf), "RTF");
    require(std::ranges::all_of(rtf, [](char c) { return c >= ' ' && c < 0x7F && c != '"'; }),
            "ASCII on one line without quotes: " + rtf);
    require(readRtf(rtf) == text, "the same text when it is read again: " + rtf);
    return 0;
}
