#include "output/RecExport.h"

#include <numeric>

#include "view/FieldList.h"

namespace quorvin {

void RecExport::searchStarts(const SearchQuery&, RecordNumber, RecordNumber)
{
    written_.reset();
    if (!target_) return;
    writing_ = target_->name;
    writer_.start(writing_, file_, target_->fields, target_->MaxTextLength);
}

void RecExport::hit(RecordScanner& record)
{
    if (writer_.isOpen()) writer_.add(record);
}

void RecExport::searchEnds(SearchEnd end, std::string_view)
{
    if (!writer_.isOpen()) return;
    if (end == SearchEnd::failed) {
        writer_.discard();
        return;
    }
    writer_.finish();
    written_ = Written{writing_, writer_.recordCount()};
}

std::vector<int> fieldsOf(const FieldList& list)
{
    std::vector<int> fields;
    for (int i = 1; i <= list.count(); ++i)
        fields.push_back(list.at(i));
    return fields;
}

std::vector<int> allFields(const FieldTable& table)
{
    std::vector<int> fields(static_cast<std::size_t>(table.fieldCount));
    std::iota(fields.begin(), fields.end(), 1);
    return fields;
}

}  // namespace quorvin
