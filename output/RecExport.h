/// Writes what a search finds into a new REC file.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "rec/RecWriter.h"
#include "search/SearchConsumer.h"

namespace quorvin {

/// Takes part in the searches that it is prepared for. The file appears when the search ends, whole, with
/// the hits so far; an error leaves none.
class RecExport : public SearchConsumer {
public:
    struct Target {
        std::filesystem::path name;
        std::vector<int> fields;  ///< in the order of the new file
        int MaxTextLength;        ///< characters; longer fields are cut
    };
    /// A file that was completed.
    struct Written {
        std::filesystem::path name;
        RecordNumber records;
    };

    /// `file` must outlive the export.
    explicit RecExport(const RecFile& file) : file_(file) {}

    /// Asked before each search, to call `prepare`; false when there shall be no search.
    std::function<bool(const SearchQuery&)> beforeSearch;

    /// Has the searches to come write this file, or none.
    void prepare(std::optional<Target> target) { target_ = std::move(target); }

    /// The file that the last search completed; told once.
    std::optional<Written> takeWritten() { return std::exchange(written_, {}); }

    bool mayStart(const SearchQuery& query) override { return !beforeSearch || beforeSearch(query); }
    void searchStarts(const SearchQuery& query, RecordNumber searchStart, RecordNumber searchEnd) override;
    void hit(RecordScanner& record) override;
    void searchEnds(SearchEnd end, std::string_view criteria, const Matcher& matcher) override;

private:
    const RecFile& file_;
    std::optional<Target> target_;
    RecWriter writer_;
    std::filesystem::path writing_;  ///< the file that the search writes
    std::optional<Written> written_;
};

}  // namespace quorvin
