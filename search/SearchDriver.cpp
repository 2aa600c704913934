#include "search/SearchDriver.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace quorvin {

SearchDriver::Started SearchDriver::start(const SearchQuery& query)
{
    if (state_ != State::idle) throw RuntimeError(ErrorNumber::invalidCall);
    clear();
    query_ = query;
    hits_.start(query.sort ? HitListKind::List2 : HitListKind::List1,
                query.maxel ? HitList::kWideValueWidth : HitList::kValueWidth);
    matcher_.start(query.mode, query.selection, query.texts, query.eliminapuntegg);
    for (int i = 1; i <= query.selection.count(); ++i)
        criteria_ += str(std::int64_t{query.selection.at(i)}) + "." + matcher_.fieldPattern(i) + "  ";
    file_.recount();
    for (SearchConsumer* consumer : consumers_)
        consumer->searchAsked(query_, file_.recordCount());
    const Started started = checkRange();
    if (started != Started::running) return started;
    const bool wanted = std::all_of(consumers_.begin(), consumers_.end(),
                                    [this](SearchConsumer* consumer) { return consumer->mayStart(query_); });
    if (!wanted) return Started::refused;

    scanner_.start(searchStart_, searchEnd_);
    state_ = State::running;
    scanned_ = false;
    started_ = 0;
    try {
        for (; started_ < consumers_.size(); ++started_)
            consumers_[started_]->searchStarts(query_, searchStart_, searchEnd_);
    } catch (const std::exception&) {
        endScan(SearchEnd::failed);
        finish(std::current_exception());
    }
    return started;
}

SearchDriver::Started SearchDriver::checkRange()
{
    const RecordNumber count = file_.recordCount();
    searchStart_ = 1;
    searchEnd_ = count;
    if (!query_.range) return Started::running;
    const double from = std::trunc(query_.range->from);
    const double to = std::trunc(query_.range->to.value_or(static_cast<double>(count)));
    if (from <= 0) return Started::badStart;
    if (query_.range->to && (to <= 0 || to > static_cast<double>(count))) return Started::badEnd;
    searchStart_ = from > static_cast<double>(count) ? count + 1 : static_cast<RecordNumber>(from);
    searchEnd_ = static_cast<RecordNumber>(to);
    return Started::running;
}

void SearchDriver::clear()
{
    hits_.clear();
    hitCount_ = 0;
    criteria_.clear();
    filters_.clear();
    searchStart_ = 1;
    searchEnd_ = 0;
}

SearchDriver::State SearchDriver::advance(RecordNumber most)
{
    if (state_ != State::running) return state_;
    try {
        if (!scanned_) {
            scan(most);
        } else if (hits_.sort(static_cast<std::size_t>(most))) {
            finish();
        }
    } catch (const std::exception&) {
        if (state_ == State::running) endScan(SearchEnd::failed);
        throw;
    }
    return state_;
}

void SearchDriver::scan(RecordNumber most)
{
    for (; most > 0; most -= scanner_.effort()) {
        if (!scanner_.next()) {
            endScan(SearchEnd::completed);
            return;
        }
        if (query_.norec && scanner_.isDeleted()) continue;
        if (!matcher_.isPrepared()) prepare();
        if (!mayMatch() || !testRecord()) continue;
        takeHit();
        if (state_ != State::running) return;
    }
}

/// Reads the search texts when the first record is really tested: with too many words it is that record that
/// ends the search.
void SearchDriver::prepare()
{
    matcher_.toglipunti();
    matcher_.prepare();
    for (int i = 1; i <= query_.selection.count(); ++i) {
        const int field = query_.selection.at(i);
        if (carriesJoin(field)) continue;
        const auto filter = matcher_.filter(i, scanner_.isInOneLine(field));
        if (filter) filters_.push_back({field, *filter});
    }
}

/// Whether the field at a position carries the joined text of all fields of the join list.
bool SearchDriver::isJoined(int position) const
{
    return query_.unirek && position > query_.selection.count() - query_.joinList.count();
}

/// Whether a field's own value is replaced at one of its positions, which the modes that look at all fields
/// together see at its other positions too.
bool SearchDriver::carriesJoin(int field) const
{
    for (int i = 1; i <= query_.selection.count(); ++i) {
        if (isJoined(i) && query_.selection.at(i) == field) return true;
    }
    return false;
}

bool SearchDriver::mayMatch()
{
    for (const FieldFilter& f : filters_) {
        if (!f.filter.mayHold(scanner_.fieldBytes(f.field))) return false;
    }
    return true;
}

bool SearchDriver::testRecord()
{
    matcher_.fieldHitCount = 0;
    for (int i = 1; i <= query_.selection.count(); ++i) {
        fillValue(i);
        matcher_.toglipunti();
        if (!testsFieldByField(query_.mode)) continue;
        matcher_.testField(i);
        if (matcher_.fieldHitCount < i) return false;
    }
    matcher_.testFields();
    return matcher_.allMatched();
}

void SearchDriver::fillValue(int position)
{
    const int field = query_.selection.at(position);
    if (!isJoined(position)) {
        matcher_.setFieldValue(field, scanner_.fieldValue(field));
        return;
    }
    matcher_.setFieldValue(field, {});
    for (int j = 1; j <= query_.joinList.count(); ++j)
        matcher_.joinFieldValue(field, scanner_.fieldValue(query_.joinList.at(j)));
}

void SearchDriver::takeHit()
{
    for (SearchConsumer* consumer : consumers_)
        consumer->recordMatched(matcher_);
    if (!query_.elencorekord) {
        ++hitCount_;
        state_ = State::atHit;
        return;
    }
    if (!query_.unlisted) listHit();
    ++hitCount_;
    passHit();
}

void SearchDriver::listHit()
{
    // With a single field there is none before the last: position 0, field 0, an empty value.
    const int penultimate = query_.Check2 ? query_.selection.at(query_.selection.count() - 1) : 0;
    hits_.add(scanner_.number(), scanner_.fieldValue(query_.startField),
              penultimate ? scanner_.fieldValue(penultimate) : std::string_view());
}

void SearchDriver::passHit()
{
    for (SearchConsumer* consumer : consumers_)
        consumer->hit(scanner_);
}

void SearchDriver::goOn()
{
    if (state_ != State::atHit) return;
    state_ = State::running;
    try {
        passHit();
        scanner_.refresh();
    } catch (const std::exception&) {
        endScan(SearchEnd::failed);
        throw;
    }
}

void SearchDriver::refuse()
{
    endAtHit(SearchEnd::refused);
}

void SearchDriver::fail()
{
    endAtHit(SearchEnd::failed);
}

void SearchDriver::endAtHit(SearchEnd end)
{
    if (state_ != State::atHit) return;
    state_ = State::running;
    endScan(end);
}

void SearchDriver::stop()
{
    if (state_ == State::idle) return;
    if (scanned_) {
        hits_.giveUpSorting();
        return;
    }
    state_ = State::running;
    endScan(SearchEnd::stopped);
}

void SearchDriver::abandon()
{
    const bool testing = state_ != State::idle && !scanned_;
    stop();
    if (testing) end_ = SearchEnd::failed;
}

/// Leaves the rest, the order of the list and the end, to `advance`.
void SearchDriver::endScan(SearchEnd end)
{
    scanner_.stop();
    scanned_ = true;
    end_ = end;
}

/// Ends the search for everybody and raises `failure`, or the first of theirs.
void SearchDriver::finish(std::exception_ptr failure)
{
    state_ = State::idle;
    criteria_ += str(hitCount_);
    for (std::size_t i = 0; i < started_; ++i) {
        try {
            consumers_[i]->searchEnds(end_, criteria_, matcher_);
        } catch (const std::exception&) {
            // The others have their work to finish as well.
            if (!failure) failure = std::current_exception();
        }
    }
    if (failure) std::rethrow_exception(failure);
}

double SearchDriver::progress() const
{
    if (scanned_ || searchEnd_ < searchStart_) return 1;
    return static_cast<double>(scanner_.number() - searchStart_ + 1) /
           static_cast<double>(searchEnd_ - searchStart_ + 1);
}

}  // namespace quorvin
