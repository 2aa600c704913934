/// A folder of its own for a test, removed with all that is in it.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace quorvin::test {

/// What files hold, by their names within a folder.
using Files = std::map<std::string, std::string>;

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    /// Writes, or replaces, a file and returns its full name.
    std::filesystem::path write(const std::string& name, const std::string& bytes) const;

    /// All files in it and in folders in it, links followed.
    Files files() const;

private:
    std::filesystem::path path_;
};

/// Appends bytes to a file, as a program that enters data does.
void append(const std::filesystem::path& file, const std::string& bytes);

/// All that a file holds; nothing where there is none.
std::string bytesOf(const std::filesystem::path& file);

}  // namespace quorvin::test
