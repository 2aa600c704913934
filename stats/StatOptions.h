/// What a statistics run counts and shows, as the user has set it when the search starts.
#pragma once

#include "view/FieldList.h"

namespace quorvin {

enum class StatMode {
    off,
    freq,     ///< frequency table: how often each value occurs
    tabella,  ///< cross table: how often each pair of values occurs
};

struct StatOptions {
    StatMode mode = StatMode::off;
    FieldList SelectedFields;   ///< rows: the last field; columns: the one before it, none when there is one
    bool accorpa = false;       ///< row values that are dates are counted by month and year
    bool SommaCampNum = false;  ///< shows the sums of the values that are numbers
};

}  // namespace quorvin
