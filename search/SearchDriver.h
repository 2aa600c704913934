/// Runs a search: one pass over the records of a range, testing each, listing or pausing at the hits.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <vector>

#include "rec/RecFile.h"
#include "rec/RecordScanner.h"
#include "search/HitList.h"
#include "search/Matcher.h"
#include "search/SearchConsumer.h"
#include "search/SearchQuery.h"

namespace quorvin {

/// A search is pulled: it goes on only while `advance` is called, so that stopping is not calling it again.
/// Knows nothing of windows. Record numbers are 1-based, ranges inclusive.
class SearchDriver {
public:
    enum class Started {
        running,
        badStart,  ///< the first record is 0 or negative; nothing is searched
        badEnd,    ///< the last record is 0, negative or beyond the file; nothing is searched
        refused,   ///< a consumer wants no search
    };
    enum class State {
        idle,
        running,
        atHit,  ///< paused at a hit: it waits for `goOn` or `refuse`
    };

    /// `file` must outlive the driver.
    explicit SearchDriver(RecFile& file) : file_(file), scanner_(file) {}

    /// Adds one that wants to see what is found; it must outlive the driver. Called in the order of adding.
    void addConsumer(SearchConsumer& consumer) { consumers_.push_back(&consumer); }

    /// Empties the results of the search before and begins: sets the criteria, recounts the file, checks the
    /// range. Raises what recounting or a consumer raises; nothing runs then.
    Started start(const SearchQuery& query);

    /// Tests at most `most` records, fewer where reading them takes long, or orders about as many lines of
    /// the list, and tells how the search stands. An error ends the search, which keeps what was found, and
    /// is raised: reading errors, 62 when the file was cut short meanwhile, 9 for too many words.
    State advance(RecordNumber most);

    /// Answers at a hit: the hit counts and the search goes on, or the search ends before anybody sees it, by
    /// the user's No or because the hit cannot be shown. `advance` until idle.
    void goOn();
    void refuse();
    void fail();

    /// Ends a running search as if the last record had been reached. The list may still have to be put in
    /// order: `advance` until idle. Once more, it leaves the list as it is.
    void stop();

    /// Ends a running search because nobody wants its results any more: for the consumers it has failed,
    /// unless its records were done with and only the list was still to be put in order. `advance` until
    /// idle.
    void abandon();

    /// Forgets the results.
    void clear();

    /// How the search stands; idle before the first and after each.
    State state() const { return state_; }
    /// Record tested last.
    RecordNumber position() const { return scanner_.number(); }
    /// Share of the work that is done, 0 to 1.
    double progress() const;

    /// Hits so far; kept until the next search.
    double hitCount() const { return hitCount_; }
    /// The criteria, and behind them the number of hits when the search has ended. Windows-1252.
    const std::string& criteria() const { return criteria_; }
    /// The hits' lines. Lines may be taken out while a search runs, not put in.
    const HitList& hits() const { return hits_; }
    HitList& hits() { return hits_; }

private:
    /// A cheap test of one field's stored value.
    struct FieldFilter {
        int field;
        ByteFilter filter;
    };

    Started checkRange();
    void scan(RecordNumber most);
    void prepare();
    bool isJoined(int position) const;
    bool carriesJoin(int field) const;
    bool mayMatch();
    bool testRecord();
    void fillValue(int position);
    void takeHit();
    void listHit();
    void passHit();
    void endScan(SearchEnd end);
    void endAtHit(SearchEnd end);
    void finish(std::exception_ptr failure = nullptr);

    RecFile& file_;
    RecordScanner scanner_;
    Matcher matcher_;
    HitList hits_;
    std::vector<SearchConsumer*> consumers_;
    std::size_t started_ = 0;  ///< consumers that the search has begun for
    SearchQuery query_;
    std::vector<FieldFilter> filters_;
    State state_ = State::idle;
    RecordNumber searchStart_ = 1;
    RecordNumber searchEnd_ = 0;
    double hitCount_ = 0;
    std::string criteria_;
    SearchEnd end_ = SearchEnd::completed;
    bool scanned_ = false;  ///< no record is left to test, the list may have to be put in order
};

}  // namespace quorvin
