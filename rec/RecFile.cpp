#include "rec/RecFile.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "base/Ansi.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace quorvin {

namespace {

constexpr int kExtensionLength = 4;

/// Whether a unit of a native path only continues the character before it (UTF-8).
template<class Unit>
bool continuesCharacter(Unit unit)
{
    return sizeof(Unit) == 1 && (static_cast<unsigned>(unit) & 0xC0U) == 0x80U;
}

}  // namespace

std::filesystem::path stemOf(const std::filesystem::path& name)
{
    auto text = name.native();
    const std::size_t folder = text.size() - name.filename().native().size();
    for (int cut = 0; cut < kExtensionLength && text.size() > folder; ++cut) {
        while (text.size() > folder + 1 && continuesCharacter(text.back()))
            text.pop_back();
        text.pop_back();
    }
    return text;
}

void RecFile::reset()
{
    file_.close();
    reader_.seek(1);
    dataFileName_.clear();
    RecFileStem_.clear();
    fields_ = FieldTable();
    announcedFields_ = 0;
    screenColour_ = 0;
    lineEndBytes_ = 2;
    linesPerRecord_ = 0;
    lineLengths_.clear();
    dataStart_ = 0;
    recordBytes_ = 0;
    recordCount_ = 0;
    rangeEnd_ = 0;
    recordText_.clear();
    lastMark_ = 0;
}

void RecFile::open(const std::filesystem::path& name)
{
    reset();
    dataFileName_ = name;
    RecFileStem_ = stemOf(name);
    file_.open(name);
    readHeader();
}

void RecFile::readHeader()
{
    const std::string line = reader_.readLine(kMaxDefinition).text;
    if (reader_.lineEndBytes() == 1) lineEndBytes_ = 1;

    // The header's first item ends at a comma; what follows it is then the first definition line.
    const std::size_t comma = line.find(',');
    const std::string_view item = lTrim(std::string_view(line).substr(0, comma));
    if (comma != std::string::npos) reader_.seek(static_cast<std::int64_t>(comma) + 2);

    const std::size_t blank = item.find(' ');
    if (blank == std::string_view::npos) throw RuntimeError(ErrorNumber::invalidCall);
    screenColour_ = val(item.substr(blank).substr(0, kHeaderColourWidth));
    announcedFields_ = val(item.substr(0, blank));
}

void RecFile::readDefinitions()
{
    std::vector<std::string> lines;
    try {
        // One line more than there may be fields is enough to raise the error of too many.
        for (int i = 1; i <= announcedFields_ && i <= kMaxFields + 1; ++i)
            lines.push_back(reader_.readLine(kMaxDefinition).text);
    } catch (const std::exception&) {
        fields_.addFields(lines);
        throw;
    }
    fields_.addFields(lines);
}

void RecFile::measure()
{
    dataStart_ = reader_.position();
    const int width = static_cast<int>(kLineWidth);
    linesPerRecord_ = (recordLength() + width - 1) / width;
    if (linesPerRecord_ == 0 || reader_.atEnd()) throw RuntimeError(ErrorNumber::divisionByZero);

    std::int64_t bytes = 0;
    TextLine last;
    for (int line = 0; line < linesPerRecord_; ++line) {
        last = reader_.readLine(0);
        lineLengths_.push_back(last.length);
        bytes += last.length + lineEndBytes_;
    }
    // Somebody may be writing it just now: its measure would not be that of the records to come.
    const std::int64_t lastText = recordLength() - width * (linesPerRecord_ - 1);
    if (reader_.endedWithFile() && (last.length <= lastText || last.last == '\r'))
        throw RuntimeError(ErrorNumber::inputPastEnd);
    recordBytes_ = bytes;
    count(file_.size());
}

/// Whether the file that is open now has its records where those of the measured one are.
bool RecFile::hasSameLayout() const
{
    RecFile now;
    now.file_ = file_.duplicate();
    try {
        now.readHeader();
        now.readDefinitions();
    } catch (const RuntimeError& error) {
        // A failure of reading tells nothing about the layout.
        constexpr ErrorNumber kNoDefinitions[] = {ErrorNumber::invalidCall, ErrorNumber::outOfMemory,
                                                  ErrorNumber::subscript, ErrorNumber::inputPastEnd};
        if (std::ranges::find(kNoDefinitions, error.number()) == std::end(kNoDefinitions)) throw;
        return false;
    }
    return now.reader_.position() == dataStart_ && now.fields_.hasSameLengths(fields_);
}

void RecFile::requireMeasured() const
{
    if (recordBytes_ == 0) throw RuntimeError(ErrorNumber::divisionByZero);
}

void RecFile::count(std::int64_t fileBytes)
{
    requireMeasured();
    recordCount_ = std::max<RecordNumber>(0, (fileBytes - dataStart_ + 1) / recordBytes_);
    rangeEnd_ = recordCount_;
}

void RecFile::recount()
{
    requireMeasured();
    file_.open(dataFileName_);
    // One length for both: a file too short for any record has no layout yet, whatever comes in meanwhile.
    const std::int64_t bytes = file_.size();
    if (bytes >= dataStart_ && !hasSameLayout()) {
        file_.close();
        throw RuntimeError(ErrorNumber::accessError);
    }
    count(bytes);
}

std::int64_t RecFile::positionOf(RecordNumber n) const
{
    requireMeasured();
    const RecordNumber most = (std::numeric_limits<std::int64_t>::max() - dataStart_) / recordBytes_;
    if (n < 1 || n > most) throw RuntimeError(ErrorNumber::invalidCall);
    return dataStart_ + (n - 1) * recordBytes_;
}

void RecFile::seek(RecordNumber n)
{
    reader_.seek(positionOf(n));
}

void RecFile::caricastring()
{
    // Others may have cut the file since it was counted; what is left of a record is none.
    reader_.require(recordBytes_);
    std::string text;
    char mark = 0;
    for (int j = 0; j < linesPerRecord_; ++j) {
        const TextLine line = reader_.readLine(kLineWidth);
        text += impostMaiusc ? upper(line.text) : line.text;
        mark = line.last;
    }
    recordText_ = std::move(text);
    lastMark_ = mark;
}

}  // namespace quorvin
