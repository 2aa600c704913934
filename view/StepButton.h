/// A button that steps once when clicked and again and again while it is held down.
#pragma once

#include <QPushButton>

class QTimer;

namespace quorvin {

/// Owns the timer of its repetition. The click that ends a hold during which it stepped is not one more step.
class StepButton : public QPushButton {
    Q_OBJECT

public:
    /// `timerName`: objectName of the timer.
    StepButton(const QString& caption, const QString& timerName, QWidget* parent);

    /// Ends a hold, as releasing the mouse button does.
    void stopRepeating();

signals:
    void stepped();
    void rightPressed();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QTimer* timer_;
    bool steppedWhileHeld_ = false;
};

}  // namespace quorvin
