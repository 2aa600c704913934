/// One field's value box, which is also the box for its search text.
#pragma once

#include <QLineEdit>

namespace quorvin {

/// A flat box with a thin border that fits into one text line. Emits clicked() for a left click within the
/// box, once for a double click, which picks a word; and for Ctrl+Space, the same from the keyboard.
class FieldBox : public QLineEdit {
    Q_OBJECT

public:
    explicit FieldBox(QWidget* parent);

    /// Shows a value whole, also one longer than what may be typed, from its first character on.
    void showValue(const QString& value);
    /// Takes the value away, and with it the room that it needed beyond what may be typed.
    void empty();

signals:
    void clicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool pressed_ = false;  ///< the left button went down here, for the first time
};

}  // namespace quorvin
