/// Input: a REC file. Reading it ends in no other error than a RuntimeError, twice in the same way, and the
/// pass over its records finds what single reading does.
#include "fuzz/FuzzTarget.h"
#include "rec/RecFile.h"
#include "tests/rec/SameReading.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/TempFolder.h"

namespace quorvin::fuzz {

namespace {

/// So many records are read singly, and so large a file is made of some inputs, for the pass reads in blocks
/// that are larger than any input.
constexpr RecordNumber kMostSingle = 64;
constexpr std::size_t kManyBytes = 300000;

/// What a file tells before its records.
std::string opened(RecFile& file, const std::filesystem::path& name)
{
    const int error = test::errorOf([&] {
        file.open(name);
        file.readDefinitions();
        file.measure();
    });
    std::string told = std::to_string(error) + ' ' + std::to_string(file.recordBytes()) + ' ' +
                       std::to_string(file.recordCount());
    for (const int n : file.fields().allFields()) {
        const auto i = static_cast<std::size_t>(n);
        told += '\n' + file.fields().fieldName[i] + file.fields().questionText[i] + ' ' +
                std::to_string(file.fields().length(n));
    }
    return told;
}

void compareReading(const std::filesystem::path& name, RecordNumber records)
{
    const std::string difference = test::differentReading(name, 1 + records / kMostSingle);
    require(difference.empty(), "the pass reads otherwise: " + difference);
}

}  // namespace

}  // namespace quorvin::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quorvin;
    using namespace quorvin::fuzz;
    static const test::TempFolder folder;
    std::string bytes = bytesOf(data, size);
    std::filesystem::path name = folder.write("prova.rec", bytes);

    RecFile file, again;
    const std::string told = opened(file, name);
    require(opened(again, name) == told, "the file is not read the same again");
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
