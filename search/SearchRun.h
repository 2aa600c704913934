/// Lets a search run in the window: a slice at a time, between which the window lives on.
#pragma once

#include <QObject>
#include <functional>

#include "search/SearchDriver.h"
#include "search/SliceTimer.h"

namespace quorvin {

class RuntimeError;

/// Pulls the driver slice by slice. Esc or the stop control ends the search as if its last record had been
/// reached.
class SearchRun : public QObject {
    Q_OBJECT

public:
    SearchRun(SearchDriver& driver, QWidget& stopControl, QObject* parent);

    /// Runs the search that the driver has started.
    void start();
    bool isRunning() const { return running_; }
    /// Ends the search with what it has found; a list is still put in order, unless this is called once more.
    void stop();
    /// Ends it at once, for good: hits and files are given up, nothing is shown any more.
    void abandon();

    /// Shows the hit that the search pauses at and asks whether to go on. Raises what showing it raises.
    std::function<bool(RecordNumber)> showAndAsk;

signals:
    /// How far the search is, at most 20 times a second.
    void progressed();
    /// The search is over. `refused`: by the user's No.
    void finished(bool refused);
    /// An error ended the search; `finished` follows.
    void failed(const RuntimeError& error);

private:
    void slice();
    void pauseAtHit();
    void rest(const std::function<void()>& box);
    void finish();

    SearchDriver& driver_;
    SliceTimer timer_;
    bool running_ = false;
    bool refused_ = false;
};

}  // namespace quorvin
