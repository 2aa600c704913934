/// The search of quorvin-cli.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "rec/RecFile.h"
#include "search/SearchDriver.h"

namespace quorvin {

/// What the arguments say about a search; texts in UTF-8.
struct CliSearchOptions {
    std::vector<std::string> criteria;  ///< CAMPO=TESTO each; the last one's field is the start field
    int mode = static_cast<int>(kUsualMode);
    std::optional<std::int64_t> from;
    std::optional<std::int64_t> to;
    bool norec = false;
    bool eliminapuntegg = false;
    bool maiuscolo = false;
    std::optional<std::string> unirek;  ///< fields searched as one, separated by commas
    bool sort = false;
    bool maxel = false;
    bool check2 = false;
    bool quiet = false;
};

/// How hits are printed: the lines of the hit list, or whole records.
enum class HitFormat { lines, csv, json };

/// The search that the options ask for, listing its hits. Raises CliError for fields that the file does not
/// have, a join list that is not the tail of the selection, or an option that the mode excludes.
SearchQuery queryFrom(const CliSearchOptions& options, const RecFile& file);

/// Runs a search to its end. `afterStep`: called after some 100,000 records each, with how the search
/// stands then. An error during the search is raised after the last step. Raises CliError for an invalid
/// range.
void runSearch(SearchDriver& driver, const SearchQuery& query, const RecFile& file,
               const std::function<void(SearchDriver::State)>& afterStep);

/// Runs a search without any list; returns the number of hits. A request to end the program ends it like an
/// error, so that nothing half written is left.
double searchInto(SearchConsumer& consumer, RecFile& file, SearchQuery query);

/// Raises the CliError for a range of records that the file does not have.
[[noreturn]] void failForRange(const RecFile& file);

/// Searches an open file and prints the hits to standard output; returns their number. An error during the
/// search is raised after what was found so far has been printed. Raises CliError for an invalid range.
double printHits(RecFile& file, const CliSearchOptions& options, HitFormat format);

}  // namespace quorvin
