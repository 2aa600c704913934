#include "view/FieldList.h"

#include <cstddef>

#include "base/RuntimeError.h"

namespace quorvin {

void FieldList::append(int field)
{
    if (count_ >= kMaxFields) throw RuntimeError(ErrorNumber::subscript);
    entries_[static_cast<std::size_t>(++count_)] = field;
}

int FieldList::at(int position) const
{
    if (position < 0 || position > count_) throw RuntimeError(ErrorNumber::subscript);
    return entries_[static_cast<std::size_t>(position)];
}

}  // namespace quorvin
