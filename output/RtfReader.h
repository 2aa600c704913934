/// Formatted text from RTF.
#pragma once

#include <string_view>

#include "output/RichText.h"

namespace quorvin {

/// Whether a text begins with the signature of the format.
bool isRtf(std::string_view text);

/// Reads what RichText can hold of an RTF, whoever wrote it; damaged RTF yields what can be made out. A cell
/// of a table ends in a tab, numbers and bullets of a list are text; pictures, notes, headers, hidden
/// or deleted text and groups that are marked for those who know them are left out; of text boxes the text
/// is kept. A paragraph mark at the very end begins no further paragraph,
/// for writers put one behind the last paragraph too. Raises nothing but what allocation raises.
RichText readRtf(std::string_view rtf);

}  // namespace quorvin
