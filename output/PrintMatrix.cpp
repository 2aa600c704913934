#include "output/PrintMatrix.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <system_error>

#include "base/InputFile.h"
#include "base/OutputFile.h"
#include "base/Text.h"
#include "output/DocumentTemplate.h"
#include "output/RtfReader.h"
#include "rec/RecFile.h"

namespace quorvin {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr char kQuote = '"';

/// Largest file that is read, and written; a template with pictures needs some room.
constexpr std::int64_t kMostBytes = std::int64_t{64} << 20;

std::filesystem::path matrixFile(const RecFile& recFile)
{
    std::filesystem::path name = recFile.RecFileStem();
    name += ".mtr";
    // A data file may have this very extension.
    if (isSameFile(name, recFile.dataFileName())) throw RuntimeError(ErrorNumber::accessError);
    return name;
}

/// Takes the file's text apart. Behind its end everything is empty.
class ItemReader {
public:
    explicit ItemReader(std::string_view text) : rest_(text.substr(0, text.find(kEndOfText))) {}

    /// What is left of the line, leading blanks included; the next line is next.
    std::string_view restOfLine()
    {
        const std::size_t end = rest_.find('\n');
        std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        return line;
    }

    /// What the line holds up to a comma, or its end; nothing is taken.
    std::string_view peekItem() const
    {
        const std::string_view item = rest_.substr(0, rest_.find_first_of(",\n"));
        return item.ends_with('\r') ? item.substr(0, item.size() - 1) : item;
    }

    /// The same, taken, without its leading blanks.
    std::string_view item()
    {
        const std::string_view taken = lTrim(peekItem());
        skipTo(rest_.find_first_of(",\n"));
        return taken;
    }

    /// An item that may stand in double quotes, and then goes on to the second one, over commas and line
    /// ends; RTF, in which other programs leave quotes as they are, to the one behind its last brace.
    std::string_view quotedItem()
    {
        const std::string_view begin = lTrim(rest_);
        if (!begin.starts_with(kQuote)) return item();
        rest_ = begin.substr(1);
        const std::size_t brace = isRtf(rest_) ? rest_.rfind('}') : 0;
        const std::size_t end = rest_.find(kQuote, brace == std::string_view::npos ? 0 : brace);
        const std::string_view taken = rest_.substr(0, end);
        skipTo(end);
        return taken;
    }

private:
    /// Goes on behind a position, if there is one.
    void skipTo(std::size_t position)
    {
        rest_.remove_prefix(position == std::string_view::npos ? rest_.size() : position + 1);
    }

    std::string_view rest_;
};

/// The whole part of a number, as far as it goes into an int: entries and margin are whole, and what begins
/// with a fraction of 1 is a header.
int wholePart(double number)
{
    constexpr double kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::trunc(number), -kMost, kMost));
}

/// The same document without double quotes: in RTF their escape stands for them. Data that is no text has
/// no escapes, and none of it is kept.
std::string withoutQuotes(std::string_view document)
{
    if (document.find(kQuote) == std::string_view::npos) return std::string(document);
    if (!isRtf(document) || document.find("\\bin") != std::string_view::npos)
        return DocumentTemplate(document).toStored();
    std::string result;
    bool escaped = false;
    for (const char c : document) {
        if (c != kQuote) {
            result += c;
        } else if (escaped) {
            // An escape that means nothing but ends the word before it, as any other such does.
            result += '.';
        } else {
            result += "\\'22";
        }
        escaped = c == '\\' && !escaped;
    }
    return result;
}

std::string readWhole(const std::filesystem::path& name)
{
    InputFile file;
    file.open(name);
    const std::int64_t size = file.size();
    if (size > kMostBytes) throw RuntimeError(ErrorNumber::outOfMemory);
    std::string text(static_cast<std::size_t>(size), '\0');
    text.resize(file.readAt(0, text));
    return text;
}

/// Also when there is no telling.
bool isThere(const std::filesystem::path& name)
{
    std::error_code ignored;
    return std::filesystem::status(name, ignored).type() != std::filesystem::file_type::not_found;
}

}  // namespace

void PrintMatrix::beginChoice()
{
    choosing_ = true;
    saved_ = entries;
    entries.clear();
}

bool PrintMatrix::endChoice()
{
    choosing_ = false;
    if (!entries.empty()) return true;
    entries = saved_;
    return false;
}

bool PrintMatrix::setMargin(double characters)
{
    const int margin = wholePart(characters);
    if (margin < 1) return false;
    PrintMargin = margin;
    return true;
}

std::string PrintMatrix::toText() const
{
    std::string text;
    for (const int field : (choosing_ ? saved_ : entries).numbers())
        text.append(str(std::int64_t{field})).append(kLineEnd);
    text.append(PrintHeader).append(kLineEnd);
    text.append(str(std::int64_t{PrintMargin})).append(kLineEnd);
    return text.append(1, kQuote).append(withoutQuotes(DocumentTemplate)).append(1, kQuote).append(kLineEnd);
}

void PrintMatrix::fromText(std::string_view text)
{
    clear();
    ItemReader reader(text);
    std::string_view last;
    for (int i = 1; i <= kMaxFields; ++i) {
        const int number = wholePart(val(reader.peekItem()));
        if (number == 0) {
            last = reader.restOfLine();
            break;
        }
        last = reader.item();
        entries.append(number);
    }
    // With a full list this is the last entry, and all behind it is read one item too early: such a list has
    // no header.
    PrintHeader = last.substr(0, kHeaderWidth);
    setMargin(val(reader.item()));
    DocumentTemplate = reader.quotedItem();
}

void PrintMatrix::matrice(const RecFile& recFile)
{
    const std::filesystem::path name = matrixFile(recFile);
    if (unread_ && isThere(name)) throw RuntimeError(*unread_);
    const std::string text = toText();
    if (text.size() > static_cast<std::size_t>(kMostBytes)) throw RuntimeError(ErrorNumber::outOfMemory);
    OutputFile file;
    file.open(name);
    file.write(text);
    file.commit();
    unread_.reset();
}

void PrintMatrix::read(const RecFile& recFile)
{
    clear();
    try {
        fromText(readWhole(matrixFile(recFile)));
    } catch (const std::exception&) {
        const RuntimeError error = currentError();
        if (error.number() == ErrorNumber::fileNotFound) return;
        unread_ = error;
        throw;
    }
}

}  // namespace quorvin
