#include "app/CliOutput.h"

#include <exception>
#include <filesystem>
#include <iostream>

#include "app/CliError.h"
#include "app/CliReport.h"
#include "base/CommandLine.h"
#include "base/RuntimeError.h"
#include "output/IntervalPrint.h"
#include "output/PrintFile.h"
#include "output/PrintMatrix.h"
#include "output/RecExport.h"
#include "search/SearchDriver.h"
#include "view/Messages.h"

namespace quorvin {

namespace {

constexpr RecordNumber kStep = 100000;

[[noreturn]] void fail(const std::string& words)
{
    throw CliError{messages::kError + words};
}

/// The matrix beside the file; one that cannot be read is said and does no harm.
PrintMatrix matrixOf(const RecFile& file)
{
    PrintMatrix matrix;
    try {
        matrix.read(file);
    } catch (const std::exception&) {
        std::cerr << messages::kFileError << currentError().description() << '\n';
    }
    return matrix;
}

/// Searches without any list; returns the number of hits.
double searchInto(SearchConsumer& consumer, RecFile& file, const CliSearchOptions& options)
{
    SearchDriver driver(file);
    driver.addConsumer(consumer);
    SearchQuery query = queryFrom(options, file);
    query.unlisted = true;
    query.sort = false;
    runSearch(driver, query, file, [](SearchDriver::State) {});
    return driver.hitCount();
}

std::vector<int> fieldsFor(RecFields choice, const RecFile& file, const CliSearchOptions& search)
{
    switch (choice) {
    case RecFields::matrix: {
        const PrintMatrix matrix = matrixOf(file);
        if (matrix.entries.empty()) throw CliError{messages::kNoFields};
        return fieldsOf(matrix.entries);
    }
    case RecFields::selection:
        return fieldsOf(queryFrom(search, file).selection);
    case RecFields::all:
        break;
    }
    return allFields(file.fields());
}

void requireTarget(const std::filesystem::path& target, const RecFile& file, const CliCreateOptions& options)
{
    if (isSameFile(target, file.dataFileName())) throw CliError{messages::kIsSource};
    std::error_code ignored;
    if (!options.sovrascrivi && std::filesystem::exists(target, ignored))
        fail("il file " + options.target + " esiste già");
}

/// Lines end as all output does.
void printText(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t end = text.find("\r\n");
        std::cout << printable(text.substr(0, end)) << '\n';
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
    }
}

void printInterval(PrintFile& printFile, RecFile& file, const CliSearchOptions& options)
{
    IntervalPrint interval(file, printFile);
    const RecordNumber last = options.to.value_or(file.recordCount());
    const bool beyond = last > file.recordCount() && options.from.value_or(1) > 0;
    if (beyond) return;
    if (!interval.start(static_cast<double>(options.from.value_or(1)), static_cast<double>(last),
                        options.norec))
        failForRange(file);
    while (interval.advance(kStep)) {
    }
}

}  // namespace

double createRec(RecFile& file, const CliSearchOptions& search, const CliCreateOptions& options)
{
    const std::filesystem::path target = pathFromUtf8(options.target);
    if (options.fields.size() != 1) fail("serve una sola scelta fra --matrice, --ricerca e --tutto");
    requireTarget(target, file, options);
    RecExport output(file);
    const bool compat = options.compat.value_or(file.fields().isEpiDataCompatible());
    output.prepare(RecExport::Target{std::filesystem::absolute(target),
                                     fieldsFor(*options.fields.begin(), file, search),
                                     greatestLength(compat)});
    const double hits = searchInto(output, file, search);
    const auto written = output.takeWritten();
    if (written && written->records == 0) {
        std::cerr << options.target << ": nessun rekord trovato, il file è senza rekord\n";
    } else if (written && !search.quiet) {
        std::cout << options.target << ": rekord scritti " << written->records << '\n';
    }
    return hits;
}

double printPrintFile(RecFile& file, const CliSearchOptions& search)
{
    const PrintMatrix matrix = matrixOf(file);
    if (matrix.entries.empty()) std::cerr << messages::kEmptyMatrix << '\n';
    PrintFile printFile(file, matrix);
    double printed = 0;
    std::exception_ptr failure;
    try {
        if (search.criteria.empty()) {
            printInterval(printFile, file, search);
            printed = printFile.text().empty() ? 0 : 1;
        } else {
            printFile.stamp2 = true;
            printed = searchInto(printFile, file, search);
        }
    } catch (const std::exception&) {
        failure = std::current_exception();
    }
    if (!search.quiet) printText(printFile.text());
    if (printFile.isFull()) std::cerr << "file di stampa pieno (32K): il resto manca\n";
    if (failure) std::rethrow_exception(failure);
    return printed;
}

}  // namespace quorvin
