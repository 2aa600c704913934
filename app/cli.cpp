/// The command-line program: the core without a window.
/// Exit status: 0 something printed, 1 nothing found, 2 error.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/CliDocument.h"
#include "app/CliError.h"
#include "app/CliOutput.h"
#include "app/CliReport.h"
#include "app/CliSearch.h"
#include "app/CliStatistics.h"
#include "base/CommandLine.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "rec/RecFile.h"
#include "view/Messages.h"

namespace {

using namespace quorvin;

constexpr int kFound = 0;
constexpr int kNothingFound = 1;
constexpr int kError = 2;

/// Opens, reads and measures; the two stages have different prefixes.
void openRec(RecFile& file, const std::string& name)
{
    const char* prefix = messages::kError;
    try {
        file.open(pathFromUtf8(name));
        prefix = messages::kFileError;
        file.readDefinitions();
        file.measure();
    } catch (const std::exception&) {
        throw CliError{prefix + std::string(currentError().description())};
    }
}

struct Arguments {
    std::string file;
    RecordNumber record = 0;
    bool json = false;
    CliSearchOptions search;
    HitFormat format = HitFormat::lines;
    CliCreateOptions create;
    CliStatOptions statistics;
    DocumentFormat document = DocumentFormat::text;
};

int runInfo(const Arguments& arguments)
{
    RecFile file;
    openRec(file, arguments.file);
    std::cout << (arguments.json ? infoAsJson(file) : infoAsText(file));
    return kFound;
}

/// Opens the file and reads the record asked for.
void openAtRecord(RecFile& file, const Arguments& arguments)
{
    openRec(file, arguments.file);
    if (arguments.record < 1 || arguments.record > file.recordCount()) {
        throw CliError{messages::kError +
                       ("rekord " + std::to_string(arguments.record) + " inesistente, il file ne ha " +
                        std::to_string(file.recordCount()))};
    }
    file.seek(arguments.record);
    file.caricastring();
}

int runShow(const Arguments& arguments)
{
    RecFile file;
    openAtRecord(file, arguments);
    std::cout << (arguments.json ? recordAsJson(file, arguments.record)
                                 : recordAsText(file, arguments.record));
    return kFound;
}

int runDocument(const Arguments& arguments)
{
    RecFile file;
    openAtRecord(file, arguments);
    return printDocument(file, arguments.document) ? kFound : kNothingFound;
}

/// The commands that search: `work` returns how many hits there were.
int searchIn(const Arguments& arguments, const std::function<double(RecFile&)>& work)
{
    RecFile file;
    openRec(file, arguments.file);
    file.impostMaiusc = arguments.search.maiuscolo;
    return work(file) > 0 ? kFound : kNothingFound;
}

int runSearch(const Arguments& arguments)
{
    return searchIn(arguments,
                    [&](RecFile& file) { return printHits(file, arguments.search, arguments.format); });
}

int runCreate(const Arguments& arguments)
{
    return searchIn(arguments,
                    [&](RecFile& file) { return createRec(file, arguments.search, arguments.create); });
}

int runPrint(const Arguments& arguments)
{
    return searchIn(arguments, [&](RecFile& file) { return printPrintFile(file, arguments.search); });
}

int runStatistics(const Arguments& arguments, StatMode mode)
{
    return searchIn(arguments, [&](RecFile& file) {
        return printStatistics(file, arguments.search, mode, arguments.statistics);
    });
}

void useItalianLabels(CLI::App& app)
{
    const auto formatter = std::make_shared<CLI::Formatter>();
    for (const auto& [english, italian] : std::initializer_list<std::pair<const char*, const char*>>{
             {"Usage", "Uso"},
             {"Positionals", "Argomenti"},
             {"OPTIONS", "OPZIONI"},
             {"SUBCOMMAND", "COMANDO"},
         })
        formatter->label(english, italian);
    app.formatter(formatter);
    app.option_defaults()->group("Opzioni");
    app.set_help_flag("-h,--help", "mostra questo aiuto")->group("Opzioni");
}

/// The parser's own words are English; these say the same.
std::string inItalian(const CLI::ParseError& error)
{
    switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::RequiredError:
        return "manca un argomento";
    case CLI::ExitCodes::ArgumentMismatch:
        return "opzione ripetuta o senza il suo valore";
    case CLI::ExitCodes::ExtrasError:
        return "argomento inatteso";
    case CLI::ExitCodes::ConversionError:
    case CLI::ExitCodes::ValidationError:
        return "valore non valido";
    default:
        return "argomenti non validi";
    }
}

/// Decimal whole numbers only, at most eighteen digits: the parser alone would take a leading zero for octal.
const CLI::Validator& wholeNumber()
{
    static const CLI::Validator validator(
        [](std::string& text) {
            constexpr std::size_t kMostDigits = 18;
            const std::string sign = text.starts_with('-') ? "-" : "";
            std::string digits = text.substr(sign.size());
            const bool whole = !digits.empty() && std::all_of(digits.begin(), digits.end(), isDigit);
            digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
            if (!whole || digits.size() > kMostDigits) return std::string("number");
            text = sign + digits;
            return std::string();
        },
        "");
    return validator;
}

CLI::App* addCommand(CLI::App& app, const char* name, const char* description, Arguments& arguments)
{
    CLI::App* command = app.add_subcommand(name, description)->group("Comandi");
    command->get_help_ptr()->group("Opzioni");
    command->add_option("FILE", arguments.file, "file .rec")->required()->option_text(" ");
    return command;
}

/// A command about one record.
CLI::App* addRecordCommand(CLI::App& app, const char* name, const char* description, Arguments& arguments)
{
    CLI::App* command = addCommand(app, name, description, arguments);
    command->add_option("N", arguments.record, "numero del rekord, dal primo (1)")
        ->required()
        ->transform(wholeNumber())
        ->option_text(" ");
    return command;
}

void addJsonFlag(CLI::App& command, Arguments& arguments)
{
    command.add_flag("--json", arguments.json, "scrive in formato JSON");
}

void addSearchOptions(CLI::App& command, CliSearchOptions& search, bool needsCriteria = true)
{
    command.add_option("-c", search.criteria, "campo (nome o #numero) e testo da cercare; ripetibile")
        ->required(needsCriteria)
        ->allow_extra_args(false)
        ->option_text("CAMPO=TESTO");
    command.add_option("--modo", search.mode, "modo di ricerca, da 1 a 8 (4)")
        ->transform(wholeNumber())
        ->check(CLI::Range(1, kSearchModes))
        ->option_text("N");
    command.add_option("--da", search.from, "primo rekord")->transform(wholeNumber())->option_text("N");
    command.add_option("--a", search.to, "ultimo rekord")->transform(wholeNumber())->option_text("N");
    command.add_flag("--norec", search.norec, "salta i rekord cancellati");
    command.add_flag("--eliminapuntegg", search.eliminapuntegg, "ignora spazi e punteggiatura (modi 1-5)");
    command.add_flag("--maiuscolo", search.maiuscolo, "legge i rekord in maiuscolo");
    command.add_option("--unirek", search.unirek, "cerca questi campi come uno solo")
        ->option_text("CAMPO,CAMPO");
    command.add_flag("--sort", search.sort, "righe dell'elenco in ordine alfabetico");
    command.add_flag("--maxel", search.maxel, "con --sort: valori di 38 caratteri invece di 19");
    command.add_flag("--check2", search.check2, "aggiunge alle righe dell'elenco il penultimo campo");
    command.add_flag("--quiet", search.quiet, "non scrive nulla, conta solo l'esito");
}

const std::map<std::string, HitFormat> kHitFormats = {
    {"righe", HitFormat::lines}, {"csv", HitFormat::csv}, {"json", HitFormat::json}};
const std::map<std::string, GridFormat> kGridFormats = {{"tsv", GridFormat::tsv}, {"json", GridFormat::json}};
const std::map<std::string, DocumentFormat> kDocumentFormats = {{"testo", DocumentFormat::text},
                                                                {"rtf", DocumentFormat::rtf}};

template<class Format>
void addFormat(CLI::App& command, const std::map<std::string, Format>& formats, const char* description,
               Format& format)
{
    command
        .add_option_function<std::string>(
            "--formato", [&formats, &format](const std::string& name) { format = formats.at(name); },
            description)
        ->check(CLI::IsMember(&formats))
        ->option_text("FORMATO");
}

/// A command that counts; both differ only by name and mode.
CLI::App* addStatistics(CLI::App& app, const char* name, const char* description, Arguments& arguments)
{
    CLI::App* command = addCommand(app, name, description, arguments);
    addSearchOptions(*command, arguments.search);
    CliStatOptions& options = arguments.statistics;
    command->add_flag("--accorpa", options.accorpa, "conta le date per mese e anno");
    command->add_flag("--somma", options.somma, "aggiunge le somme dei valori numerici");
    addFormat(*command, kGridFormats, "tsv o json", options.format);
    return command;
}

void addCreateOptions(CLI::App& command, CliCreateOptions& create)
{
    command.add_option("-o", create.target, "nuovo file .rec")->required()->option_text("NUOVO.rec");
    const auto addFlag = [&](const char* name, const char* description, const std::function<void()>& set) {
        return command.add_flag_callback(name, set, description)->option_text(" ");
    };
    const auto choose = [&create](RecFields fields) {
        return [&create, fields] { create.fields.insert(fields); };
    };
    addFlag("--matrice", "scrive i campi della matrice di stampa", choose(RecFields::matrix));
    addFlag("--ricerca", "scrive i campi cercati", choose(RecFields::selection));
    addFlag("--tutto", "scrive tutti i campi", choose(RecFields::all));
    command.add_flag("--sovrascrivi", create.sovrascrivi, "sostituisce un file che esiste già");
    CLI::Option* compat = addFlag("--compat", "taglia i campi a 80 caratteri, per EpiData",
                                  [&create] { create.compat = true; });
    addFlag("--no-compat", "taglia i campi solo a 250 caratteri", [&create] {
        create.compat = false;
    })->excludes(compat);
}

/// A command of the program and what runs it.
struct Command {
    CLI::App* app;
    std::function<int(const Arguments&)> run;
};

std::vector<Command> declareCommands(CLI::App& app, Arguments& arguments)
{
    CLI::App* info = addCommand(app, "info", "descrive il file e i suoi campi", arguments);
    addJsonFlag(*info, arguments);
    CLI::App* show = addRecordCommand(app, "mostra", "mostra un rekord", arguments);
    addJsonFlag(*show, arguments);
    CLI::App* search = addCommand(app, "cerca", "cerca i rekord ed elenca quelli trovati", arguments);
    addSearchOptions(*search, arguments.search);
    addFormat(*search, kHitFormats, "righe, csv o json", arguments.format);
    CLI::App* frequency =
        addStatistics(app, "frequenza", "conta i valori dell'ultimo campo nei rekord trovati", arguments);
    CLI::App* table = addStatistics(app, "tabella",
                                    "conta le coppie di valori dell'ultimo campo e del penultimo", arguments);
    CLI::App* create = addCommand(app, "crea", "scrive i rekord trovati in un nuovo file .rec", arguments);
    addSearchOptions(*create, arguments.search);
    addCreateOptions(*create, arguments.create);
    CLI::App* print =
        addCommand(app, "stampa", "stampa i rekord trovati, o un intervallo, con la matrice", arguments);
    addSearchOptions(*print, arguments.search, false);
    CLI::App* document =
        addRecordCommand(app, "documento", "riempie con un rekord il documento accanto al file", arguments);
    addFormat(*document, kDocumentFormats, "testo o rtf", arguments.document);
    return {{info, runInfo},
            {show, runShow},
            {search, runSearch},
            {frequency, [](const Arguments& a) { return runStatistics(a, StatMode::freq); }},
            {table, [](const Arguments& a) { return runStatistics(a, StatMode::tabella); }},
            {create, runCreate},
            {print, runPrint},
            {document, runDocument}};
}

int run(int argc, char** argv)
{
    CLI::App app("Quorvin dalla riga di comando: legge i file .rec di EpiData.", "quorvin-cli");
    // Options are the same on every system; a name may begin with a slash.
    app.allow_windows_style_options(false);
    useItalianLabels(app);
    app.set_version_flag("--version", std::string("quorvin-cli " QUORVIN_VERSION), "mostra la versione")
        ->group("Opzioni");
    app.require_subcommand(1);
    Arguments arguments;
    const std::vector<Command> commands = declareCommands(app, arguments);
    std::vector<std::string> words = utf8Arguments(argc, argv);
    std::reverse(words.begin(), words.end());
    try {
        app.parse(words);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);
        std::cerr << "quorvin-cli: " << inItalian(error) << "; vedi quorvin-cli --help\n";
        return kError;
    }
    const auto given = std::find_if(commands.begin(), commands.end(),
                                    [](const Command& command) { return command.app->parsed(); });
    return given->run(arguments);
}

}  // namespace

int main(int argc, char** argv)
{
    std::ios::sync_with_stdio(false);
    surviveSizeLimits();
    useUtf8Console();
    try {
        const int status = run(argc, argv);
        requireOutput();
        return status;
    } catch (const CliError& error) {
        std::cerr << error.text << '\n';
    } catch (const std::exception&) {
        std::cerr << messages::kError << currentError().description() << '\n';
    }
    return kError;
}
