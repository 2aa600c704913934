/// What a program needs from the system at its start, the same everywhere.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quorvin {

/// The program's arguments in UTF-8, without the program's own name.
/// Windows hands `argv` over in a code page that cannot hold every file name; there they are taken from the
/// system.
std::vector<std::string> utf8Arguments(int argc, char** argv);

/// Has a console show UTF-8 output as it is meant, until the program ends; on systems whose consoles have a
/// code page. Called once.
void useUtf8Console();

/// Has the system's requests to end the program (Ctrl-C and the like) noted instead of obeyed, so that
/// nothing half written is left; those that were ignored stay so. Whether there was one.
void noteEndings();
bool isToEnd();

/// Has writing beyond the size that the system allows a file fail, as on a full disk, instead of ending the
/// program.
void surviveSizeLimits();

/// A file name given in UTF-8.
std::filesystem::path pathFromUtf8(const std::string& utf8);

/// A file name in UTF-8, for showing and for messages.
std::string utf8FromPath(const std::filesystem::path& name);

}  // namespace quorvin
