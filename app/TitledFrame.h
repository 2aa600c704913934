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
    /// The frame is to be closed; it stays as it is until somebody does.
    void closeRequested();

protected:
    /// Where content goes, below the title.
    QVBoxLayout* content() { return content_; }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void startDrag();

    QLabel* title_;
    QVBoxLayout* content_;
    QPoint pressedAt_;
};

}  // namespace quorvin
