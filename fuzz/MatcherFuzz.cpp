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

/// As the search driver asks the matcher about a record.
class Asking {
public:
    Asking(const test::SlowSearch& search, const std::vector<std::string>& record) :
        search_(search),
        record_(record)
    {
    }

    /// Whether the record is a hit; raises what its search texts do.
    bool isHit(Matcher& matcher)
    {
        FieldList selection;
        for (const int field : search_.selection)
            selection.append(field);
        const auto mode = static_cast<SearchMode>(search_.mode);
        matcher.start(mode, selection, search_.texts, search_.eliminapuntegg);
        matcher.toglipunti();
        matcher.prepare();
        bool mayMatch = true;
        for (int i = 1; i <= selection.count(); ++i) {
            const int field = selection.at(i);
            const auto filter = isJoined(i) ? std::nullopt : matcher.filter(i, true);
            mayMatch = mayMatch && (!filter || filter->mayHold(stored(field)));
            fillValue(matcher, i);
            matcher.toglipunti();
            if (testsFieldByField(mode)) matcher.testField(i);
        }
        matcher.testFields();
        require(mayMatch || !matcher.allMatched(), "the cheap test stops no hit");
        return matcher.allMatched();
    }

private:
    const std::string& stored(int field) const { return record_.at(static_cast<std::size_t>(field)); }
    std::size_t firstJoined() const { return search_.selection.size() - search_.joined; }
    bool isJoined(int position) const { return static_cast<std::size_t>(position) > firstJoined(); }

    void fillValue(Matcher& matcher, int position)
    {
        const int field = search_.selection.at(static_cast<std::size_t>(position) - 1);
        matcher.setFieldValue(field, isJoined(position) ? std::string_view() : stored(field));
        if (!isJoined(position)) return;
        for (std::size_t j = firstJoined(); j < search_.selection.size(); ++j)
            matcher.joinFieldValue(field, stored(search_.selection[j]));
    }

    const test::SlowSearch& search_;
    const std::vector<std::string>& record_;
};

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
            const int error = test::errorOf([&] { hit = Asking(search, record).isHit(matcher); });
            const std::optional<bool> slow = isHitSlowly(search, record);
            // The texts before the one with too many words may tell already that there is no hit.
            require(error == 0 ? slow == hit : !slow.value_or(false),
                    "the same hit in mode " + std::to_string(search.mode) + ", option " +
                        std::to_string(option));
        }
    }
    return 0;
}
