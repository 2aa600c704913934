#include "app/CliSearch.h"

#include <algorithm>
#include <charconv>
#include <exception>
#include <iostream>
#include <memory>

#include "app/CliError.h"
#include "app/CliHitPrinters.h"
#include "app/CliReport.h"
#include "base/Ansi.h"
#include "base/CommandLine.h"
#include "base/Text.h"
#include "view/Messages.h"

namespace quorvin {

namespace {

/// Records between two looks at what there is to print.
constexpr RecordNumber kStep = 100000;

/// Number of a field given by name, blanks and case aside, or as "#7".
int fieldNumber(const FieldTable& fields, const std::string& given)
{
    const std::string name = upper(trim(fromUtf8(given)));
    if (name.starts_with('#')) {
        int n = 0;
        const auto end = std::from_chars(name.data() + 1, name.data() + name.size(), n);
        const bool whole = end.ec == std::errc() && end.ptr == name.data() + name.size();
        if (whole && n >= 1 && n <= fields.fieldCount) return n;
    }
    for (int n = 1; n <= fields.fieldCount; ++n) {
        if (upper(trim(fields.fieldName[static_cast<std::size_t>(n)])) == name) return n;
    }
    fail("campo inesistente: " + given);
}

void addCriterion(SearchQuery& query, int field, std::string text)
{
    query.selection.append(field);
    query.texts.push_back(std::move(text));
}

bool contains(const FieldList& list, int field)
{
    for (int i = 1; i <= list.count(); ++i) {
        if (list.at(i) == field) return true;
    }
    return false;
}

/// Fills the join list and appends those of its fields that have no text of their own.
void joinFields(SearchQuery& query, const FieldTable& fields, const std::string& names)
{
    query.unirek = true;
    for (std::size_t from = 0; from <= names.size();) {
        const std::size_t comma = std::min(names.find(',', from), names.size());
        query.joinList.append(fieldNumber(fields, names.substr(from, comma - from)));
        from = comma + 1;
    }
    const FieldList given = query.selection;
    for (int i = 1; i <= query.joinList.count(); ++i) {
        if (!contains(given, query.joinList.at(i))) addCriterion(query, query.joinList.at(i), {});
    }
    const int before = query.selection.count() - query.joinList.count();
    for (int i = 1; i <= query.joinList.count(); ++i) {
        if (before < 0 || query.selection.at(before + i) != query.joinList.at(i))
            fail("i campi di --unirek devono essere gli ultimi della ricerca, nello stesso ordine");
    }
}

void checkMode(const CliSearchOptions& options)
{
    const auto mode = static_cast<SearchMode>(options.mode);
    if (options.eliminapuntegg && !testsFieldByField(mode)) fail("--eliminapuntegg vale per i modi da 1 a 5");
    if (options.unirek && !worksWithJoinedFields(mode)) fail("--unirek non vale per il modo 8");
}

/// Prints and forgets lines.
void printLines(HitList& hits)
{
    std::string line;
    for (std::size_t row = 0; row < hits.rowCount(); ++row) {
        line.clear();
        appendPrintable(line, hits.line(row));
        line += '\n';
        std::cout << line;
    }
    hits.clear();
}

}  // namespace

SearchQuery queryFrom(const CliSearchOptions& options, const RecFile& file)
{
    checkMode(options);
    SearchQuery query;
    query.mode = static_cast<SearchMode>(options.mode);
    query.norec = options.norec;
    query.eliminapuntegg = options.eliminapuntegg;
    query.elencorekord = true;
    query.sort = options.sort;
    query.maxel = options.maxel;
    query.Check2 = options.check2;
    if (options.from || options.to) {
        query.range = SearchRange{static_cast<double>(options.from.value_or(1)), {}};
        if (options.to) query.range->to = static_cast<double>(*options.to);
    }
    for (const std::string& criterion : options.criteria) {
        const std::size_t equals = criterion.find('=');
        if (equals == std::string::npos) fail("manca = in " + criterion);
        query.startField = fieldNumber(file.fields(), criterion.substr(0, equals));
        addCriterion(query, query.startField, fromUtf8(criterion.substr(equals + 1)));
    }
    if (options.unirek) joinFields(query, file.fields(), *options.unirek);
    return query;
}

void failForRange(const RecFile& file)
{
    fail("intervallo di rekord non valido, il file ne ha " + std::to_string(file.recordCount()));
}

void runSearch(SearchDriver& driver, const SearchQuery& query, const RecFile& file,
               const std::function<void(SearchDriver::State)>& afterStep)
{
    if (driver.start(query) != SearchDriver::Started::running) failForRange(file);
    std::exception_ptr failure;
    for (auto state = SearchDriver::State::running; state != SearchDriver::State::idle;) {
        try {
            state = driver.advance(kStep);
        } catch (const std::exception&) {
            failure = std::current_exception();
        }
        afterStep(state);
    }
    if (failure) std::rethrow_exception(failure);
}

double searchInto(SearchConsumer& consumer, RecFile& file, SearchQuery query)
{
    noteEndings();
    SearchDriver driver(file);
    driver.addConsumer(consumer);
    query.unlisted = true;
    query.sort = false;
    bool broken = false;
    runSearch(driver, query, file, [&](SearchDriver::State state) {
        if (!isToEnd() || state == SearchDriver::State::idle) return;
        broken = true;
        driver.abandon();
    });
    if (broken) fail("interrotto");
    return driver.hitCount();
}

double printHits(RecFile& file, const CliSearchOptions& options, HitFormat format)
{
    SearchQuery query = queryFrom(options, file);
    SearchDriver driver(file);
    const bool lines = format == HitFormat::lines && !options.quiet;
    // Only lines are ever in any but the records' order.
    query.sort = query.sort && lines;
    query.unlisted = !lines;
    std::unique_ptr<SearchConsumer> printer;
    if (!options.quiet && format == HitFormat::csv) printer = std::make_unique<CsvPrinter>(file.fields());
    if (!options.quiet && format == HitFormat::json) printer = std::make_unique<JsonPrinter>(file.fields());
    if (printer) driver.addConsumer(*printer);

    runSearch(driver, query, file, [&](SearchDriver::State state) {
        // What is sorted can only be printed at the end.
        if (!query.sort || state == SearchDriver::State::idle) printLines(driver.hits());
        requireOutput();
    });
    return driver.hitCount();
}

}  // namespace quorvin
