/// Writes a made-up REC file of patients, for samples, tests and measurements of speed.
///
///     mkrec NUMBER_OF_RECORDS OUTPUT.rec [SEED]
///
/// The same number and seed give the same bytes on every platform: all choices are remainders of
/// std::mt19937_64 draws, each in a statement of its own (the standard fixes neither what its distributions
/// yield nor the order in which arguments are evaluated). Text is Windows-1252, hence the escapes in the
/// literals, octal ones where a hexadecimal digit follows; lines end in CR LF. Exit status: 0, or 2 when the
/// call or the writing is at fault.

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t kLineData = 78;         // characters of a record on one line, before its mark
constexpr std::size_t kBlockBytes = 1 << 20;  // gathered before one write
constexpr std::string_view kHeader = " 1 VLAB Filelabel: PAZIENTI";  // blank, screen colour, label
constexpr std::size_t kQuestionColour = 30;
constexpr std::size_t kFieldColour = 112;

/// Field type codes; a number with decimals has 100 + how many.
enum Type : std::size_t { kInteger = 0, kText = 1, kDate = 11, kOneDecimal = 101 };

/// One field: where its question and its box stand on the screen (columns and rows from 1), and its length.
struct Field {
    char mark;
    std::string_view name;
    std::size_t questionX, fieldX, row;
    Type type;
    std::size_t length;
    std::string_view question;
};

constexpr auto kFields = std::to_array<Field>({
    {'_', "COGNOME", 2, 14, 1, kText, 18, "Cognome"},
    {'_', "NOME", 46, 62, 1, kText, 14, "Nome"},
    {'_', "SESSO", 2, 14, 3, kText, 1, "Sesso (M/F)"},
    {'_', "NASCITA", 46, 62, 3, kDate, 10, "Data di nascita"},
    {'#', "ETA", 2, 14, 4, kInteger, 3, "Et\xE0 (anni)"},
    {'_', "COMUNE", 2, 14, 6, kText, 20, "Citt\xE0"},
    {'_', "PROVINCIA", 46, 62, 6, kText, 2, "Provincia"},
    {'_', "DIAGNOSI", 2, 14, 8, kText, 28, "Diagnosi"},
    {'_', "DATAVISITA", 46, 62, 8, kDate, 10, "Data visita"},
    {'#', "TEMP", 2, 14, 9, kOneDecimal, 4, "Temp. (\260C)"},
    {'#', "DEGENZA", 46, 62, 9, kInteger, 3, "Giorni degenza"},
    {'_', "NOTE", 2, 14, 11, kText, 38, "Note"},
});

/// Index of each field in kFields.
enum Index { kSurname, kName, kSex, kBirth, kAge, kTown, kProv, kDiagnosis, kVisit, kTemp, kStay, kNotes };

/// Characters of the record text that lie before field `n`; for n = kFields.size() the length of the record.
constexpr std::size_t offsetOf(std::size_t n)
{
    std::size_t offset = 0;
    while (n > 0)
        offset += kFields[--n].length;
    return offset;
}

constexpr std::size_t kRecordLength = offsetOf(kFields.size());
static_assert(kRecordLength == 151, "a record is two lines, 157 bytes in the file");

/// The items of a list that "|" separates, as an array; one longer than `limit` does not compile.
template<const std::string_view& kList>
consteval auto splitList(std::size_t limit)
{
    std::array<std::string_view, std::ranges::count(kList, '|') + 1> items;
    std::string_view rest = kList;
    for (std::string_view& item : items) {
        item = rest.substr(0, rest.find('|'));
        if (item.size() > limit) throw "too long for its field";
        rest.remove_prefix(std::min(item.size() + 1, rest.size()));
    }
    return items;
}

// What the records are made of. Items in front are drawn more often; a town ends in a blank and its province.

constexpr std::string_view kSurnameList =
    "Rossi|Russo|Ferrari|Esposito|Bianchi|Romano|Colombo|Ricci|Marino|Greco|Bruno|Gallo|Conti|De Luca|"
    "Mancini|Costa|Giordano|Rizzo|Lombardi|Moretti|Barbieri|Santoro|Rinaldi|Caruso|Ferrara|Galli|Martini|"
    "Longo|Gentile|Vitale|Lombardo|Serra|Coppola|De Santis|D'Angelo|Marchetti|Villa|Conte|Ferraro|Ferri|"
    "Fabbri|Bianco|Grasso|Messina|Sala|De Angelis|Pellegrini|Sanna|Farina|D'Amico|Dell'Acqua|Lo Presti|"
    "Dal\xEC|Nicol\xF2|Cal\xF2|Fod\xE0|Scim\xE8|Degl'Innocenti|Ko\x9Auta|Fr\xE9zet";
constexpr auto kSurnames = splitList<kSurnameList>(kFields[kSurname].length);

constexpr std::string_view kMaleNameList =
    "Giuseppe|Antonio|Giovanni|Mario|Luigi|Francesco|Angelo|Vincenzo|Pietro|Salvatore|Carlo|Franco|Domenico|"
    "Bruno|Paolo|Michele|Giorgio|Aldo|Sergio|Luciano|Andrea|Marco|Alessandro|Matteo|Luca|Davide|Lorenzo|"
    "Stefano|Roberto|Claudio|Massimo|Enrico|Fabio|Alberto|Riccardo|Simone|Daniele|Federico|Emanuele|Giacomo|"
    "Tommaso|Leonardo|Gabriele|Filippo|Edoardo|Raffaele|Umberto|Ettore|Nicola|Valerio|Maurizio|Pasquale|"
    "Rocco|Gian Carlo|Pierfrancesco|Nicol\xF2|Nicc\xF2lo|Giosu\xE8|No\xE8|Mos\xE8|Andr\xE9";
constexpr auto kMaleNames = splitList<kMaleNameList>(kFields[kName].length);

constexpr std::string_view kFemaleNameList =
    "Maria|Anna|Giuseppina|Rosa|Angela|Giovanna|Teresa|Lucia|Carmela|Caterina|Francesca|Anna Maria|"
    "Antonietta|Carla|Elena|Concetta|Rita|Margherita|Franca|Paola|Giulia|Sara|Laura|Chiara|Martina|Federica|"
    "Alessia|Silvia|Valentina|Elisa|Alessandra|Roberta|Barbara|Simona|Daniela|Patrizia|Cristina|Monica|Sofia|"
    "Aurora|Ginevra|Alice|Beatrice|Emma|Giorgia|Matilde|Vittoria|Camilla|Bianca|Ilaria|Serena|Ornella|"
    "Graziella|Loredana|Maria Grazia|Maria Luisa|Zo\xE9|Desir\351e|No\xE8mi|Salom\xE8";
constexpr auto kFemaleNames = splitList<kFemaleNameList>(kFields[kName].length);

constexpr std::string_view kTownList =
    "Roma RM|Milano MI|Napoli NA|Torino TO|Palermo PA|Genova GE|Bologna BO|Firenze FI|Catania CT|Verona VR|"
    "Venezia VE|Messina ME|Padova PD|Trieste TS|Parma PR|Brescia BS|Taranto TA|Modena MO|"
    "Reggio nell'Emilia RE|Perugia PG|Ravenna RA|Livorno LI|Rimini RN|Cagliari CA|Foggia FG|Ferrara FE|"
    "Salerno SA|Monza MB|Bergamo BG|Forl\xEC FC|Cesena FC|Trento TN|Bolzano BZ|Ancona AN|Udine UD|"
    "L'Aquila AQ|Aosta AO|Potenza PZ|Sesto San Giovanni MI|Cant\xF9 CO|Mondov\xEC CN|San Don\xE0 di Piave VE|"
    "Citt\xE0 di Castello PG|Nard\xF2 LE|Cefal\xF9 PA|Sal\xF2 BS";
constexpr auto kTowns = splitList<kTownList>(kFields[kTown].length + 3);

constexpr std::string_view kDiagnosisList =
    "Ipertensione arteriosa|Diabete mellito tipo 2|Polmonite|Bronchite acuta|Scompenso cardiaco|"
    "Fibrillazione atriale|Infezione delle vie urinarie|Riacutizzazione di BPCO|Gastroenterite acuta|"
    "Cardiopatia ischemica|Ictus ischemico|Asma bronchiale|Influenza|Colica renale|Frattura del polso|"
    "Frattura del femore|Anemia sideropenica|Insufficienza renale cronica|Calcolosi della colecisti|"
    "Appendicite acuta|Ernia inguinale|Reflusso gastroesofageo|Trauma cranico lieve|Faringotonsillite|"
    "Otite media|Sincope|Obesit\xE0|Ipotiroidismo|Artrite reumatoide|Malattia di M\xE9ni\xE8re";
constexpr auto kDiagnoses = splitList<kDiagnosisList>(kFields[kDiagnosis].length);

constexpr std::string_view kPhraseList =
    "controllo|terapia in corso|allergia a penicillina|ex fumatore|fuma|vive solo|dieta iposodica|"
    "esami nella norma|da rivedere tra 6 mesi|inviato al curante|ECG nella norma|familiarit\xE0 positiva|"
    "ricovero programmato|dimesso|RX torace negativo|attivit\xE0 fisica ridotta|pi\xF9 episodi|"
    "perch\xE9 caduto in casa|tosse secca|febbre > 38 \260C|dispnea da sforzo|vaccinato|"
    "non vaccinato|ticket 36,15 \x80|accompagnato dal figlio|portatore di pacemaker|dolore toracico|"
    "gi\xE0 noto|ecografia addome|riduzione del 50% dose|PA 140/90|consulenza cardiologica|"
    "buone condizioni generali";
constexpr auto kPhrases = splitList<kPhraseList>(kFields[kNotes].length);

using Random = std::mt19937_64;
using RecordText = std::array<char, kRecordLength>;

/// A number from 0 to limit - 1.
std::size_t below(Random& random, std::size_t limit)
{
    return static_cast<std::size_t>(random() % limit);
}

/// A number from 0 to limit - 1, small ones more often, so that values differ in frequency as in real files.
std::size_t mostlySmall(Random& random, std::size_t limit)
{
    const std::size_t first = below(random, limit);
    const std::size_t second = below(random, limit);
    return std::min(first, second);
}

std::string_view pick(Random& random, std::span<const std::string_view> items)
{
    return items[mostlySmall(random, items.size())];
}

/// The place of field `n` in the record text.
std::span<char> slot(RecordText& record, Index n)
{
    return std::span(record).subspan(offsetOf(n), kFields[n].length);
}

/// Puts text at the left; what lies behind it stays as it is.
void putText(std::span<char> target, std::string_view value)
{
    std::ranges::copy(value.substr(0, target.size()), target.begin());
}

/// Puts a number at the right; what lies before it stays as it is.
void putNumber(std::span<char> target, std::size_t value)
{
    std::size_t at = target.size();
    do {
        target[--at] = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value != 0 && at != 0);
}

void putDate(std::span<char> target, std::chrono::year_month_day date)
{
    putText(target, "00/00/0000");
    putNumber(target.first(2), static_cast<unsigned>(date.day()));
    putNumber(target.subspan(3, 2), static_cast<unsigned>(date.month()));
    putNumber(target.last(4), static_cast<std::size_t>(static_cast<int>(date.year())));
}

/// Capital of a Windows-1252 letter that the lists hold; other characters stay as they are.
char toCapital(char letter)
{
    const auto code = static_cast<unsigned char>(letter);
    if (code == 0x9A) return '\x8A';  // s with caron, apart from the other letters
    const bool isSmall = (code >= 'a' && code <= 'z') || (code >= 0xE0 && code != 0xF7 && code != 0xFF);
    return isSmall ? static_cast<char>(code - 0x20) : letter;
}

/// Puts a text that begins with a plain capital, now and then all in capitals or with a small first letter.
void putTyped(Random& random, std::span<char> target, std::string_view value)
{
    putText(target, value);
    const std::size_t draw = below(random, 100);
    if (draw == 0) target.front() = static_cast<char>(target.front() + ('a' - 'A'));
    if (draw >= 1 && draw <= 3) std::ranges::transform(target, target.begin(), toCapital);
}

void putPerson(Random& random, RecordText& record)
{
    const bool isFemale = below(random, 100) < 52;
    putText(slot(record, kSex), isFemale ? "F" : "M");
    const std::string_view surname = pick(random, kSurnames);
    putTyped(random, slot(record, kSurname), surname);
    const std::string_view name = isFemale ? pick(random, kFemaleNames) : pick(random, kMaleNames);
    putTyped(random, slot(record, kName), name);
    const std::string_view town = pick(random, kTowns);
    putTyped(random, slot(record, kTown), town.substr(0, town.size() - 3));
    putText(slot(record, kProv), town.substr(town.size() - 2));
}

/// Visit in 2019 to 2023, birth up to 100 years before (mostly about 50), and the whole years between them.
void putDates(Random& random, RecordText& record)
{
    using namespace std::chrono;
    constexpr sys_days kFirstVisit = year{2019} / January / 1;
    constexpr std::size_t kVisitDays = 5 * 365 + 1;
    constexpr std::size_t kHalfLife = 18262;  // days in 50 years

    const sys_days visitDay = kFirstVisit + days{static_cast<int>(below(random, kVisitDays))};
    std::size_t lived = below(random, kHalfLife);
    lived += below(random, kHalfLife);
    const year_month_day visit{visitDay};
    const year_month_day birth{visitDay - days{static_cast<int>(lived)}};
    putDate(slot(record, kVisit), visit);
    putDate(slot(record, kBirth), birth);

    if (below(random, 100) < 3) return;
    const bool isBeforeBirthday = visit.month() / visit.day() < birth.month() / birth.day();
    const auto age = (visit.year() - birth.year()).count() - (isBeforeBirthday ? 1 : 0);
    putNumber(slot(record, kAge), static_cast<std::size_t>(age));
}

/// One phrase, or two where both fit.
void putNotes(Random& random, std::span<char> target)
{
    const std::string_view first = pick(random, kPhrases);
    const std::string_view second = pick(random, kPhrases);
    putText(target, first);
    if (first == second || first.size() + 2 + second.size() > target.size()) return;
    putText(target.subspan(first.size()), "; ");
    putText(target.subspan(first.size() + 2), second);
}

void putFindings(Random& random, RecordText& record)
{
    const std::string_view diagnosis = pick(random, kDiagnoses);
    putTyped(random, slot(record, kDiagnosis), diagnosis);
    if (below(random, 100) >= 2) {
        const std::size_t tenths = 358 + mostlySmall(random, 48);
        const std::span<char> target = slot(record, kTemp);
        putNumber(target.first(2), tenths / 10);
        putText(target.last(2), ".");
        putNumber(target.last(1), tenths % 10);
    }
    if (below(random, 100) >= 4) putNumber(slot(record, kStay), mostlySmall(random, 46));
    if (below(random, 100) >= 30) putNotes(random, slot(record, kNotes));
}

/// Appends a record, cut into lines; the mark of its last line tells whether it is deleted.
void appendRecord(Random& random, std::string& out)
{
    RecordText record;
    record.fill(' ');
    putPerson(random, record);
    putDates(random, record);
    putFindings(random, record);
    const bool isDeleted = below(random, 100) < 2;
    const std::string_view text(record.data(), record.size());
    for (std::size_t start = 0; start < text.size(); start += kLineData) {
        const bool isLast = start + kLineData >= text.size();
        out.append(text.substr(start, kLineData)).append(isLast && isDeleted ? "?\r\n" : "!\r\n");
    }
}

/// Appends a definition line: name in columns 2-11, numbers that end in 16, 20, ... 44, question from 46.
void appendDefinition(const Field& field, std::string& out)
{
    const std::size_t numbers[] = {field.questionX, field.row,  kQuestionColour, field.fieldX,
                                   field.row,       field.type, field.length,    kFieldColour};
    std::string line(45, ' ');
    line.front() = field.mark;
    putText(std::span(line).subspan(1, 10), field.name);
    for (std::size_t i = 0; i < std::size(numbers); ++i)
        putNumber(std::span(line).subspan(13 + 4 * i, 3), numbers[i]);
    out.append(line).append(field.question).append("\r\n");
}

/// Writes the whole file; false when it cannot be opened or not all of it could be written.
bool writeFile(const char* path, std::uint64_t records, std::uint64_t seed)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    std::string block = std::to_string(kFields.size()).append(kHeader).append("\r\n");
    for (const Field& field : kFields)
        appendDefinition(field, block);
    Random random(seed);
    for (std::uint64_t i = 0; i < records && file; ++i) {
        appendRecord(random, block);
        if (block.size() < kBlockBytes) continue;
        file.write(block.data(), static_cast<std::streamsize>(block.size()));
        block.clear();
    }
    file.write(block.data(), static_cast<std::streamsize>(block.size()));
    file.close();
    return !file.fail();
}

/// The whole of `text` as a number without sign, or nothing.
std::optional<std::uint64_t> parseNumber(std::string_view text)
{
    std::uint64_t number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc() && stop == text.data() + text.size();
    return isWhole ? std::optional(number) : std::nullopt;
}

}  // namespace

int main(int argc, char* argv[])
{
    const auto records = argc == 3 || argc == 4 ? parseNumber(argv[1]) : std::nullopt;
    const auto seed = argc == 4 ? parseNumber(argv[3]) : std::optional<std::uint64_t>(1);
    if (!records || !seed) {
        std::cerr << "usage: mkrec NUMBER_OF_RECORDS OUTPUT.rec [SEED]\n";
        return 2;
    }
    if (!writeFile(argv[2], *records, *seed)) {
        std::cerr << "mkrec: cannot write " << argv[2] << '\n';
        return 2;
    }
    return 0;
}
