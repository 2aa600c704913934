#include "view/StepButton.h"

#include <QMouseEvent>
#include <QTimer>

namespace quorvin {

namespace {

/// Milliseconds between two steps while the button is held down, and the timer's interval at rest.
constexpr int kRepeatInterval = 50;
constexpr int kRestInterval = 500;

}  // namespace

StepButton::StepButton(const QString& caption, const QString& timerName, QWidget* parent) :
    QPushButton(caption, parent),
    timer_(new QTimer(this))
{
    timer_->setObjectName(timerName);
    timer_->setInterval(kRestInterval);
    connect(timer_, &QTimer::timeout, this, [this] {
        steppedWhileHeld_ = true;
        emit stepped();
    });
    connect(this, &QPushButton::clicked, this, [this] {
        if (!steppedWhileHeld_) emit stepped();
    });
}

void StepButton::stopRepeating()
{
    timer_->stop();
    timer_->setInterval(kRestInterval);
    steppedWhileHeld_ = false;
}

bool StepButton::event(QEvent* event)
{
    // A box that opens, another window or a disabled button: the release of the mouse button will not be seen
    // here.
    switch (event->type()) {
    case QEvent::WindowBlocked:
    case QEvent::WindowDeactivate:
    case QEvent::EnabledChange:
    case QEvent::Hide:
        stopRepeating();
        break;
    default:
        break;
    }
    return QPushButton::event(event);
}

void StepButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        steppedWhileHeld_ = false;
        timer_->start(kRepeatInterval);
    }
    QPushButton::mousePressEvent(event);
    if (event->button() == Qt::RightButton) emit rightPressed();
}

void StepButton::mouseReleaseEvent(QMouseEvent* event)
{
    QPushButton::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) stopRepeating();
}

}  // namespace quorvin
