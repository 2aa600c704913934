#include "search/SearchRun.h"

#include <QElapsedTimer>
#include <exception>

#include "base/RuntimeError.h"

namespace quorvin {

namespace {

/// Records, or lines, between two looks at the clock.
constexpr RecordNumber kStep = 1000;

}  // namespace

SearchRun::SearchRun(SearchDriver& driver, QWidget& stopControl, QObject* parent) :
    QObject(parent),
    driver_(driver),
    timer_(stopControl, this)
{
    connect(&timer_, &SliceTimer::slice, this, &SearchRun::slice);
    connect(&timer_, &SliceTimer::escapePressed, this, &SearchRun::stop);
}

void SearchRun::start()
{
    running_ = true;
    refused_ = false;
    timer_.start();
}

void SearchRun::stop()
{
    driver_.stop();
}

void SearchRun::abandon()
{
    if (!running_) return;
    timer_.stop();
    running_ = false;
    driver_.abandon();
    driver_.hits().clear();
    try {
        while (driver_.advance(kStep) != SearchDriver::State::idle) {
        }
    } catch (const std::exception&) {
        // Nobody is left to be told.
    }
}

void SearchRun::slice()
{
    QElapsedTimer time;
    time.start();
    try {
        while (driver_.state() == SearchDriver::State::running && time.elapsed() < SliceTimer::kSlice)
            driver_.advance(kStep);
        if (driver_.state() == SearchDriver::State::atHit) pauseAtHit();
    } catch (const std::exception&) {
        const RuntimeError error = currentError();
        rest([this, &error] { emit failed(error); });
    }
    if (!running_) return;
    if (driver_.state() == SearchDriver::State::idle) {
        finish();
    } else if (timer_.isProgressDue()) {
        emit progressed();
    }
}

void SearchRun::pauseAtHit()
{
    auto answer = &SearchDriver::fail;
    rest([this, &answer] {
        try {
            refused_ = !showAndAsk(driver_.position());
            answer = refused_ ? &SearchDriver::refuse : &SearchDriver::goOn;
        } catch (const std::exception&) {
            emit failed(currentError());
        }
    });
    if (running_) (driver_.*answer)();
}

/// Puts a box in front of the search. It needs its input, and runs timers, which must not reach the search.
void SearchRun::rest(const std::function<void()>& box)
{
    timer_.stop();
    box();
    // The window may have been closed meanwhile.
    if (!running_) return;
    timer_.start();
}

void SearchRun::finish()
{
    timer_.stop();
    running_ = false;
    emit finished(refused_);
}

}  // namespace quorvin
