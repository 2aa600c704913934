/// Input: a REC file. Reading it ends in no other error than a RuntimeError, and the pass over its records
/// finds what single reading does.
#include "fuzz/FuzzTarget.h"
#include "tests/rec/SameReading.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/TempFolder.h"

namespace {

using namespace quorvin;

/// So many records are read singly, and so large a file is made of some inputs, for the pass reads in blocks
/// that are larger than any input.
constexpr RecordNumber kMostSingle = 64;
constexpr std::size_t kManyBytes = 300000;

void compareReading(const std::filesystem::path& name, RecordNumber records)
{
    const std::string difference = test::differentReading(name, 1 + records / kMostSingle);
    fuzz::require(difference.empty(), "the pass reads otherwise: " + difference);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const test::TempFolder folder;
    std::string bytes = fuzz::bytesOf(data, size);
    std::filesystem::path name = folder.write("prova.rec", bytes);

    RecFile file;
    test::errorOf([&] { test::load(file, name); });
    // Behind the last record there may be the beginning of one, or nothing.
    test::errorOf([&] {
        file.recount();
        file.seek(file.recordCount() + 1);
        file.caricastring();
    });
    if (file.recordBytes() == 0) return 0;
    compareReading(name, file.recordCount());

    constexpr std::int64_t kUsualRecord = 32;
    if (size % 64 != 0 || file.recordBytes() < kUsualRecord || file.recordCount() == 0) return 0;
    const std::string records = bytes.substr(static_cast<std::size_t>(file.dataStart()) - 1);
    while (bytes.size() < kManyBytes)
        bytes += records;
    name = folder.write("molti.rec", bytes);
    compareReading(name, static_cast<RecordNumber>(bytes.size()) / file.recordBytes());
    return 0;
}
