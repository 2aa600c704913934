#include "app/CliReport.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string_view>

#include "base/Ansi.h"
#include "base/CommandLine.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace quorvin {

namespace {

using Json = nlohmann::ordered_json;

std::string utf8(std::string_view ansi)
{
    return toUtf8(trim(ansi));
}

/// `text` in UTF-8, blank-padded to `width` characters.
std::string padded(std::string text, std::size_t width)
{
    std::size_t characters = 0;
    for (const char c : text) {
        if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) ++characters;
    }
    if (characters < width) text.append(width - characters, ' ');
    return text;
}

Json whole(std::string_view item)
{
    return static_cast<int>(val(item));
}

/// Codes that stand for control characters, those that the code page leaves open among them.
const std::array<bool, 256> kControls = [] {
    constexpr char32_t kFirstPrintable = 0x20;
    constexpr char32_t kDelete = 0x7F;
    constexpr char32_t kLastControl = 0x9F;
    std::array<bool, 256> table{};
    for (std::size_t code = 0; code < table.size(); ++code) {
        const char32_t character = toUnicode(static_cast<char>(code));
        table[code] = character < kFirstPrintable || (character >= kDelete && character <= kLastControl);
    }
    return table;
}();

bool isControl(char c)
{
    return kControls[static_cast<unsigned char>(c)];
}

constexpr int kIndented = 2;
constexpr int kOneLine = -1;

std::string dump(const Json& json, int layout)
{
    // Values may hold bytes that no text should; they are printed, not refused.
    return json.dump(layout, ' ', false, Json::error_handler_t::replace);
}

Json fieldAsJson(const FieldTable& fields, int n)
{
    const auto i = static_cast<std::size_t>(n);
    return Json{
        {"numero", n},
        {"nome", utf8(fields.fieldName[i])},
        {"tipo", whole(fields.fieldType[i])},
        {"lunghezza", fields.length(n)},
        {"posizione", fields.fieldOffset[i] + 1},
        {"domanda", utf8(fields.questionText[i])},
        {"domandaX", whole(fields.questionX[i])},
        {"domandaY", whole(fields.questionY[i])},
        {"campoX", whole(fields.fieldX[i])},
        {"campoY", whole(fields.fieldY[i])},
    };
}

Json recordJson(const FieldTable& fields, const std::vector<std::string>& labels, RecordNumber number,
                bool deleted, const std::function<std::string_view(int)>& value)
{
    Json values = Json::object();
    for (int n = 1; n <= fields.fieldCount; ++n) {
        if (fields.length(n) > 0) values[labels[static_cast<std::size_t>(n)]] = onOneLine(value(n));
    }
    return Json{{"rekord", number}, {"cancellato", deleted}, {"campi", std::move(values)}};
}

}  // namespace

std::string infoAsText(const RecFile& file)
{
    const FieldTable& fields = file.fields();
    std::ostringstream out;
    out << "file                 " << utf8FromPath(file.dataFileName()) << '\n'
        << "campi                " << file.fieldCount() << '\n'
        << "rekord               " << file.recordCount() << '\n'
        << "lunghezza rekord     " << file.recordLength() << " caratteri, " << file.linesPerRecord()
        << " righe, " << file.recordBytes() << " byte\n"
        << "inizio dati          byte " << file.dataStart() << '\n'
        << '\n'
        << "  n.  nome        tipo  lungh.  posiz.  domanda\n";
    for (int n = 1; n <= file.fieldCount(); ++n) {
        const auto i = static_cast<std::size_t>(n);
        const auto column = [&](const std::string& text, std::size_t width) {
            out << std::string(text.size() < width ? width - text.size() : 0, ' ') << text;
        };
        column(std::to_string(n), 4);
        out << "  " << padded(onOneLine(trim(fields.fieldName[i])), 10);
        column(bareStr(val(fields.fieldType[i])), 6);
        column(std::to_string(fields.length(n)), 8);
        column(std::to_string(fields.fieldOffset[i] + 1), 8);
        out << "  " << onOneLine(trim(fields.questionText[i])) << '\n';
    }
    return out.str();
}

std::string infoAsJson(const RecFile& file)
{
    Json fields = Json::array();
    for (int n = 1; n <= file.fieldCount(); ++n)
        fields.push_back(fieldAsJson(file.fields(), n));
    const Json info{
        {"file", utf8FromPath(file.dataFileName())},
        {"campi", file.fieldCount()},
        {"rekord", file.recordCount()},
        {"coloreSchermo", static_cast<std::int64_t>(file.screenColour())},
        {"lunghezzaRekord", file.recordLength()},
        {"righePerRekord", file.linesPerRecord()},
        {"bytePerRekord", file.recordBytes()},
        {"inizioDati", file.dataStart()},
        {"definizioni", fields},
    };
    return dump(info, kIndented) + "\n";
}

std::string recordAsText(const RecFile& file, RecordNumber number)
{
    const FieldTable& fields = file.fields();
    std::ostringstream out;
    out << "rekord " << number << (file.isDeleted() ? "  (cancellato)" : "") << '\n';
    for (int n = 1; n <= file.fieldCount(); ++n) {
        if (fields.length(n) == 0) continue;
        const auto i = static_cast<std::size_t>(n);
        out << padded(onOneLine(trim(fields.fieldName[i])), 12) << onOneLine(file.fieldValue(n)) << '\n';
    }
    return out.str();
}

std::string recordAsJson(const RecFile& file, RecordNumber number)
{
    const Json record = recordJson(file.fields(), fieldLabels(file.fields()), number, file.isDeleted(),
                                   [&file](int n) { return file.fieldValue(n); });
    return dump(record, kIndented) + "\n";
}

std::string recordObject(const FieldTable& fields, const std::vector<std::string>& labels,
                         RecordNumber number, bool deleted, const std::function<std::string_view(int)>& value)
{
    return dump(recordJson(fields, labels, number, deleted, value), kOneLine);
}

std::vector<std::string> fieldLabels(const FieldTable& fields)
{
    std::vector<std::string> labels(static_cast<std::size_t>(fields.fieldCount) + 1);
    for (int n = 1; n <= fields.fieldCount; ++n) {
        if (fields.length(n) == 0) continue;
        const auto i = static_cast<std::size_t>(n);
        std::string name = onOneLine(trim(fields.fieldName[i]));
        const auto isTaken = [&labels](const std::string& label) {
            return std::find(labels.begin(), labels.end(), label) != labels.end();
        };
        if (name.empty() || isTaken(name)) name = "#" + std::to_string(n);
        while (isTaken(name))
            name.insert(0, 1, '#');
        labels[i] = std::move(name);
    }
    return labels;
}

std::string printable(std::string_view text)
{
    std::string line;
    appendPrintable(line, text);
    return line;
}

void appendPrintable(std::string& target, std::string_view text)
{
    while (!text.empty()) {
        const auto control = std::find_if(text.begin(), text.end(), isControl);
        const auto before = static_cast<std::size_t>(control - text.begin());
        appendUtf8(target, text.substr(0, before));
        if (before == text.size()) return;
        target.push_back(' ');
        text.remove_prefix(before + 1);
    }
}

std::string onOneLine(std::string_view text)
{
    std::string line;
    appendOnOneLine(line, text);
    return line;
}

void appendOnOneLine(std::string& target, std::string_view text)
{
    const auto last =
        std::find_if(text.rbegin(), text.rend(), [](char c) { return c != ' ' && !isControl(c); });
    appendPrintable(target, text.substr(0, static_cast<std::size_t>(text.rend() - last)));
}

void requireOutput()
{
    std::cout.flush();
    if (!std::cout) throw RuntimeError(errno == ENOSPC ? ErrorNumber::diskFull : ErrorNumber::deviceError);
}

}  // namespace quorvin
