/// Everything that one search goes by, as the user has set it when the search starts.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "search/SearchMode.h"
#include "view/FieldList.h"

namespace quorvin {

/// First and last record of a partial search, as typed: any numbers. Without the last one it goes to the
/// file's end.
struct SearchRange {
    double from = 0;
    std::optional<double> to;
};

struct SearchQuery {
    SearchMode mode = kUsualMode;
    FieldList selection;             ///< the fields tested, in this order
    std::vector<std::string> texts;  ///< their search texts, as typed
    FieldList joinList;              ///< fields searched as one, while `unirek` is set; tail of the selection
    int startField = 0;              ///< the field whose value stands in the hit list
    std::optional<SearchRange> range;  ///< a partial search; the whole file without it

    bool norec = false;           ///< skip records deleted in EpiData
    bool eliminapuntegg = false;  ///< punctuation does not count
    bool unirek = false;          ///< the join list is searched as one field
    bool elencorekord = false;    ///< list the hits; without it the search pauses at each
    bool unlisted = false;        ///< the hits are only counted and handed on
    bool sort = false;            ///< the list is List2, in alphabetical order
    bool maxel = false;           ///< List2's values are wide
    bool Check2 = false;          ///< the list also shows the last field but one of the selection
};

}  // namespace quorvin
