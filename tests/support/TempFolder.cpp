#include "tests/support/TempFolder.h"

#include <fstream>
#include <random>
#include <sstream>
#include <utility>

namespace quorvin::test {

TempFolder::TempFolder()
{
    std::random_device random;
    do {
        path_ = std::filesystem::temp_directory_path() / ("quorvin-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
}

TempFolder::~TempFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path TempFolder::write(const std::string& name, const std::string& bytes) const
{
    std::filesystem::path file = path_ / name;
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
}

Files TempFolder::files() const
{
    Files all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path_))
        if (entry.is_regular_file())
            all[entry.path().lexically_relative(path_).string()] = bytesOf(entry.path());
    return all;
}

void append(const std::filesystem::path& file, const std::string& bytes)
{
    std::ofstream(file, std::ios::binary | std::ios::app) << bytes;
}

std::string bytesOf(const std::filesystem::path& file)
{
    std::ostringstream all;
    all << std::ifstream(file, std::ios::binary).rdbuf();
    return std::move(all).str();
}

}  // namespace quorvin::test
