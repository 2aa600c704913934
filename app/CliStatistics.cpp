#include "app/CliStatistics.h"

#include <functional>
#include <iostream>
#include <nlohmann/json.hpp>

#include "app/CliReport.h"
#include "base/Text.h"
#include "stats/StatRun.h"
#include "view/Messages.h"

namespace quorvin {

namespace {

using Json = nlohmann::ordered_json;

/// The grid row by row, cells separated by tabs.
void printTsv(const StatGrid& grid)
{
    for (int i = 0; i < grid.rows(); ++i) {
        for (int j = 0; j < grid.columns(); ++j)
            std::cout << (j == 0 ? "" : "\t") << printable(grid.at(i, j).text);
        std::cout << '\n';
    }
}

Json numbers(int count, const std::function<Json(int)>& number)
{
    Json all = Json::array();
    for (int j = 1; j <= count; ++j)
        all.push_back(number(j));
    return all;
}

/// A sum's cell as a number; null where the grid shows none.
Json sum(const StatCell& cell)
{
    return cell.text.empty() ? Json() : Json::parse(cell.text);
}

/// The same with counts as numbers; blank column values are the last column, named by the empty text.
void printJson(const StatRun& run)
{
    const StatTable& table = run.table;
    const StatGrid grid = run.grid();
    const int columns = grid.totalsColumn() - 1;
    const auto text = [](std::string_view cell) { return onOneLine(cell); };
    Json rows = Json::array();
    for (int i = 1; i < table.nuovoY(); ++i) {
        rows.push_back({{"valore", text(table.valoriY(i))},
                        {"conteggi", numbers(columns, [&](int j) { return table.conteggi(i, j); })},
                        {"totale", table.totaliRiga(i)}});
    }
    Json json = {
        {"asseY", text(trim(run.captions().lastName))},
        {"asseX", text(trim(run.captions().penultimateName))},
        {"ricerca", text(run.captions().fieldPattern)},
        {"colonne", numbers(columns, [&](int j) { return text(table.valoriX(j)); })},
        {"righe", rows},
        {"totaliColonne", numbers(columns, [&](int j) { return table.totaliColonna(j); })},
        {"totale", table.total()},
    };
    if (run.options().SommaCampNum) {
        const int row = grid.totalsRow() + 1;
        json["somme"] = numbers(columns, [&](int j) { return sum(grid.at(row, j)); });
        json["somma"] = sum(grid.at(row, grid.totalsColumn()));
    }
    std::cout << json.dump(2) << '\n';
}

/// Fields that only --unirek names are searched, not counted.
StatOptions statOptions(const SearchQuery& query, std::size_t given, StatMode mode,
                        const CliStatOptions& options)
{
    StatOptions stat;
    stat.mode = mode;
    stat.accorpa = options.accorpa;
    stat.SommaCampNum = options.somma;
    for (int i = 1; i <= static_cast<int>(given); ++i)
        stat.SelectedFields.append(query.selection.at(i));
    return stat;
}

}  // namespace

double printStatistics(RecFile& file, const CliSearchOptions& search, StatMode mode,
                       const CliStatOptions& options)
{
    StatRun run(file.fields());
    const SearchQuery query = queryFrom(search, file);
    run.askOptions = [&] { return statOptions(query, search.criteria.size(), mode, options); };
    const double hits = searchInto(run, file, query);
    if (!search.quiet && options.format == GridFormat::tsv) printTsv(run.grid());
    if (!search.quiet && options.format == GridFormat::json) printJson(run);
    if (run.table.isFullY()) std::cerr << messages::kLimitY << '\n';
    if (run.table.isFullX()) std::cerr << messages::kLimitX << '\n';
    return hits;
}

}  // namespace quorvin
