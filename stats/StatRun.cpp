#include "stats/StatRun.h"

#include <algorithm>

#include "base/Text.h"
#include "search/Matcher.h"

namespace quorvin {

namespace {

/// Characters for a column of the grid: the field's name and its values have room, and so have counts.
int columnWidth(const FieldTable& fields, int field)
{
    constexpr int kLeast = 8;
    const auto name = static_cast<int>(trim(fields.fieldName[static_cast<std::size_t>(field)]).size());
    return std::max({name, fields.length(field), kLeast});
}

}  // namespace

void StatRun::clear()
{
    table.clear();
    ready_ = false;
}

void StatRun::searchAsked(const SearchQuery&, RecordNumber)
{
    clear();
}

void StatRun::searchStarts(const SearchQuery&, RecordNumber, RecordNumber)
{
    options_ = askOptions();
    table.accorpa = options_.accorpa;
    const FieldList& selected = options_.SelectedFields;
    last_ = selected.at(selected.count());
    penultimate_ = selected.at(std::max(selected.count() - 1, 0));
    captions_ = {fields_.fieldName[static_cast<std::size_t>(last_)],
                 fields_.fieldName[static_cast<std::size_t>(penultimate_)],
                 {},
                 columnWidth(fields_, last_),
                 columnWidth(fields_, penultimate_)};
}

void StatRun::recordMatched(const Matcher& matcher)
{
    if (options_.mode != StatMode::off)
        table.statistica(matcher.fieldValue(last_), matcher.fieldValue(penultimate_));
}

void StatRun::searchEnds(SearchEnd end, std::string_view, const Matcher& matcher)
{
    if (end == SearchEnd::refused || end == SearchEnd::failed) {
        clear();
        return;
    }
    ready_ = options_.mode != StatMode::off;
    for (int i = 1; i <= matcher.selection().count(); ++i) {
        if (matcher.selection().at(i) == last_) captions_.fieldPattern = matcher.fieldPattern(i);
    }
}

}  // namespace quorvin
