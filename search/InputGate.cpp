#include "search/InputGate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
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
    // Input comes to the window first, which hands it on; a press met only at the control would already have
    // moved the focus.
    const bool forScreen = watched->isWidgetType() || watched->isWindowType();
    switch (event->type()) {
    case QEvent::Shortcut:
        return true;
    case QEvent::KeyPress: {
        // A key held down is one press: stopping twice means more than stopping once.
        const auto* press = static_cast<QKeyEvent*>(event);
        if (forScreen && press->key() == Qt::Key_Escape && !press->isAutoRepeat()) emit escapePressed();
        return forScreen;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return forScreen && !isForStopControl(*static_cast<QMouseEvent*>(event));
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
        return forScreen;
    default:
        return false;
    }
}

bool InputGate::isForStopControl(const QMouseEvent& event) const
{
    const QPoint place = stopControl_.mapFromGlobal(event.globalPosition().toPoint());
    return stopControl_.isVisible() && stopControl_.rect().contains(place);
}

}  // namespace quorvin
