/// A list box of hits.
#pragma once

#include <QListView>

namespace quorvin {

class HitList;

/// A line counts as clicked once, whether by the mouse or
/// by the keys that move through the lines; Enter clicks the current line again. A right press leaves the
/// selection alone. Ctrl+C copies the selected lines.
class HitListView : public QListView {
    Q_OBJECT

public:
    /// `hits`, which must outlive the view, has the lines that its model shows.
    HitListView(const HitList& hits, const QString& name, const QString& purpose, QWidget* parent);

    /// Goes to the next line that begins with what was typed, unless there are so many that looking through
    /// them would take a while.
    void keyboardSearch(const QString& typed) override;

signals:
    /// `row`: 0-based, -1 for a click beside all lines.
    void lineClicked(int row);
    /// The right button was pressed. `row`: the selected line that is current, -1 without a selection.
    void rightPressed(int row);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void copySelection();

    const HitList& hits_;
    bool pressed_ = false;  ///< the left button went down here
};

}  // namespace quorvin
