#include "tests/search/SlowSearch.h"

#include <algorithm>
#include <stdexcept>

#include "base/Ansi.h"
#include "base/Dates.h"
#include "base/Text.h"

namespace quorvin::test {

namespace {

std::string plusToBlank(std::string text)
{
    std::replace(text.begin(), text.end(), '+', ' ');
    return text;
}

std::vector<std::string> wordsOf(std::string s, bool plusSeparates)
{
    std::vector<std::string> words;
    for (int w = 1; w <= 50; ++w) {
        s = std::string(trim(s));
        const std::size_t p = inStr(s, " ");
        if (plusSeparates && p != 0) s = plusToBlank(s);
        words.push_back(p == 0 ? s : s.substr(0, p - 1));
        if (p == 0) return words;
        s = s.substr(p);
    }
    throw std::out_of_range("more than 50 words");
}

bool inInterval(std::string v, std::string t)
{
    const auto dayText = [](const std::string& text) {
        const auto day = dayNumber(text);
        return day ? std::to_string(*day) : text;
    };
    const auto dateBehind = [&](char sign) {
        const std::string date = t.substr(inStr(t, std::string(1, sign)), 10);
        return sign + dayText(std::string(trim(date.substr(0, date.find_first_of("<>")))));
    };
    const bool g = inStr(t, ">") != 0;
    const bool l = inStr(t, "<") != 0;
    if (inStr(v, "/") != 0 && inStr(t, "/") != 0) {
        v = dayText(v);
        t = (g ? dateBehind('>') : "") + " " + (l ? dateBehind('<') : "");
    }
    const bool above = !g || val(v) > val(t.substr(inStr(t, ">"), 80));
    const bool below = !l || val(v) < val(t.substr(inStr(t, "<"), 80));
    return (g || l) && above && below;
}

bool matches(int mode, const std::string& value, const std::string& pattern)
{
    const std::size_t length = std::min(pattern.size(), value.size());
    const auto found = [&](const std::string& word) { return inStr(value, plusToBlank(word)) != 0; };
    if (mode == 1) return value == pattern;
    if (mode == 2) return value.substr(0, length) == pattern;
    if (mode == 3) return value.substr(value.size() - length) == pattern;
    if (mode == 5) return value != pattern;
    if (mode == 6) return std::ranges::all_of(wordsOf(pattern, true), found);
    if (mode == 7) return std::ranges::any_of(wordsOf(pattern, false), found);
    return (mode == 8 && inInterval(value, pattern)) || inStr(value, pattern) != 0;
}

}  // namespace

std::string prepared(const SlowSearch& search, const std::string& text)
{
    std::string value(trim(upper(text)));
    if (search.eliminapuntegg)
        std::erase_if(value, [](char c) { return inStr(". ,-;:_'", std::string(1, c)) != 0; });
    return value;
}

bool isHit(const SlowSearch& search, const std::vector<std::string>& record)
{
    const std::size_t count = search.selection.size();
    for (std::size_t i = 0; i < count; ++i) {
        // A field has one value; the modes from 6 on look at it when the last of its positions has set it.
        std::size_t set = i;
        for (std::size_t j = i; search.mode > 5 && j < count; ++j)
            if (search.selection[j] == search.selection[i]) set = j;
        const bool joined = set >= count - search.joined;
        std::string value;
        for (std::size_t j = joined ? count - search.joined : i; j < (joined ? count : i + 1); ++j)
            value += prepared(search, record.at(static_cast<std::size_t>(search.selection[j])));
        if (!matches(search.mode, value, prepared(search, search.texts[i]))) return false;
    }
    return true;
}

}  // namespace quorvin::test
