#include "app/CliOutput.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <limits>

#include "app/CliError.h"
#include "app/CliReport.h"
#include "base/CommandLine.h"
#include "base/RuntimeError.h"
#include "output/IntervalPrint.h"
#include "output/PrintFile.h"
#include "output/PrintMatrix.h"
#include "output/RecExport.h"
#include "view/Messages.h"

namespace quorvin {

namespace {

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

std::vector<int> fieldsFor(RecFields choice, const RecFile& file, const SearchQuery& query)
{
    switch (choice) {
    case RecFields::matrix: {
        const PrintMatrix matrix = matrixOf(file);
        if (matrix.entries.empty()) throw CliError{messages::kNoFields};
        return matrix.entries.numbers();
    }
    case RecFields::selection:
        return query.selection.numbers();
    case RecFields::all:
        break;
    }
    return file.fields().allFields();
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
    const RecordNumber first = options.from.value_or(1);
    const RecordNumber last = options.to.value_or(std::max<RecordNumber>(file.recordCount(), 1));
    if (first < 1 || last < 1) failForRange(file);
    // An interval that goes beyond the file is not printed at all.
    if (!interval.start(static_cast<double>(first), static_cast<double>(last), options.norec)) return;
    interval.advance(std::numeric_limits<RecordNumber>::max());
}

}  // namespace

double createRec(RecFile& file, const CliSearchOptions& search, const CliCreateOptions& options)
{
    const std::filesystem::path target = pathFromUtf8(options.target);
    if (options.fields.size() != 1) fail("serve una sola scelta fra --matrice, --ricerca e --tutto");
    requireTarget(target, file, options);
    const SearchQuery query = queryFrom(search, file);
    RecExport output(file);
    const bool compat = options.compat.value_or(file.fields().isEpiDataCompatible());
    output.prepare(RecExport::Target{std::filesystem::absolute(target),
                                     fieldsFor(*options.fields.begin(), file, query),
                                     greatestLength(compat)});
    const double hits = searchInto(output, file, query);
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
    const bool searches = !search.criteria.empty();
    if (!searches && (search.mode != static_cast<int>(kUsualMode) || search.eliminapuntegg || search.unirek ||
                      search.sort || search.maxel || search.check2))
        fail("senza -c non si cerca: valgono solo --da, --a, --norec, --maiuscolo e --quiet");
    const PrintMatrix matrix = matrixOf(file);
    if (matrix.entries.empty()) std::cerr << messages::kEmptyMatrix << '\n';
    PrintFile printFile(file, matrix);
    double printed = 0;
    std::exception_ptr failure;
    try {
        if (searches) {
            printFile.stamp2 = true;
            printed = searchInto(printFile, file, queryFrom(search, file));
        } else {
            printInterval(printFile, file, search);
            printed = printFile.text().empty() ? 0 : 1;
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
