#include "base/CodePage.h"

#include <array>
#include <cstdint>
#include <optional>

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>

#include <cerrno>
#include <map>
#endif

#include "base/Ansi.h"

namespace quorvin {

namespace {

constexpr int kOwnPage = 1252;
/// Lower numbers are no pages of their own.
constexpr int kLowestPage = 37;
constexpr int kUtf8Page = 65001;
constexpr int kMacPage = 10000;

#ifdef _WIN32

/// The system's conversion; none for a page that it does not know.
std::optional<std::u32string> convert(std::string_view bytes, int codePage)
{
    const auto page = static_cast<UINT>(codePage);
    const int size = static_cast<int>(bytes.size());
    const int units = MultiByteToWideChar(page, 0, bytes.data(), size, nullptr, 0);
    if (units <= 0) return std::nullopt;
    std::wstring wide(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(page, 0, bytes.data(), size, wide.data(), units);
    std::u32string text;
    for (std::size_t i = 0; i < wide.size(); ++i) {
        char32_t c = wide[i];
        const bool pair = c >= 0xD800 && c < 0xDC00 && i + 1 < wide.size();
        if (pair) c = 0x10000 + ((c - 0xD800) << 10) + (static_cast<char32_t>(wide[++i]) - 0xDC00);
        text.push_back(c);
    }
    return text;
}

#else

/// Closes a conversion when it goes.
class Converter {
public:
    explicit Converter(const std::string& from) : handle_(iconv_open("UTF-32LE", from.c_str())) {}
    ~Converter()
    {
        if (isKnown()) iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // The library's mark for "no such conversion" is this number as a pointer.
    bool isKnown() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }
    iconv_t handle() const { return handle_; }

private:
    iconv_t handle_;
};

std::string converterName(int codePage)
{
    if (codePage == kUtf8Page) return "UTF-8";
    if (codePage == kMacPage) return "MACINTOSH";
    return "CP" + std::to_string(codePage);
}

void appendLittleEndian(std::u32string& text, std::string_view bytes)
{
    for (std::size_t i = 0; i + 4 <= bytes.size(); i += 4) {
        char32_t c = 0;
        for (std::size_t k = 4; k-- > 0;)
            c = (c << 8) | static_cast<unsigned char>(bytes[i + k]);
        text.push_back(c);
    }
}

/// The conversion of a page, which stays open, for opening one may take as long as converting pages of text;
/// none for a page that the system does not know.
std::optional<iconv_t> converterOf(int codePage)
{
    thread_local std::map<int, Converter> converters;
    const auto entry = converters.try_emplace(codePage, converterName(codePage)).first;
    if (entry->second.isKnown()) return entry->second.handle();
    converters.erase(entry);
    return std::nullopt;
}

/// The system's conversion; none for a page that it does not know.
std::optional<std::u32string> convert(std::string_view bytes, int codePage)
{
    const std::optional<iconv_t> converter = converterOf(codePage);
    if (!converter) return std::nullopt;
    // Nothing is left of a text before.
    iconv(*converter, nullptr, nullptr, nullptr, nullptr);
    std::u32string text;
    std::string source(bytes);
    char* in = source.data();
    std::size_t inLeft = source.size();
    std::array<char, 1024> buffer{};
    while (inLeft > 0) {
        char* out = buffer.data();
        std::size_t outLeft = buffer.size();
        const std::size_t result = iconv(*converter, &in, &inLeft, &out, &outLeft);
        const bool failed = result == static_cast<std::size_t>(-1) && errno != E2BIG;
        appendLittleEndian(text, {buffer.data(), buffer.size() - outLeft});
        if (!failed) continue;
        text.push_back(U'\uFFFD');
        ++in;
        --inLeft;
    }
    // Some pages hold a letter back, for a mark that may follow it.
    char* out = buffer.data();
    std::size_t outLeft = buffer.size();
    iconv(*converter, nullptr, nullptr, &out, &outLeft);
    appendLittleEndian(text, {buffer.data(), buffer.size() - outLeft});
    return text;
}

#endif

}  // namespace

std::u32string fromCodePage(std::string_view bytes, int codePage)
{
    if (codePage != kOwnPage && codePage >= kLowestPage && !bytes.empty()) {
        if (auto text = convert(bytes, codePage)) return *text;
    }
    return toUnicode(bytes);
}

}  // namespace quorvin
