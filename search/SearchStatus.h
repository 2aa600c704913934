/// The line at the window's foot that tells about the search: mode, number of hits, criteria, state.
#pragma once

#include <QElapsedTimer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QToolButton;

namespace quorvin {

/// Owns Label15 (mode), Label3 (hits), Label8 (criteria), Label16 (state) and, beside it, progress and stop
/// button of a search that takes its time.
class SearchStatus : public QWidget {
    Q_OBJECT

public:
    explicit SearchStatus(QWidget* parent);

    /// Part of the window's `cancella`: no hits, no criteria, nothing running.
    void cancella();
    /// The usual search mode again.
    void reset();

    /// The three results as they read: mode, number of hits, criteria.
    void showMode(const QString& caption);
    void showHits(double count);
    void showCriteria(const QString& criteria);
    /// What else the search has done, beside its results until the next one.
    void showNotice(const QString& text);

    /// A search runs; it is over.
    void showRunning();
    void showDone();
    /// Something else runs, said by `state`; nothing does.
    void showRunning(const QString& state);
    void hideState();
    /// `share`: 0 to 1. Shown once the search has taken a moment.
    void showProgress(double share);

    /// The one control that takes input while a search runs.
    QWidget& stopButton() const;

signals:
    /// The stop button was pressed.
    void stopRequested();

private:
    QLabel* addLabel(const QString& name, const QString& purpose);
    void addProgress();

    QLabel* Label15;
    QLabel* Label3;
    QLabel* Label8;
    QLabel* Label16;
    QLabel* notice_;
    QProgressBar* progress_;
    QToolButton* stop_;
    QElapsedTimer running_;
    bool isRunning_ = false;
};

}  // namespace quorvin
