/// A frame with a title that stands over the form, can be dragged by the title and closed.
#pragma once

#include <QFrame>
#include <QPoint>

class QLabel;
class QVBoxLayout;

namespace quorvin {

class TitledFrame : public QFrame {
    Q_OBJECT

public:
    TitledFrame(const QString& name, const QString& title, QWidget* parent);

signals:
    /// The close button or Esc; the frame itself stays as it is.
    void closeRequested();

protected:
    /// Where content goes, below the title.
    QVBoxLayout* content() { return content_; }
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void startDrag();

    QLabel* title_;
    QVBoxLayout* content_;
    QPoint pressedAt_;
};

}  // namespace quorvin
