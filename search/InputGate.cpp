#include "search/InputGate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace quorvin {

InputGate::InputGate(QWidget& stopControl, QObject* parent) : QObject(parent), stopControl_(stopControl) {}

void InputGate::close()
{
    qApp->installEventFilter(this);
}

void InputGate::open()
{
    qApp->removeEventFilter(this);
}

bool InputGate::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Shortcut:
        return true;
    case QEvent::KeyPress:
        if (watched->isWidgetType() && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            emit escapePressed();
        return watched->isWidgetType();
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return watched->isWidgetType() && watched != &stopControl_;
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        // What comes for the window itself is handed on to its controls, and met there.
        return watched->isWidgetType();
    default:
        return false;
    }
}

}  // namespace quorvin
