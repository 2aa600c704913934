/// Input: lines, by turns a search text and the stored value of its field, three pairs at most. All modes,
/// with and without punctuation, with the fields behind the first joined or not, find what the slow
/// comparison finds, and the cheap test lets it through.
#include <sstream>
#include <stdexcept>

#include "fuzz/FuzzTarget.h"
#include "search/Matcher.h"
#include "tests/search/SlowSearch.h"
#include "tests/support/ErrorNumber.h"

namespace quorvin::fuzz {

namespace {

/// Asks the matcher about a record as the search driver does; raises what the search texts do.
bool isHit(Matcher& matcher, const test::SlowSearch& search, const std::vector<std::string>& record)
{
    FieldList selection;
    for (const int field : search.selection)
        selection.append(field);
    const auto mode = static_cast<SearchMode>(search.mode);
    matcher.start(mode, selection, search.texts, search.eliminapuntegg);
    matcher.toglipunti();
    matcher.prepare();
    const std::size_t firstJoined = record.size() - search.joined;
    bool mayMatch = true;
    for (std::size_t i = 1; i < record.size(); ++i) {
        const auto field = static_cast<int>(i);
        const bool joined = i >= firstJoined;
        const auto filter = joined ? std::nullopt : matcher.filter(field, true);
        mayMatch = mayMatch && (!filter || filter->mayHold(record[i]));
        matcher.setFieldValue(field, joined ? std::string_view() : record[i]);
        for (std::size_t j = firstJoined; joined && j < record.size(); ++j)
            matcher.joinFieldValue(field, record[j]);
        matcher.toglipunti();
        if (testsFieldByField(mode)) matcher.testField(field);
    }
    matcher.testFields();
    require(mayMatch || !matcher.allMatched(), "the cheap test stops no hit");
    return matcher.allMatched();
}

/// Nothing where a search text has too many words.
std::optional<bool> isHitSlowly(const test::SlowSearch& search, const std::vector<std::string>& record)
{
    try {
        return test::isHit(search, record);
    } catch (const std::out_of_range&) {
        return std::nullopt;
    }
}

}  // namespace

}  // namespace quorvin::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quorvin;
    using namespace quorvin::fuzz;
    constexpr std::size_t kMostFields = 3;
    static Matcher matcher;

    test::SlowSearch search;
    std::vector<std::string> record(1);
    std::istringstream lines(bytesOf(data, size));
    for (std::string text, value; search.texts.size() < kMostFields && std::getline(lines, text);) {
        std::getline(lines, value);
        search.texts.push_back(text);
        search.selection.push_back(static_cast<int>(record.size()));
        record.push_back(value);
    }
    if (record.size() == 1) return 0;
    const int options = record.size() > 2 ? 4 : 2;
    for (search.mode = 1; search.mode <= kSearchModes; ++search.mode) {
        for (int option = 0; option < options; ++option) {
            search.eliminapuntegg = option % 2 != 0;
            search.joined = option < 2 ? 0 : record.size() - 2;
            bool hit = false;
            const int error = test::errorOf([&] { hit = fuzz::isHit(matcher, search, record); });
            const std::optional<bool> slow = isHitSlowly(search, record);
            // The texts before the one with too many words may tell already that there is no hit.
            require(error == 0 ? slow == hit : !slow.value_or(false),
                    "the same hit in mode " + std::to_string(search.mode) + ", option " +
                        std::to_string(option));
        }
    }
    return 0;
}
