/// Whether a formatted text is sound.
#pragma once

#include <algorithm>

#include "output/RichText.h"

namespace quorvin::test {

/// Whether the parts of a text fit each other.
inline bool isWhole(const RichText& text)
{
    std::size_t length = 0;
    const CharFormat* last = nullptr;
    for (const RichText::Run& run : text.runs()) {
        if (run.length == 0 || (last && *last == run.format)) return false;
        length += run.length;
        last = &run.format;
    }
    const auto ends = std::count(text.text().begin(), text.text().end(), RichText::kParagraphEnd);
    return length == text.text().size() && text.paragraphs().size() == static_cast<std::size_t>(ends) + 1;
}

}  // namespace quorvin::test
