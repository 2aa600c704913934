#include "rec/RecordScanner.h"

#include <algorithm>
#include <limits>

#include "base/Ansi.h"
#include "base/RuntimeError.h"

namespace quorvin {

namespace {

/// What is read at once stays in the processor's second-level cache, what is checked at once in the first,
/// until the records have been searched.
constexpr std::size_t kBlockBytes = std::size_t{256} * 1024;
constexpr std::size_t kCheckedBytes = std::size_t{16} * 1024;

/// Records beyond this, which only a damaged file has, are not read whole.
constexpr std::int64_t kMostStride = std::int64_t{1} << 20;

/// Bytes of a record beside its place that take as long as a usual record, and how many of those a record
/// takes that is read through the file's own small buffer.
constexpr std::ptrdiff_t kBytesOfEffort = 1024;
constexpr RecordNumber kEffortLineByLine = 1000;

/// How many bytes are control characters up to Ctrl-Z, among them all that end a line or a text.
std::size_t controlsIn(const char* bytes, std::size_t count)
{
    // Sums of single bytes, of so few steps that they cannot overflow, are what compilers turn into wide
    // instructions.
    constexpr std::size_t kLanes = 64;
    constexpr std::size_t kSteps = 255;
    std::size_t total = 0;
    std::size_t i = 0;
    while (i + kLanes <= count) {
        std::array<unsigned char, kLanes> sums{};
        for (std::size_t step = 0; step < kSteps && i + kLanes <= count; ++step, i += kLanes) {
            for (std::size_t lane = 0; lane < kLanes; ++lane) {
                const auto c = static_cast<unsigned char>(bytes[i + lane]);
                sums[lane] = static_cast<unsigned char>(sums[lane] + (c <= kEndOfText ? 1 : 0));
            }
        }
        for (const unsigned char sum : sums)
            total += sum;
    }
    for (; i < count; ++i)
        total += static_cast<unsigned char>(bytes[i]) <= kEndOfText ? 1 : 0;
    return total;
}

/// Whether a line end of `lineEnd` bytes stands at `bytes` and at every `stride` bytes behind, `count` times.
bool standAt(const char* bytes, std::size_t lineEnd, std::size_t stride, std::size_t count)
{
    const char first = lineEnd == 2 ? '\r' : '\n';
    int difference = 0;
    for (std::size_t i = 0; i < count; ++i, bytes += stride)
        difference |= (bytes[0] ^ first) | (bytes[lineEnd - 1] ^ '\n');
    return difference == 0;
}

}  // namespace

void RecordScanner::start(RecordNumber first, RecordNumber last)
{
    number_ = first - 1;
    last_ = last;
    stride_ = file_.recordBytes() <= kMostStride ? static_cast<std::size_t>(file_.recordBytes()) : 0;
    placeLines();
    placeFields();
    refresh();
}

void RecordScanner::refresh()
{
    inBlock_ = 0;
    index_ = 0;
    checked_ = 0;
    if (number_ >= last_) return;
    if (stride_ == 0) {
        regular_ = false;
        checked_ = std::numeric_limits<std::size_t>::max();
        return;
    }
    const std::size_t records = std::max<std::size_t>(1, kBlockBytes / stride_);
    reader_.start(file_.duplicateFile(), file_.positionOf(number_ + 1) - 1,
                  (last_ - number_) * file_.recordBytes(), records * stride_);
}

void RecordScanner::placeLines()
{
    lineEnd_ = static_cast<std::size_t>(file_.lineEndBytes());
    lines_.clear();
    std::size_t start = 0;
    for (const std::int64_t bytes : file_.lineLengths()) {
        const auto length = static_cast<std::size_t>(bytes);
        lines_.push_back({start, length, std::min(length, kLineWidth)});
        start += length + lineEnd_;
    }
    const bool marked = !lines_.empty() && lines_.back().length > 0;
    markPlace_ = marked ? lines_.back().start + lines_.back().length : 0;
}

/// Place in the record's bytes of a character of its text; both counted from 0.
std::size_t RecordScanner::placeOf(std::size_t character) const
{
    for (const Line& line : lines_) {
        if (character < line.text) return line.start + character;
        character -= line.text;
    }
    throw RuntimeError(ErrorNumber::subscript);
}

void RecordScanner::placeFields()
{
    places_.fill({});
    capitals_ = file_.impostMaiusc;
    std::size_t characters = 0;
    for (const Line& line : lines_)
        characters += line.text;
    for (int n = 1; n <= file_.fieldCount(); ++n) {
        const auto i = static_cast<std::size_t>(n);
        const auto first = static_cast<std::size_t>(file_.fields().fieldOffset[i]);
        const auto length = static_cast<std::size_t>(file_.fields().length(n));
        // Nothing of a field is sought beyond the record's end.
        if (length == 0 || first + length > characters) continue;
        const std::size_t from = placeOf(first);
        const std::size_t to = placeOf(first + length - 1) + 1;
        places_[i] = {from, to - from, to - from == length};
    }
}

void RecordScanner::loadBlock()
{
    const std::span<const char> bytes = reader_.next();
    block_ = bytes.data();
    inBlock_ = bytes.size() / stride_;
    index_ = 0;
    checked_ = 0;
    if (inBlock_ == 0) throw RuntimeError(ErrorNumber::inputPastEnd);
}

void RecordScanner::checkSome()
{
    if (index_ >= inBlock_) loadBlock();
    const std::size_t count = std::clamp<std::size_t>(kCheckedBytes / stride_, 1, inBlock_ - checked_);
    regular_ = areRegular(checked_, count);
    recordRegular_ = true;
    checked_ += count;
}

/// One look at all of them: as many control characters as line ends need, and each of those where it belongs,
/// leave none to stand anywhere else.
bool RecordScanner::areRegular(std::size_t first, std::size_t count) const
{
    const char* records = block_ + first * stride_;
    if (controlsIn(records, count * stride_) != count * lines_.size() * lineEnd_) return false;
    return std::all_of(lines_.begin(), lines_.end(), [&](const Line& line) {
        return standAt(records + line.start + line.length, lineEnd_, stride_, count);
    });
}

bool RecordScanner::isRegular(const char* record) const
{
    return std::all_of(lines_.begin(), lines_.end(), [&](const Line& line) {
        const std::string_view text(record + line.start, line.length);
        if (!standAt(text.data() + text.size(), lineEnd_, 0, 1)) return false;
        if (text.find('\n') != std::string_view::npos || text.find(kEndOfText) != std::string_view::npos)
            return false;
        // A CR before a lone LF would be dropped with it.
        return lineEnd_ == 2 || !text.ends_with('\r');
    });
}

void RecordScanner::classify()
{
    recordRegular_ = stride_ > 0 && isRegular(record_);
    if (recordRegular_) return;
    if (stride_ == 0 || !readFromBlock()) readLineByLine();
    textReady_ = true;
}

/// Reads the lines of a record that begins at its position but goes on as it likes; false when they are not
/// all whole in the block.
bool RecordScanner::readFromBlock()
{
    text_.clear();
    std::string_view rest(record_, static_cast<std::size_t>(block_ + inBlock_ * stride_ - record_));
    for (std::size_t j = 0; j < lines_.size(); ++j) {
        const std::size_t end = rest.find('\n');
        // Too long, or none.
        if (end > static_cast<std::size_t>(kMaxLineLength)) return false;
        std::string_view line = rest.substr(0, end);
        if (line.find(kEndOfText) != std::string_view::npos) return false;
        if (line.ends_with('\r')) line.remove_suffix(1);
        text_ += line.substr(0, kLineWidth);
        mark_ = line.empty() ? '\0' : line.back();
        rest.remove_prefix(end + 1);
    }
    effort_ = 1 + (rest.data() - record_) / kBytesOfEffort;
    if (file_.impostMaiusc) std::transform(text_.begin(), text_.end(), text_.begin(), toUpper);
    return true;
}

void RecordScanner::readLineByLine()
{
    effort_ = kEffortLineByLine;
    file_.seek(number_);
    file_.caricastring();
    text_ = file_.recordText();
    mark_ = file_.lastMark();
}

std::string_view RecordScanner::text()
{
    if (textReady_) return text_;
    text_.clear();
    for (const Line& line : lines_)
        text_.append(record_ + line.start, line.text);
    if (file_.impostMaiusc) std::transform(text_.begin(), text_.end(), text_.begin(), toUpper);
    textReady_ = true;
    return text_;
}

}  // namespace quorvin
