#include "search/Matcher.h"

#include <algorithm>
#include <cstddef>

#include "base/Ansi.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace quorvin {

namespace {

constexpr std::string_view kPunctuation = ". ,-;:_'";

void strip(std::string& text)
{
    std::erase_if(text, [](char c) { return kPunctuation.find(c) != std::string_view::npos; });
}

bool matchesField(SearchMode mode, std::string_view value, std::string_view pattern)
{
    switch (mode) {
    case SearchMode::equals:
        return value == pattern;
    case SearchMode::begins:
        return value.starts_with(pattern);
    case SearchMode::ends:
        return value.ends_with(pattern);
    case SearchMode::differs:
        return value != pattern;
    default:
        return inStr(value, pattern) != 0;
    }
}

}  // namespace

void Matcher::start(SearchMode mode, const FieldList& selection, const std::vector<std::string>& texts,
                    bool eliminapuntegg)
{
    if (texts.size() != static_cast<std::size_t>(selection.count()))
        throw RuntimeError(ErrorNumber::invalidCall);
    mode_ = mode;
    selection_ = selection;
    queries_.assign(texts.size() + 1, {});
    for (std::size_t i = 0; i < texts.size(); ++i)
        queries_[i + 1].fieldPattern = trim(upper(texts[i]));
    fieldValue_.fill({});
    fieldHitCount = 0;
    eliminapuntegg_ = eliminapuntegg;
    punctuated_.clear();
    patternsStripped_ = false;
    prepared_ = false;
}

const std::string& Matcher::fieldPattern(int position) const
{
    if (position < 1 || position > selection_.count()) throw RuntimeError(ErrorNumber::subscript);
    return query(position).fieldPattern;
}

const std::string& Matcher::fieldValue(int field) const
{
    if (field < 0 || field > kMaxFields) throw RuntimeError(ErrorNumber::subscript);
    return fieldValue_[static_cast<std::size_t>(field)];
}

void Matcher::setFieldValue(int field, std::string_view stored)
{
    fieldValue_[static_cast<std::size_t>(field)].clear();
    if (eliminapuntegg_) punctuated_.push_back(field);
    joinFieldValue(field, stored);
}

void Matcher::joinFieldValue(int field, std::string_view stored)
{
    // A value is set for every tested record, so that its memory is used again.
    appendUpper(fieldValue_[static_cast<std::size_t>(field)], trim(stored));
}

void Matcher::stripPunctuation()
{
    for (const int field : punctuated_)
        strip(fieldValue_[static_cast<std::size_t>(field)]);
    punctuated_.clear();
    if (patternsStripped_) return;
    for (Query& q : queries_)
        strip(q.fieldPattern);
    patternsStripped_ = true;
}

void Matcher::prepare()
{
    SearchWords searchWords;
    for (Query& q : queries_) {
        if (mode_ == SearchMode::interval) q.interval.emplace(q.fieldPattern);
        if (mode_ != SearchMode::allWords && mode_ != SearchMode::anyWord) continue;
        const int words = searchWords.split(q.fieldPattern, mode_ == SearchMode::allWords);
        for (int w = 1; w <= words; ++w)
            q.words.push_back(searchWords.phrase(w));
    }
    prepared_ = true;
}

std::optional<ByteFilter> Matcher::filter(int position, bool contiguous) const
{
    const Query& q = query(position);
    std::string_view needle = q.fieldPattern;
    switch (mode_) {
    case SearchMode::differs:
        return std::nullopt;
    case SearchMode::interval:
        if (needle.find_first_of("<>") != std::string_view::npos) return std::nullopt;
        break;
    case SearchMode::anyWord:
        if (q.words.size() != 1) return std::nullopt;
        [[fallthrough]];
    case SearchMode::allWords:
        needle = *std::max_element(q.words.begin(), q.words.end(),
                                   [](const auto& a, const auto& b) { return a.size() < b.size(); });
        break;
    default:
        break;
    }
    return ByteFilter::forNeedle(needle, contiguous && !eliminapuntegg_);
}

void Matcher::testField(int position)
{
    if (matchesField(mode_, fieldValue(selection_.at(position)), query(position).fieldPattern))
        ++fieldHitCount;
}

template<class Test>
void Matcher::countMatches(Test matches)
{
    for (int i = 1; i <= selection_.count(); ++i) {
        if (matches(query(i), fieldValue(selection_.at(i)))) ++fieldHitCount;
    }
}

void Matcher::testFields()
{
    switch (mode_) {
    case SearchMode::allWords:
        cercastringa();
        break;
    case SearchMode::anyWord:
        cercastringa2();
        break;
    case SearchMode::interval:
        cercastringa3();
        break;
    default:
        break;
    }
}

void Matcher::cercastringa()
{
    countMatches([](const Query& q, std::string_view value) {
        return std::all_of(q.words.begin(), q.words.end(),
                           [value](const std::string& word) { return inStr(value, word) != 0; });
    });
}

void Matcher::cercastringa2()
{
    countMatches([](const Query& q, std::string_view value) {
        return std::any_of(q.words.begin(), q.words.end(),
                           [value](const std::string& word) { return inStr(value, word) != 0; });
    });
}

void Matcher::cercastringa3()
{
    countMatches([](const Query& q, std::string_view value) {
        return q.interval->matches(value) || inStr(value, q.fieldPattern) != 0;
    });
}

}  // namespace quorvin
