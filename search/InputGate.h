/// Keeps the user's input away from the window while something long runs in it.
#pragma once

#include <QObject>

class QMouseEvent;
class QWidget;

namespace quorvin {

/// While closed, keys, clicks, the wheel, menu shortcuts and dropped files reach nothing but one control,
/// which stops what runs, and Esc, which does the same. The window is still painted, moved, resized and
/// closed.
class InputGate : public QObject {
    Q_OBJECT

public:
    /// `stopControl` must outlive the gate.
    explicit InputGate(QWidget& stopControl, QObject* parent);

    /// Keeps input away; lets it pass again.
    void close();
    void open();

signals:
    /// While closed.
    void escapePressed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isForStopControl(const QMouseEvent& event) const;

    QWidget& stopControl_;
};

}  // namespace quorvin
