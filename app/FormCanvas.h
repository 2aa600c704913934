/// The area of the form below the menu bar, on which everything stands by columns and lines.
#pragma once

#include <QColor>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QWidget>

#include "view/FormScale.h"

namespace quorvin {

/// Gives each placed control its rectangle in form units and keeps it there when the window's size changes
/// the scale. Controls whose title is dragged onto the form are moved to the drop point.
class FormCanvas : public QWidget {
    Q_OBJECT

public:
    /// Media type of a dragged control; the data is its objectName in UTF-8.
    static constexpr char kControlType[] = "application/x-quorvin-control";

    explicit FormCanvas(QWidget* parent);

    /// Stands `control`, a child of the canvas, at `units`. A width or height of 0 reaches to the canvas's
    /// edge.
    void place(QWidget* control, const QRectF& units);

    const FormScale& scale() const { return scale_; }
    /// Bounds the height of the whole form in pixels; 0 for no bound.
    void setMostHeight(int pixels);

    /// Background of the form; an invalid colour for the usual one. Not by its palette, which the frames on
    /// the form would inherit.
    void setFormColour(const QColor& colour);

    QSize minimumSizeHint() const override;

signals:
    void scaleChanged(const FormScale& scale);
    /// Page Down and Page Up, where no control has its own use for them.
    void nextRequested();
    void previousRequested();
    /// Esc, likewise.
    void escapePressed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct Placed {
        QWidget* control;
        QRectF units;
    };

    void Form_DragDrop(const QString& control, QPointF point);
    Placed* find(const QWidget* control);
    void apply(const Placed& placed) const;
    void rescale();

    QColor formColour_;
    QList<Placed> placed_;
    FormScale scale_;
    int mostHeight_ = 0;
};

}  // namespace quorvin
