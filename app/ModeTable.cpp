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

constexpr std::string_view kNotOfMatrix[] = {"creamat2", "creamatutto"};
constexpr std::string_view kNotOfSelection[] = {"creamat1", "creamatutto"};
constexpr std::string_view kNotOfAll[] = {"creamat1", "creamat2"};
constexpr std::string_view kExporting = "ESPORTA/IMPORTA";

constexpr std::array kRows = {
    ModeRow{"preferenze", kPreferencesDisable},
    ModeRow{"impmat", kMatrixDisables, kMatrixUnticks, "stampa", "IMPOSTA MATRICE"},
    ModeRow{"stamp1", kRecordsDisable, kRecordsUntick, "stampa", "STAMPA REKORD"},
    ModeRow{"stamp2", kSearchDisables, kSearchUnticks, "stampa", "STAMPA RICERCA"},
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
