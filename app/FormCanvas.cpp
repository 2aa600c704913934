#include "app/FormCanvas.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace quorvin {

FormCanvas::FormCanvas(QWidget* parent) :
    QWidget(parent),
    scale_(FormScale::fitting(FormScale::smallestForm()))
{
    setObjectName(QStringLiteral("Form"));
    setAcceptDrops(true);
    setMinimumSize(minimumSizeHint());
}

QSize FormCanvas::minimumSizeHint() const
{
    QSize size = FormScale::smallestForm(mostHeight_);
    for (const Placed& placed : placed_) {
        if (placed.units.width() == 0)
            size = size.expandedTo(QSize(placed.control->minimumSizeHint().width(), 0));
    }
    return size;
}

FormCanvas::Placed* FormCanvas::find(const QWidget* control)
{
    const auto found =
        std::find_if(placed_.begin(), placed_.end(), [&](const Placed& p) { return p.control == control; });
    return found == placed_.end() ? nullptr : &*found;
}

void FormCanvas::place(QWidget* control, const QRectF& units)
{
    if (Placed* known = find(control)) {
        known->units = units;
    } else {
        placed_.append({control, units});
    }
    setMinimumSize(minimumSizeHint());
    apply({control, units});
}

void FormCanvas::apply(const Placed& placed) const
{
    QRect pixels = scale_.rect(placed.units);
    if (placed.units.width() == 0) pixels.setRight(width() - 1);
    if (placed.units.height() == 0) pixels.setBottom(height() - 1);
    placed.control->setGeometry(pixels);
}

void FormCanvas::setMostHeight(int pixels)
{
    mostHeight_ = pixels;
    setMinimumSize(minimumSizeHint());
    rescale();
}

void FormCanvas::rescale()
{
    scale_ = FormScale::fitting(size(), mostHeight_);
    for (const Placed& placed : placed_)
        apply(placed);
    emit scaleChanged(scale_);
}

void FormCanvas::setFormColour(const QColor& colour)
{
    formColour_ = colour;
    update();
}

void FormCanvas::paintEvent(QPaintEvent* event)
{
    if (formColour_.isValid()) QPainter(this).fillRect(event->rect(), formColour_);
}

void FormCanvas::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    rescale();
}

void FormCanvas::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_PageDown:
        emit nextRequested();
        break;
    case Qt::Key_PageUp:
        emit previousRequested();
        break;
    case Qt::Key_Escape:
        // Held down, it closes one frame, not one after the other.
        if (!event->isAutoRepeat()) emit escapePressed();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void FormCanvas::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat(QLatin1String(kControlType))) event->acceptProposedAction();
}

void FormCanvas::dropEvent(QDropEvent* event)
{
    Form_DragDrop(QString::fromUtf8(event->mimeData()->data(QLatin1String(kControlType))), event->position());
    event->acceptProposedAction();
}

void FormCanvas::Form_DragDrop(const QString& control, QPointF point)
{
    Placed* placed = find(findChild<QWidget*>(control, Qt::FindDirectChildrenOnly));
    if (!placed) return;
    placed->units.moveTo(point.x() / scale_.columnWidth(), point.y() / scale_.lineHeight());
    apply(*placed);
}

}  // namespace quorvin
