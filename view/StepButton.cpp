#include "view/StepButton.h"

#include <QMouseEvent>
#include <QTimer>
#include <utility>

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
        if (!std::exchange(steppedWhileHeld_, false)) emit stepped();
    });
}

void StepButton::stopRepeating()
{
    timer_->stop();
    timer_->setInterval(kRestInterval);
}

void StepButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        steppedWhileHeld_ = false;
        timer_->start(kRepeatInterval);
    }
    if (event->button() == Qt::RightButton) emit rightPressed();
    QPushButton::mousePressEvent(event);
}

void StepButton::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) stopRepeating();
    QPushButton::mouseReleaseEvent(event);
}

}  // namespace quorvin
