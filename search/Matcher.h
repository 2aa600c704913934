/// The comparison of field values with search texts, in eight modes.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rec/RecFormat.h"
#include "search/ByteFilter.h"
#include "search/IntervalTest.h"
#include "search/SearchMode.h"
#include "search/SearchWords.h"
#include "view/FieldList.h"

namespace quorvin {

/// Holds one search text per selected field and one value per field, both in capitals and without blanks at
/// their ends, and counts the selected fields whose value matches. Positions are those of the selection, from
/// 1; fields are field numbers, from 1.
class Matcher {
public:
    /// Begins a search. `texts`: the search text of each position, in order, as typed; RuntimeError 5 when
    /// there is not one for each. `eliminapuntegg`: punctuation does not count.
    void start(SearchMode mode, const FieldList& selection, const std::vector<std::string>& texts,
               bool eliminapuntegg);

    /// What the search was begun with.
    const FieldList& selection() const { return selection_; }
    SearchMode mode() const { return mode_; }

    /// Search text of a position; RuntimeError 9 outside 1..count.
    const std::string& fieldPattern(int position) const;
    /// Value of a selected field in the record under test; empty for all others and field 0. RuntimeError 9
    /// outside 0..kMaxFields.
    const std::string& fieldValue(int field) const;
    /// Takes a field's stored value, or what several values joined give.
    void setFieldValue(int field, std::string_view stored);
    /// Adds a stored value, in capitals and trimmed, behind the one that the field has: the next field of a
    /// join.
    void joinFieldValue(int field, std::string_view stored);

    /// When punctuation does not count: takes the marks . , - ; : _ ' and all blanks out of the values set
    /// since the last call and, the first time, out of all search texts. The slash stays, for dates.
    void toglipunti()
    {
        if (eliminapuntegg_) stripPunctuation();
    }

    /// Reads the search texts as the mode wants them, once per search, when the first record is tested.
    /// Raises RuntimeError 9 for more than SearchWords::kMost words in one of them.
    void prepare();
    bool isPrepared() const { return prepared_; }

    /// What a field's stored value must hold to match at `position`, if that can be told cheaply. To be asked
    /// for when prepared. `contiguous`: see ByteFilter.
    std::optional<ByteFilter> filter(int position, bool contiguous) const;

    /// Modes 1 to 5: counts the field at `position` if its value matches.
    void testField(int position);
    /// Modes 6 to 8: counts all fields that match, by the mode's procedure of the three that follow.
    void testFields();
    /// Every word occurs; at least one does; interval, or, failing that, text contained.
    void cercastringa();
    void cercastringa2();
    void cercastringa3();

    /// Selected fields that matched in the record under test; to be set to 0 after each record.
    int fieldHitCount = 0;
    /// Whether that were all of them.
    bool allMatched() const { return fieldHitCount == selection_.count(); }

private:
    /// One position's search text, and what the mode makes of it.
    struct Query {
        std::string fieldPattern;
        std::vector<std::string> words;
        std::optional<IntervalTest> interval;
    };

    Query& query(int position) { return queries_[static_cast<std::size_t>(position)]; }
    const Query& query(int position) const { return queries_[static_cast<std::size_t>(position)]; }
    void stripPunctuation();
    template<class Test>
    void countMatches(Test matches);

    SearchMode mode_ = kUsualMode;
    FieldList selection_;
    std::vector<Query> queries_;
    std::array<std::string, kFieldSlots> fieldValue_;
    std::vector<int> punctuated_;  ///< fields whose values toglipunti has not seen
    bool eliminapuntegg_ = false;
    bool patternsStripped_ = false;
    bool prepared_ = false;
};

}  // namespace quorvin
