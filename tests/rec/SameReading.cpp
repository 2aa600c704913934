#include "tests/rec/SameReading.h"

#include <functional>
#include <vector>

#include "rec/RecordScanner.h"
#include "tests/support/ErrorNumber.h"

namespace quorvin::test {

namespace {

/// Values and mark of a record, or the error instead. `reader`: the file or its scanner; `read` has it read
/// the record.
template<class Reader>
std::vector<std::string> reading(Reader& reader, int fields, const std::function<void()>& read)
{
    if (const int error = errorOf(read)) return {"error " + std::to_string(error)};
    std::vector<std::string> all{std::string(1, reader.lastMark())};
    for (int n = 1; n <= fields; ++n)
        all.emplace_back(reader.fieldValue(n));
    return all;
}

}  // namespace

void load(RecFile& file, const std::filesystem::path& name)
{
    file.open(name);
    file.readDefinitions();
    file.measure();
}

std::string differentReading(const std::filesystem::path& name, RecordNumber step)
{
    RecFile file, single;
    load(file, name);
    load(single, name);
    RecordScanner scanner(file);
    for (const bool capitals : {false, true}) {
        file.impostMaiusc = single.impostMaiusc = capitals;
        scanner.start(1, file.recordCount());
        for (RecordNumber n = 1; n <= file.recordCount(); ++n) {
            const int fields = n % step == 0 ? file.fieldCount() : 0;
            const auto passed = reading(scanner, fields, [&] { scanner.next(); });
            if (passed.front().starts_with("error")) scanner.start(n + 1, file.recordCount());
            if (fields == 0) continue;
            const auto expected = reading(single, fields, [&] {
                single.seek(n);
                single.caricastring();
            });
            if (passed != expected) return "record " + std::to_string(n) + (capitals ? " in capitals" : "");
        }
        if (scanner.next()) return "a record behind the last";
    }
    return {};
}

}  // namespace quorvin::test
