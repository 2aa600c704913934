/// Counts what a search finds, and says what the grid is to show of it.
#pragma once

#include <functional>
#include <string_view>

#include "rec/FieldTable.h"
#include "search/SearchConsumer.h"
#include "stats/StatGrid.h"
#include "stats/StatOptions.h"
#include "stats/StatTable.h"

namespace quorvin {

/// Takes part in all searches, and counts in those that a statistics mode is on for. What it has counted is
/// there from the end of the search until `clear`, unless the search failed or the user refused a hit.
class StatRun : public SearchConsumer {
public:
    /// `fields` must outlive the run.
    explicit StatRun(const FieldTable& fields) : fields_(fields) {}

    /// Asked when a search starts.
    std::function<StatOptions()> askOptions = [] { return StatOptions(); };

    StatTable table;
    /// Those of the last search.
    const StatOptions& options() const { return options_; }

    /// Whether there is a table to show.
    bool isReady() const { return ready_; }
    StatGrid grid() const { return {table, options_, captions_}; }
    /// What stands around its counts. Without a column field that name is empty.
    const StatCaptions& captions() const { return captions_; }
    /// Empties the table for the next search.
    void clear();

    void searchAsked(const SearchQuery& query, RecordNumber recordCount) override;
    void searchStarts(const SearchQuery& query, RecordNumber searchStart, RecordNumber searchEnd) override;
    void recordMatched(const Matcher& matcher) override;
    void searchEnds(SearchEnd end, std::string_view criteria, const Matcher& matcher) override;

private:
    const FieldTable& fields_;
    StatOptions options_;
    StatCaptions captions_;
    int last_ = 0;         ///< field of the rows
    int penultimate_ = 0;  ///< field of the columns
    bool ready_ = false;
};

}  // namespace quorvin
