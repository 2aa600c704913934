#include "output/RtfTables.h"

#include <algorithm>

#include "base/CodePage.h"
#include "output/RichText.h"
#include "output/RtfWords.h"

namespace quorvin {

namespace {

constexpr std::size_t kMostEntries = 4096;
constexpr std::size_t kMostNameCharacters = 64;

/// Whether a character can stand in a font's name; the semicolon would end it.
bool isOfName(char32_t c)
{
    return c >= U' ' && c != U';' && c != RichText::kLineBreak;
}

}  // namespace

const RtfTables::Font& RtfTables::font(std::optional<int> number) const
{
    static const Font usual{CharFormat().font, std::nullopt};
    const auto found = fonts_.find(number.value_or(defaultFont));
    return found == fonts_.end() || found->second.name.empty() ? usual : found->second;
}

std::optional<std::uint32_t> RtfTables::colour(int number) const
{
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < colours_.size() ? colours_[index] : std::nullopt;
}

void RtfTables::fontWord(std::string_view word, int parameter)
{
    if (word == "f") {
        endFontName();
        current_ = parameter;
        if (fonts_.size() < kMostEntries) fonts_[current_] = Font();
    }
    const auto font = fonts_.find(current_);
    if (font == fonts_.end()) return;
    if (word == "fcharset") {
        font->second.isSymbol = parameter == kSymbolCharset;
        font->second.codePage = lookUp(kCharsetPages, parameter);
    } else if (word == "cpg") {
        font->second.codePage = parameter;
    }
}

/// A semicolon ends the name.
void RtfTables::fontBytes(std::string_view bytes)
{
    for (const char c : bytes) {
        if (c == ';') {
            endFontName();
        } else if (name_.size() + nameBytes_.size() < kMostNameCharacters) {
            nameBytes_.push_back(c);
        }
    }
}

void RtfTables::fontCharacter(char32_t character)
{
    decodeName();
    if (name_.size() < kMostNameCharacters) name_.push_back(character);
}

void RtfTables::endFontName()
{
    decodeName();
    std::replace_if(
        name_.begin(), name_.end(), [](char32_t c) { return !isOfName(c); }, U' ');
    const auto found = fonts_.find(current_);
    if (found != fonts_.end() && !name_.empty()) found->second.name = name_;
    name_.clear();
}

void RtfTables::decodeName()
{
    const auto found = fonts_.find(current_);
    if (found != fonts_.end()) name_ += fromCodePage(nameBytes_, codePageOf(found->second));
    nameBytes_.clear();
}

void RtfTables::colourWord(std::string_view word, int parameter)
{
    constexpr std::pair<std::string_view, int> kShifts[] = {{"red", 16}, {"green", 8}, {"blue", 0}};
    const std::optional<int> shift = lookUp(kShifts, word);
    if (!shift) return;
    const auto part = static_cast<std::uint32_t>(std::clamp(parameter, 0, 255));
    colour_ = (colour_.value_or(0) & ~(0xFFU << *shift)) | part << *shift;
}

/// Each semicolon ends a colour, also one that says nothing and so is the usual one.
void RtfTables::colourBytes(std::string_view bytes)
{
    for (const char c : bytes) {
        if (c != ';') continue;
        if (colours_.size() < kMostEntries) colours_.push_back(colour_);
        colour_.reset();
    }
}

}  // namespace quorvin
