#include "output/RtfReader.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/Ansi.h"
#include "base/CodePage.h"
#include "output/RtfTables.h"
#include "output/RtfTokens.h"
#include "output/RtfWords.h"

namespace quorvin {

namespace {

/// Bounds of what a document may ask for; beyond them its wishes are passed over. Groups within groups whose
/// formats are kept, stops of a paragraph, bytes of one format (a character has up to four).
constexpr std::size_t kMostDepth = 200;
constexpr std::size_t kMostTabs = 32;
constexpr std::size_t kMostBytes = 4 * RichText::kMostCharacters;

/// Size of text that asks for none, in half points.
constexpr int kPlainSize = 24;

enum class Destination { text, fonts, colours, choice, nowhere };

/// What holds until the end of a group.
struct State {
    Destination destination = Destination::text;
    Destination outside = Destination::text;  ///< of a choice
    CharFormat format;                        ///< but for the font's name
    std::optional<int> font;                  ///< number; none: the default
    ParagraphFormat paragraph;
    TabKind nextTab = TabKind::left;
    int fallback = 1;  ///< characters that stand behind a Unicode escape for other readers
    bool hidden = false;
    bool deleted = false;  ///< in a document that shows its changes

    State() { format.halfPoints = kPlainSize; }
};

class Reader {
public:
    RichText read(std::string_view rtf)
    {
        RtfTokens tokens(rtf);
        for (RtfToken token = tokens.next(); token.kind != RtfToken::Kind::end && !text_.isFull();
             token = tokens.next())
            take(token);
        flush();
        return std::move(text_);
    }

private:
    using Handler = std::function<void(Reader&, std::optional<int>)>;
    using Handlers = std::unordered_map<std::string_view, Handler>;

    static const Handlers& handlers();
    static void addCharacterHandlers(Handlers& handlers);
    static void addParagraphHandlers(Handlers& handlers);
    static void addDocumentHandlers(Handlers& handlers);

    void take(const RtfToken& token);
    void beginGroup();
    void endGroup();
    bool takeDestination(std::string_view word, bool starred);
    void takeWord(std::string_view word, std::optional<int> parameter);
    void takeBytes(std::string_view bytes);
    void takeUnit(int number);
    void plain();
    void addTab(int position);
    void flush();
    void add(std::u32string_view text);
    void endParagraph();
    void breakParagraph();
    CharFormat format() const;

    RichText text_;
    RtfTables tables_;
    State state_;
    std::vector<State> outer_;
    std::size_t tooDeep_ = 0;  ///< groups beyond those whose states are kept
    bool atBegin_ = false;     ///< of a group, where a word may say where all of it goes
    bool starred_ = false;     ///< that word is for those who know it
    int toSkip_ = 0;           ///< characters behind a Unicode escape
    char32_t firstHalf_ = 0;   ///< of a character that is two units of UTF-16
    std::string bytes_;        ///< text of the present format that is not decoded yet
    /// A paragraph's end waits for what follows it, and is dropped where nothing does.
    std::optional<CharFormat> end_;
};

const Reader::Handlers& Reader::handlers()
{
    static const Handlers handlers = [] {
        Handlers all;
        addCharacterHandlers(all);
        addParagraphHandlers(all);
        addDocumentHandlers(all);
        return all;
    }();
    return handlers;
}

void Reader::addCharacterHandlers(Handlers& handlers)
{
    for (const auto& [word, character] : kCharacterWords)
        handlers[word] = [c = character](Reader& r, std::optional<int>) { r.add({&c, 1}); };
    for (const auto& [word, toggle] : kToggles) {
        handlers[word] = [member = toggle](Reader& r, std::optional<int> on) {
            r.state_.format.*member = on.value_or(1) != 0;
        };
    }
    for (const auto& [word, colour] : kColourWords) {
        handlers[word] = [member = colour](Reader& r, std::optional<int> n) {
            r.state_.format.*member = r.tables_.colour(n.value_or(0));
        };
    }
    for (const std::string_view word : kUnderlines) {
        handlers[word] = [](Reader& r, std::optional<int> on) {
            r.state_.format.underline = on.value_or(1) != 0;
        };
    }
    handlers["ulnone"] = [](Reader& r, std::optional<int>) { r.state_.format.underline = false; };
    handlers["plain"] = [](Reader& r, std::optional<int>) { r.plain(); };
    handlers["f"] = [](Reader& r, std::optional<int> n) { r.state_.font = n; };
    handlers["fs"] = [](Reader& r, std::optional<int> n) {
        r.state_.format.halfPoints = std::clamp(n.value_or(kPlainSize), 1, kMostHalfPoints);
    };
    handlers["v"] = [](Reader& r, std::optional<int> on) { r.state_.hidden = on.value_or(1) != 0; };
    handlers["deleted"] = [](Reader& r, std::optional<int> on) { r.state_.deleted = on.value_or(1) != 0; };
    handlers["u"] = [](Reader& r, std::optional<int> n) { r.takeUnit(n.value_or(0)); };
    handlers["uc"] = [](Reader& r, std::optional<int> n) { r.state_.fallback = std::max(n.value_or(1), 0); };
}

void Reader::addParagraphHandlers(Handlers& handlers)
{
    for (const std::string_view word : kParagraphEnds)
        handlers[word] = [](Reader& r, std::optional<int>) { r.endParagraph(); };
    for (const auto& [word, alignment] : kAlignments) {
        handlers[word] = [value = alignment](Reader& r, std::optional<int>) {
            r.state_.paragraph.alignment = value;
        };
    }
    for (const auto& [word, indent] : kIndents) {
        handlers[word] = [member = indent](Reader& r, std::optional<int> n) {
            r.state_.paragraph.*member = std::clamp(n.value_or(0), -kMostTwips, kMostTwips);
        };
    }
    for (const auto& [word, kind] : kTabWords)
        handlers[word] = [value = kind](Reader& r, std::optional<int>) { r.state_.nextTab = value; };
    handlers["tx"] = [](Reader& r, std::optional<int> n) { r.addTab(n.value_or(0)); };
    handlers["pard"] = [](Reader& r, std::optional<int>) { r.state_.paragraph = {}; };
}

void Reader::addDocumentHandlers(Handlers& handlers)
{
    for (const auto& [word, page] : kPageWords)
        handlers[word] = [value = page](Reader& r, std::optional<int>) { r.tables_.codePage = value; };
    handlers["ansicpg"] = [](Reader& r, std::optional<int> n) {
        r.tables_.codePage = n.value_or(RtfTables::kUsualPage);
    };
    handlers["deff"] = [](Reader& r, std::optional<int> n) { r.tables_.defaultFont = n.value_or(0); };
}

void Reader::take(const RtfToken& token)
{
    using enum RtfToken::Kind;
    switch (token.kind) {
    case groupBegin:
        beginGroup();
        break;
    case groupEnd:
        endGroup();
        break;
    case word:
        takeWord(token.text, token.parameter);
        break;
    case bytes:
        takeBytes(token.text);
        break;
    case code:
        takeBytes({&token.byte, 1});
        break;
    case end:
        break;
    }
}

void Reader::beginGroup()
{
    flush();
    toSkip_ = 0;
    starred_ = false;
    atBegin_ = true;
    if (outer_.size() < kMostDepth) {
        outer_.push_back(state_);
    } else {
        ++tooDeep_;
    }
}

/// An end without a beginning is passed over.
void Reader::endGroup()
{
    flush();
    toSkip_ = 0;
    atBegin_ = false;
    if (tooDeep_ > 0) {
        --tooDeep_;
    } else if (!outer_.empty()) {
        if (state_.destination == Destination::fonts) tables_.endFontName();
        state_ = std::move(outer_.back());
        outer_.pop_back();
    }
}

/// Whether the first word of a group says where all of it goes.
bool Reader::takeDestination(std::string_view word, bool starred)
{
    Destination& where = state_.destination;
    if (where == Destination::nowhere) return true;
    if (contains(kChoosingGroups, word)) {
        if (where != Destination::choice) state_.outside = where;
        where = Destination::choice;
    } else if (where == Destination::choice) {
        where = contains(kChosenGroups, word) ? state_.outside : Destination::nowhere;
        if (contains(kBoxTexts, word)) breakParagraph();
    } else if (word == "fonttbl") {
        where = Destination::fonts;
    } else if (word == "colortbl") {
        where = Destination::colours;
    } else if (starred || contains(kSkippedGroups, word)) {
        where = Destination::nowhere;
    } else {
        return false;
    }
    return true;
}

void Reader::takeWord(std::string_view word, std::optional<int> parameter)
{
    if (word.size() == 1 && kEscapedCharacters.find(word[0]) != std::string_view::npos) {
        takeBytes(word);
        return;
    }
    if (word == "*") {
        starred_ = atBegin_;
        return;
    }
    flush();
    if (std::exchange(atBegin_, false)) {
        if (takeDestination(word, std::exchange(starred_, false))) return;
    } else if (outer_.size() > 1 && contains(kSkippedGroups, word)) {
        // Writers that format a group before they say what it is; not the document itself.
        state_.destination = Destination::nowhere;
    }
    if (toSkip_ > 0 && lookUp(kCharacterWords, word)) {
        --toSkip_;
        return;
    }
    toSkip_ = 0;
    if (state_.destination == Destination::fonts) {
        if (word == "u") takeUnit(parameter.value_or(0));
        tables_.fontWord(word, parameter.value_or(0));
    }
    if (state_.destination == Destination::colours) tables_.colourWord(word, parameter.value_or(0));
    if (state_.destination != Destination::text) return;
    const auto found = handlers().find(word);
    if (found != handlers().end()) found->second(*this, parameter);
}

void Reader::takeBytes(std::string_view bytes)
{
    const std::size_t skipped = std::min(static_cast<std::size_t>(toSkip_), bytes.size());
    toSkip_ -= static_cast<int>(skipped);
    bytes.remove_prefix(skipped);
    atBegin_ = false;
    switch (state_.destination) {
    case Destination::text:
        // Behind the end of a file some writers leave the end of their buffer.
        if (bytes_.size() < kMostBytes)
            std::remove_copy(bytes.begin(), bytes.end(), std::back_inserter(bytes_), '\0');
        break;
    case Destination::fonts:
        tables_.fontBytes(bytes);
        break;
    case Destination::colours:
        tables_.colourBytes(bytes);
        break;
    case Destination::choice:
    case Destination::nowhere:
        break;
    }
}

/// A unit of UTF-16 as a number with or without a sign.
void Reader::takeUnit(int number)
{
    const auto unit = static_cast<char32_t>(static_cast<std::uint16_t>(number));
    const bool isFirstHalf = unit >= 0xD800 && unit < 0xDC00;
    const bool isSecondHalf = unit >= 0xDC00 && unit < 0xE000;
    char32_t character = unit;
    if (isSecondHalf)
        character = firstHalf_ == 0 ? U'\uFFFD' : 0x10000 + ((firstHalf_ - 0xD800) << 10) + (unit - 0xDC00);
    firstHalf_ = isFirstHalf ? unit : 0;
    // Fonts of pictures keep their codes in this corner of Unicode.
    if (unit >= 0xF000 && unit < 0xF100)
        character = lookUp(kSymbols, static_cast<unsigned char>(unit & 0xFF)).value_or(unit);
    if (!isFirstHalf && state_.destination == Destination::fonts) tables_.fontCharacter(character);
    if (!isFirstHalf) add({&character, 1});
    toSkip_ = state_.fallback;
}

void Reader::plain()
{
    state_.format = State().format;
    state_.font.reset();
    state_.hidden = false;
    state_.deleted = false;
}

void Reader::addTab(int position)
{
    const TabStop stop{std::min(position, kMostTwips), std::exchange(state_.nextTab, TabKind::left)};
    if (stop.position > 0 && state_.paragraph.tabs.size() < kMostTabs) state_.paragraph.tabs.push_back(stop);
}

/// Decodes what was gathered; to be called before anything changes that it depends on.
void Reader::flush()
{
    if (bytes_.empty()) return;
    const RtfTables::Font& font = tables_.font(state_.font);
    std::u32string text;
    if (font.isSymbol) {
        for (const char c : bytes_)
            text.push_back(lookUp(kSymbols, static_cast<unsigned char>(c)).value_or(toUnicode(c)));
    } else {
        text = fromCodePage(bytes_, tables_.codePageOf(font));
    }
    bytes_.clear();
    add(text);
}

void Reader::add(std::u32string_view text)
{
    if (state_.hidden || state_.deleted || state_.destination != Destination::text) return;
    // Half a character that nothing completed.
    if (std::exchange(firstHalf_, 0) != 0) add(U"\uFFFD");
    if (end_) text_.endParagraph(*end_);
    end_.reset();
    text_.setParagraphFormat(state_.paragraph);
    text_.append(text, format());
}

void Reader::endParagraph()
{
    if (end_) text_.endParagraph(*end_);
    text_.setParagraphFormat(state_.paragraph);
    end_ = format();
}

/// Ends a paragraph that has begun.
void Reader::breakParagraph()
{
    const bool begun = !end_ && !text_.empty() && text_.text().back() != RichText::kParagraphEnd;
    if (begun && state_.destination == Destination::text) endParagraph();
}

CharFormat Reader::format() const
{
    CharFormat format = state_.format;
    format.font = tables_.font(state_.font).name;
    return format;
}

}  // namespace

bool isRtf(std::string_view text)
{
    return text.starts_with("{\\rtf");
}

RichText readRtf(std::string_view rtf)
{
    return Reader().read(rtf);
}

}  // namespace quorvin
