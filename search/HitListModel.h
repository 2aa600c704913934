/// The hit list's lines for the views; a line is made only when it is seen.
#pragma once

#include <QAbstractListModel>
#include <QSize>

namespace quorvin {

class HitList;

/// Shows the list as it was at the last call of `update`.
class HitListModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// `hits` must outlive the model.
    HitListModel(const HitList& hits, QObject* parent);

    /// Takes over lines that were added. `all`: also if it is not worth the layout of the views yet.
    void update(bool all);
    /// To be called before the list is emptied.
    void empty();

    /// Size of one character of the views' font, in pixels.
    void setCharacterSize(QSize size);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const HitList& hits_;
    int rows_ = 0;
    QSize characterSize_{8, 16};
};

}  // namespace quorvin
