#include "output/RecExport.h"

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

void RecExport::searchEnds(SearchEnd end, std::string_view, const Matcher&)
{
    if (!writer_.isOpen()) return;
    if (end == SearchEnd::failed) {
        writer_.discard();
        return;
    }
    writer_.finish();
    written_ = Written{writing_, writer_.recordCount()};
}

}  // namespace quorvin
