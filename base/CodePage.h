/// Text in code pages other than the core's own, as other programs' documents hold it.
#pragma once

#include <string>
#include <string_view>

namespace quorvin {

/// Bytes of a code page to Unicode. `codePage`: its number in Windows, double-byte ones and 65001 (UTF-8)
/// included. What is no character of the page becomes U+FFFD, or what the system shows for it; a page that
/// the system does not know reads as Windows-1252.
std::u32string fromCodePage(std::string_view bytes, int codePage);

}  // namespace quorvin
