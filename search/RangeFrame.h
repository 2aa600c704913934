/// Two record numbers, first and last.
#pragma once

#include <QFrame>

#include "search/SearchQuery.h"

class QLineEdit;

namespace quorvin {

/// A frame with the boxes "da rekord:" and "a rekord:". Enter moves from the first to the second.
class RangeFrame : public QFrame {
    Q_OBJECT

public:
    /// The names of frame and boxes; `direction`: whether the boxes stand side by side or in a column.
    RangeFrame(const QString& name, const QString& purpose, const QString& first, const QString& last,
               Qt::Orientation direction, QWidget* parent);

    QLineEdit* const from;
    QLineEdit* const to;

    /// The numbers typed; 0 where there is none.
    SearchRange range() const;

private:
    QLineEdit* makeBox(const QString& name, const QString& purpose);
};

}  // namespace quorvin
