/// The fonts and colours that an RTF document declares before its text.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvin {

/// Takes the tables in word by word, and answers for the numbers that the text uses. Entries beyond some
/// thousands are passed over.
class RtfTables {
public:
    struct Font {
        std::u32string name;
        std::optional<int> codePage;  ///< none: the document's
        bool isSymbol = false;        ///< its characters are pictures
    };

    static constexpr int kUsualPage = 1252;

    int codePage = kUsualPage;  ///< of the document
    int defaultFont = 0;        ///< number

    /// A font by its number, the default one without a number; the usual letter font where there is none.
    const Font& font(std::optional<int> number) const;
    int codePageOf(const Font& font) const { return font.codePage.value_or(codePage); }
    /// A colour by its number, 0xRRGGBB; none for the usual one and for a number that is not there.
    std::optional<std::uint32_t> colour(int number) const;

    /// Words and text within the font table.
    void fontWord(std::string_view word, int parameter);
    void fontBytes(std::string_view bytes);
    void fontCharacter(char32_t character);
    void endFontName();
    /// And within the colour table.
    void colourWord(std::string_view word, int parameter);
    void colourBytes(std::string_view bytes);

private:
    void decodeName();

    std::map<int, Font> fonts_;
    std::vector<std::optional<std::uint32_t>> colours_;
    int current_ = -1;  ///< font that is being declared
    std::u32string name_;
    std::string nameBytes_;  ///< what follows of it and is not decoded yet
    std::optional<std::uint32_t> colour_;
};

}  // namespace quorvin
