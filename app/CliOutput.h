/// What quorvin-cli writes and prints of the records that a search finds, or of an interval.
#pragma once

#include <optional>
#include <set>
#include <string>

#include "app/CliSearch.h"

namespace quorvin {

enum class RecFields { matrix, selection, all };

struct CliCreateOptions {
    std::string target;          ///< file name, UTF-8
    std::set<RecFields> fields;  ///< those asked for; exactly one is needed
    bool sovrascrivi = false;    ///< an existing file may be replaced
    std::optional<bool>
        compat;  ///< EpiData's greatest length of a field; unset: if the file's fields keep to it
};

/// Writes the hits of a search into a new REC file, and says what was written; returns their number. Raises
/// CliError for the open file as target, one that is there, an empty matrix, or no choice of fields.
double createRec(RecFile& file, const CliSearchOptions& search, const CliCreateOptions& options);

/// Prints the print file of a search, or of the interval that the options' range is when they have no
/// criteria; returns the number of hits, or whether anything was printed. An error is raised after what was
/// put together so far has been printed.
double printPrintFile(RecFile& file, const CliSearchOptions& search);

}  // namespace quorvin
