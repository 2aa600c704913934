#include "view/FieldBox.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace quorvin {

namespace {

/// Longest search text; independent of the field's own length.
constexpr qsizetype kMaxTyped = 500;

}  // namespace

FieldBox::FieldBox(QWidget* parent) : QLineEdit(parent)
{
    setFrame(false);
    setMaxLength(static_cast<int>(kMaxTyped));
    // What the user changes is a search text, also where it was a long value before.
    connect(this, &QLineEdit::textEdited, this, [this] { setMaxLength(static_cast<int>(kMaxTyped)); });
}

void FieldBox::empty()
{
    clear();
    setMaxLength(static_cast<int>(kMaxTyped));
}

void FieldBox::showValue(const QString& value)
{
    setMaxLength(static_cast<int>(std::max(kMaxTyped, value.size())));
    setText(value);
    setCursorPosition(0);
}

void FieldBox::mousePressEvent(QMouseEvent* event)
{
    QLineEdit::mousePressEvent(event);
    pressed_ = event->button() == Qt::LeftButton;
}

void FieldBox::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !std::exchange(pressed_, false)) return;
    if (rect().contains(event->position().toPoint())) emit clicked();
}

void FieldBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    pressed_ = false;
    QLineEdit::mouseDoubleClickEvent(event);
}

void FieldBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::ControlModifier) {
        emit clicked();
        return;
    }
    // Held down, Enter is pressed once.
    if (event->isAutoRepeat() && event->matches(QKeySequence::InsertParagraphSeparator)) return;
    QLineEdit::keyPressEvent(event);
}

void FieldBox::dragEnterEvent(QDragEnterEvent* event)
{
    // A file dropped anywhere on the window is to be opened, not typed.
    if (event->mimeData()->hasUrls()) {
        event->ignore();
        return;
    }
    QLineEdit::dragEnterEvent(event);
}

void FieldBox::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    const auto role = hasFocus() ? QPalette::Highlight : QPalette::Mid;
    painter.setPen(QPalette().color(role));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace quorvin
