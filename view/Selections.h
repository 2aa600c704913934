/// The lists of fields that the user has clicked together.
#pragma once

#include "view/FieldList.h"

namespace quorvin {

struct Selections {
    FieldList searchSelection;  ///< the fields that a search tests, in this order
    FieldList SelectedFields;   ///< the fields that the statistics look at: the last and the one before it
    FieldList joinList;         ///< fields searched as one; always the tail of the search selection

    int SelectedFieldCount() const { return SelectedFields.count(); }

    void clear() { *this = Selections(); }
};

}  // namespace quorvin
