/// In place of a fuzzer: gives the target each file of the folders that are named.
#include <filesystem>
#include <iostream>

#include "fuzz/FuzzTarget.h"
#include "tests/support/TempFolder.h"

int main(int argc, char** argv)
{
    std::size_t inputs = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[i])) {
            if (!entry.is_regular_file()) continue;
            std::cout << entry.path().string() << std::endl;
            const std::string bytes = quorvin::test::bytesOf(entry.path());
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++inputs;
        }
    }
    if (inputs == 0) std::cerr << "No inputs" << std::endl;
    return inputs == 0 ? 1 : 0;
}
