/// Calls for long work in slices, between which the window lives on but takes no input.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include "search/InputGate.h"

namespace quorvin {

/// While it runs, no input is acted on but Esc and one control; both ask to stop.
class SliceTimer : public QObject {
    Q_OBJECT

public:
    /// Milliseconds that the window waits for a slice.
    static constexpr qint64 kSlice = 30;

    /// `stopControl` must outlive this.
    SliceTimer(QWidget& stopControl, QObject* parent) : QObject(parent), gate_(stopControl, this)
    {
        connect(&timer_, &QTimer::timeout, this, &SliceTimer::slice);
        connect(&gate_, &InputGate::escapePressed, this, &SliceTimer::escapePressed);
    }

    bool isRunning() const { return timer_.isActive(); }

    void start()
    {
        sinceProgress_.start();
        gate_.close();
        timer_.start(0);
    }

    void stop()
    {
        timer_.stop();
        gate_.open();
    }

    /// Whether progress is to be shown now: at most 20 times a second.
    bool isProgressDue()
    {
        constexpr qint64 kMilliseconds = 50;
        if (sinceProgress_.elapsed() < kMilliseconds) return false;
        sinceProgress_.restart();
        return true;
    }

signals:
    /// The next slice is to be worked on.
    void slice();
    void escapePressed();

private:
    InputGate gate_;
    QTimer timer_;
    QElapsedTimer sinceProgress_;
};

}  // namespace quorvin
