/// The tables that quorvin-cli counts.
#pragma once

#include "app/CliSearch.h"
#include "stats/StatOptions.h"

namespace quorvin {

enum class GridFormat { tsv, json };

struct CliStatOptions {
    bool accorpa = false;
    bool somma = false;
    GridFormat format = GridFormat::tsv;
};

/// Counts the hits of a search by the last of its criteria's fields and the one before it, and prints the
/// table; returns the number of hits. Limits that were reached are said on standard error.
double printStatistics(RecFile& file, const CliSearchOptions& search, StatMode mode,
                       const CliStatOptions& options);

}  // namespace quorvin
