#include "app/TitledFrame.h"

#include <QApplication>
#include <QDrag>
#include <QHBoxLayout>
#include <QMimeData>
#include <QMouseEvent>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/FormCanvas.h"
#include "view/TitleLabel.h"

namespace quorvin {

TitledFrame::TitledFrame(const QString& name, const QString& title, QWidget* parent) : QFrame(parent)
{
    setObjectName(name);
    setAccessibleName(title);
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);

    title_ = new TitleLabel(title, this);
    title_->setCursor(Qt::OpenHandCursor);
    title_->setToolTip(QStringLiteral("si trascina per il titolo"));
    title_->installEventFilter(this);

    auto* close = new QToolButton(this);
    close->setText(QStringLiteral("×"));
    close->setAutoRaise(true);
    close->setAccessibleName(QStringLiteral("chiudi"));
    close->setToolTip(QStringLiteral("chiudi (Esc)"));
    connect(close, &QToolButton::clicked, this, &TitledFrame::closeRequested);

    auto* head = new QHBoxLayout;
    head->addWidget(title_, 1);
    head->addWidget(close);
    content_ = new QVBoxLayout(this);
    content_->setContentsMargins(8, 4, 8, 8);
    content_->addLayout(head);
}

bool TitledFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == title_ && event->type() == QEvent::MouseButtonPress) {
        pressedAt_ = static_cast<QMouseEvent*>(event)->position().toPoint();
        return true;
    }
    if (watched == title_ && event->type() == QEvent::MouseMove) {
        const auto* move = static_cast<QMouseEvent*>(event);
        const QPoint way = move->position().toPoint() - pressedAt_;
        if ((move->buttons() & Qt::LeftButton) &&
            way.manhattanLength() >= QApplication::startDragDistance()) {
            startDrag();
        }
        return true;
    }
    return QFrame::eventFilter(watched, event);
}

void TitledFrame::startDrag()
{
    auto* media = new QMimeData;
    media->setData(QLatin1String(FormCanvas::kControlType), objectName().toUtf8());
    auto* drag = new QDrag(this);
    drag->setMimeData(media);
    // The outline hangs on the pointer by its corner, for that is what the drop moves to the pointer.
    drag->setPixmap(grab());
    drag->setHotSpot(QPoint(0, 0));
    drag->exec(Qt::MoveAction);
}

}  // namespace quorvin
