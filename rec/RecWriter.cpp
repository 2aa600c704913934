#include "rec/RecWriter.h"

#include <algorithm>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "rec/RecordScanner.h"

namespace quorvin {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// Mark behind the last line of a record that has none, and the end of a line that is not its record's last.
constexpr char kLiveMark = '!';
constexpr std::string_view kFullLineEnd = "!\r\n";

/// Columns of all numbers but the first, the blank before them included; and of name and first number
/// together.
constexpr std::size_t kNumberWidth = 4;
constexpr std::size_t kNameWidth = 15;

std::string rightAligned(std::string_view item)
{
    return std::string(kNumberWidth - std::min(kNumberWidth, item.size()), ' ').append(item);
}

/// The definition of field `i` with its place on screen line `row`, with one blank less behind the name if it
/// is to stand one column left.
std::string definitionLine(const FieldTable& table, std::size_t i, int row, int length, bool left)
{
    const bool capped = length < table.length(static_cast<int>(i));
    const std::string lengthItem = capped ? bareStr(length) : table.fieldLength[i];
    const std::string rowItem = bareStr(row);
    const std::size_t nameWidth = kNameWidth - (left ? 1 : 0);
    const std::size_t used = table.fieldName[i].size() + table.questionX[i].size();

    std::string line = table.fieldMark[i].empty() ? " " : table.fieldMark[i];
    line += table.fieldName[i];
    line.append(nameWidth - std::min(nameWidth, used), ' ');
    line += table.questionX[i];
    for (const std::string_view item :
         std::initializer_list<std::string_view>{rowItem, table.questionColour[i], table.fieldX[i], rowItem,
                                                 table.fieldType[i], lengthItem, table.fieldColour[i]})
        line += rightAligned(item);
    return line + ' ' + table.questionText[i];
}

/// Whether two fields shared a screen line, by their questions or by their boxes.
bool sharedRow(const FieldTable& table, std::size_t one, std::size_t other)
{
    return val(table.questionY[one]) == val(table.questionY[other]) ||
           val(table.fieldY[one]) == val(table.fieldY[other]);
}

}  // namespace

void RecWriter::start(const std::filesystem::path& target, const RecFile& source,
                      const std::vector<int>& fields, int MaxTextLength)
{
    discard();
    if (isSameFile(target, source.dataFileName())) throw RuntimeError(ErrorNumber::accessError);
    MaxTextLength_ = MaxTextLength;
    recordCount_ = 0;
    chooseFields(source.fields(), fields);
    const bool anyLength = std::any_of(stretches_.begin(), stretches_.end(),
                                       [](const Stretch& stretch) { return stretch.length > 0; });
    if (!anyLength) throw RuntimeError(ErrorNumber::divisionByZero);
    output_.open(target);
    writeHeader(source);
}

void RecWriter::chooseFields(const FieldTable& table, const std::vector<int>& fields)
{
    WriteFieldList.clear();
    stretches_.clear();
    for (const int field : fields) {
        if (field < 1 || field > table.fieldCount) throw RuntimeError(ErrorNumber::subscript);
        const bool known =
            std::find(WriteFieldList.begin(), WriteFieldList.end(), field) != WriteFieldList.end();
        if (known) continue;
        WriteFieldList.push_back(field);
        addStretch({static_cast<std::size_t>(table.fieldOffset[static_cast<std::size_t>(field)]),
                    static_cast<std::size_t>(writtenLength(table, field))});
    }
}

void RecWriter::addStretch(const Stretch& field)
{
    if (!stretches_.empty() && stretches_.back().first + stretches_.back().length == field.first) {
        stretches_.back().length += field.length;
    } else {
        stretches_.push_back(field);
    }
}

int RecWriter::writtenLength(const FieldTable& table, int field) const
{
    return std::min(table.length(field), MaxTextLength_);
}

void RecWriter::writeHeader(const RecFile& source)
{
    // Numbers and questions stand as in the source, unless these fields alone would be read otherwise.
    std::vector<std::string> lines = definitions(source.fields(), source.fields().oneColumnLeft);
    if (source.fields().oneColumnLeft && !standOneColumnLeft(lines))
        lines = definitions(source.fields(), false);
    output_.write(std::to_string(WriteFieldCount()) + ' ' + bareStr(source.screenColour()));
    output_.write(kLineEnd);
    for (const std::string& line : lines) {
        output_.write(line);
        output_.write(kLineEnd);
    }
}

std::vector<std::string> RecWriter::definitions(const FieldTable& table, bool left) const
{
    std::vector<std::string> lines;
    int row = 1;
    std::size_t before = 0;
    for (const int field : WriteFieldList) {
        const auto i = static_cast<std::size_t>(field);
        if (before != 0 && !sharedRow(table, before, i)) ++row;
        lines.push_back(definitionLine(table, i, row, writtenLength(table, field), left));
        before = i;
    }
    return lines;
}

void RecWriter::add(RecordScanner& record)
{
    std::string_view rest = recordBuffer(record.text());
    for (; rest.size() > kLineWidth; rest.remove_prefix(kLineWidth)) {
        output_.write(rest.substr(0, kLineWidth));
        output_.write(kFullLineEnd);
    }
    const char mark = record.lastMark();
    output_.write(rest);
    output_.write({mark == '\0' ? &kLiveMark : &mark, 1});
    output_.write(kLineEnd);
    ++recordCount_;
}

/// Text of the written fields, out of the text of a record.
std::string_view RecWriter::recordBuffer(std::string_view text)
{
    const Stretch& first = stretches_.front();
    if (stretches_.size() == 1 && first.first + first.length <= text.size())
        return text.substr(first.first, first.length);
    RecordBuffer.clear();
    for (const Stretch& stretch : stretches_) {
        const std::string_view values = text.substr(std::min(stretch.first, text.size()), stretch.length);
        RecordBuffer += values;
        // Only a record that ends too early has less.
        RecordBuffer.append(stretch.length - values.size(), ' ');
    }
    return RecordBuffer;
}

}  // namespace quorvin
