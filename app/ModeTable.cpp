#include "app/ModeTable.h"

#include <array>

namespace quorvin {

namespace {

constexpr std::string_view kPreferencesDisable[] = {"esporta", "stat", "stampa", "documento", "impostadoc"};

constexpr std::string_view kMatrixDisables[] = {"opz", "stamp1", "stamp2", "stat", "Check1"};
constexpr std::string_view kMatrixUnticks[] = {"unirek", "documento"};

constexpr std::string_view kRecordsDisable[] = {"impmat",     "stat",       "esporta", "documento",
                                                "impostadoc", "preferenze", "Frame3"};
constexpr std::string_view kRecordsUntick[] = {"stamp2", "documento"};
constexpr std::string_view kSearchDisables[] = {"impmat",    "stat",       "esporta",
                                                "documento", "impostadoc", "preferenze"};
constexpr std::string_view kSearchUnticks[] = {"stamp1", "documento"};

constexpr std::string_view kTemplateDisables[] = {"esporta", "stampa", "stat", "preferenze"};
constexpr std::string_view kTemplateUnticks[] = {"documento"};

constexpr std::string_view kNotOfMatrix[] = {"creamat2", "creamatutto"};
constexpr std::string_view kNotOfSelection[] = {"creamat1", "creamatutto"};
constexpr std::string_view kNotOfAll[] = {"creamat1", "creamat2"};
constexpr std::string_view kExporting = "ESPORTA/IMPORTA";

constexpr std::string_view kCountingDisables[] = {"stampa",    "Check1",     "Check3",    "esporta",
                                                  "documento", "impostadoc", "preferenze"};
constexpr std::string_view kCountingEnables[] = {"accorpa", "SommaCampNum", "GrafImpost"};
constexpr std::string_view kNotOfFrequency[] = {"tabella",    "sommcamp", "SommaCampNum",
                                                "grigliarek", "unirek",   "Check3"};
constexpr std::string_view kNotOfTable[] = {"freq",       "sommcamp", "SommaCampNum",
                                            "grigliarek", "unirek",   "Check3"};
constexpr std::string_view kCountingEnds[] = {"sommcamp", "SommaCampNum", "grigliarek", "accorpa",
                                              "unirek",   "MenExcel",     "GrafImpost", "Check3"};
constexpr std::string_view kCounting = "STATISTICA";
constexpr std::string_view kNotOfChart[] = {"MenExcel"};
constexpr std::string_view kNotOfSpreadsheet[] = {"GrafImpost"};

constexpr std::array kRows = {
    ModeRow{"preferenze", kPreferencesDisable},
    ModeRow{"impmat", kMatrixDisables, kMatrixUnticks, "stampa", "IMPOSTA MATRICE"},
    ModeRow{"stamp1", kRecordsDisable, kRecordsUntick, "stampa", "STAMPA REKORD"},
    ModeRow{"stamp2", kSearchDisables, kSearchUnticks, "stampa", "STAMPA RICERCA"},
    ModeRow{"impostadoc", kTemplateDisables, kTemplateUnticks},
    ModeRow{"freq", kCountingDisables, kNotOfFrequency, "stat", kCounting, kCountingEnables, kCountingEnds},
    ModeRow{"tabella", kCountingDisables, kNotOfTable, "stat", kCounting, kCountingEnables, kCountingEnds},
    ModeRow{"GrafImpost", {}, kNotOfChart},
    ModeRow{"MenExcel", {}, kNotOfSpreadsheet},
    ModeRow{"creamat1", {}, kNotOfMatrix, "esporta", kExporting},
    ModeRow{"creamat2", {}, kNotOfSelection, "esporta", kExporting},
    ModeRow{"creamatutto", {}, kNotOfAll, "esporta", kExporting},
};

}  // namespace

std::span<const ModeRow> modeTable()
{
    return kRows;
}

}  // namespace quorvin
