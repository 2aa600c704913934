/// The two record numbers of a partial search.
#pragma once

#include <QFrame>

#include "search/SearchQuery.h"

class QLineEdit;

namespace quorvin {

/// Frame3 with the boxes Text3 (from record) and Text4 (to record). Enter moves from the first to the second.
class RangeFrame : public QFrame {
    Q_OBJECT

public:
    explicit RangeFrame(QWidget* parent);

    QLineEdit* const Text3;
    QLineEdit* const Text4;

    /// Place in form units.
    static QRectF place();

    /// The numbers typed; 0 where there is none.
    SearchRange range() const;

private:
    QLineEdit* makeBox(const QString& name, const QString& purpose);
};

}  // namespace quorvin
