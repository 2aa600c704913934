/// What wants to see the records that a search finds.
#pragma once

#include <string_view>

#include "rec/RecFormat.h"

namespace quorvin {

class Matcher;
class RecordScanner;
struct SearchQuery;

/// Why a search ended.
enum class SearchEnd {
    completed,  ///< all records of the range were tested
    stopped,    ///< the user stopped it; what was found counts
    refused,    ///< the user answered No at a hit
    failed,     ///< an error ended it, or the end of the window
};

/// Called by the search driver in the order of the methods here; what a consumer throws ends the search as an
/// error of its own does. A consumer must leave the search as it is.
class SearchConsumer {
public:
    SearchConsumer() = default;
    SearchConsumer(const SearchConsumer&) = delete;
    SearchConsumer& operator=(const SearchConsumer&) = delete;
    virtual ~SearchConsumer() = default;

    /// A search is asked for, in a file of so many records; its range may still turn out to be invalid. What
    /// is left of the search before is stale.
    virtual void searchAsked(const SearchQuery& /*query*/, RecordNumber /*recordCount*/) {}

    /// Asked before anything begins, when the range is known to be valid; false when there shall be no
    /// search.
    virtual bool mayStart(const SearchQuery& /*query*/) { return true; }

    /// A search over these records begins; they may be none. What this raises ends the search before it has
    /// begun for this consumer and those behind it: they are told nothing more.
    virtual void searchStarts(const SearchQuery& /*query*/, RecordNumber /*searchStart*/,
                              RecordNumber /*searchEnd*/)
    {
    }

    /// All fields of a tested record matched; for counting, before the hit is shown and before the user can
    /// refuse it. `matcher` holds the values as they were compared.
    virtual void recordMatched(const Matcher& /*matcher*/) {}

    /// A hit that the user has not refused, after its line has been listed. `record` is the one found.
    virtual void hit(RecordScanner& /*record*/) {}

    /// The search has ended. `criteria`: its closing caption, Windows-1252. `matcher` holds the search texts
    /// as they were compared.
    virtual void searchEnds(SearchEnd /*end*/, std::string_view /*criteria*/, const Matcher& /*matcher*/) {}
};

}  // namespace quorvin
