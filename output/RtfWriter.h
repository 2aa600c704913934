/// Formatted text as RTF.
#pragma once

#include <string>

namespace quorvin {

class RichText;

/// RTF on one line, ASCII, without any double quote: within RTF its escape stands for it. Every paragraph
/// ends with a mark, the last one too, as word processors write it.
std::string writeRtf(const RichText& text);

}  // namespace quorvin
