/// The texts that the program carries within itself, UTF-8, lines separated by LF.
#pragma once

namespace quorvin {

/// The guide, menu by menu.
const char* guideText();

/// What the program can and cannot hold.
const char* limitsText();

/// Name and version.
const char* versionText();

}  // namespace quorvin
