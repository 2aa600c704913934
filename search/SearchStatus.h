/// The line at the window's foot that tells about the search: mode, number of hits, criteria, state.
#pragma once

#include <QWidget>

class QLabel;

namespace quorvin {

/// Owns Label15 (mode), Label3 (hits), Label8 (criteria) and Label16 (state).
class SearchStatus : public QWidget {
    Q_OBJECT

public:
    explicit SearchStatus(QWidget* parent);

    /// Part of the window's `cancella`: no hits, no criteria, nothing running.
    void cancella();
    /// The usual search mode again.
    void reset();

private:
    QLabel* addLabel(const QString& name, const QString& purpose);

    QLabel* Label15;
    QLabel* Label3;
    QLabel* Label8;
    QLabel* Label16;
};

}  // namespace quorvin
