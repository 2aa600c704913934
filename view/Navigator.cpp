#include "view/Navigator.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <cmath>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "rec/RecFile.h"
#include "view/AnsiText.h"
#include "view/Colours.h"
#include "view/RecordView.h"

namespace quorvin {

namespace {

/// Milliseconds between two steps while a button is held down, and the timers' interval at rest.
constexpr int kRepeatInterval = 50;
constexpr int kRestInterval = 500;

/// Signal colour of a deleted record.
constexpr int kYellow = 14;

const QString kNoRecord = QStringLiteral("Rekord n.");

}  // namespace

Navigator::Navigator(RecFile& recFile, RecordView& recordView, QWidget* parent) :
    QWidget(parent),
    recFile_(recFile),
    recordView_(recordView),
    next_(makeStepButton(1, QStringLiteral("avanti"), &Navigator::Command1_Click)),
    previous_(makeStepButton(2, QStringLiteral("indietro"), &Navigator::Command2_Click)),
    Command3(makeButton(QStringLiteral("Command3"), QStringLiteral("cancella"),
                        QStringLiteral("giallo: rekord cancellato; un clic vuota i campi e la ricerca"))),
    Command5(makeButton(QStringLiteral("Command5"), QStringLiteral("espandi"),
                        QStringLiteral("allarga o restringe l'elenco")))
{
    setAutoFillBackground(true);
    makeNumberControls();
    layOut();
    connect(Command3, &QPushButton::clicked, this, &Navigator::clearRequested);
    connect(Command5, &QPushButton::clicked, this, &Navigator::expandRequested);
    reset();
}

QPushButton* Navigator::makeButton(const QString& name, const QString& caption, const QString& purpose)
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setToolTip(purpose);
    button->setAccessibleName(caption);
    button->setAccessibleDescription(purpose);
    return button;
}

Navigator::Repeat Navigator::makeStepButton(int number, const QString& caption, void (Navigator::*click)())
{
    Repeat repeat;
    repeat.button = makeButton(QStringLiteral("Command%1").arg(number), caption,
                               QStringLiteral("tasto destro: richiama EpiData"));
    repeat.button->installEventFilter(this);
    repeat.timer = new QTimer(this);
    repeat.timer->setObjectName(QStringLiteral("Timer%1").arg(number));
    repeat.timer->setInterval(kRestInterval);
    Repeat& held = number == 1 ? next_ : previous_;
    connect(repeat.timer, &QTimer::timeout, this, [this, &held, click] {
        held.ticked = true;
        (this->*click)();
    });
    // The click that ends a hold is not one more step.
    connect(repeat.button, &QPushButton::clicked, this, [this, &held, click] {
        if (!std::exchange(held.ticked, false)) (this->*click)();
    });
    return repeat;
}

void Navigator::makeNumberControls()
{
    Label14 = new QLabel(this);
    Label14->setObjectName(QStringLiteral("Label14"));
    Label14->setTextFormat(Qt::PlainText);
    Label14->setAccessibleName(QStringLiteral("numero del rekord"));
    Label14->setToolTip(QStringLiteral("tasto destro: richiama EpiData"));
    Label14->installEventFilter(this);
    QFont bold = Label14->font();
    bold.setBold(true);
    Label14->setFont(bold);
    Label14->setMinimumWidth(QFontMetrics(bold).horizontalAdvance(kNoRecord));
    Label14->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(QStringLiteral("vai al rekord"));
    Text1->setToolTip(QStringLiteral("numero del rekord da mostrare; Invio richiama EpiData"));
    Text1->setAcceptDrops(false);
    Text1->setMaxLength(20);
    Text1->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000000000")));
    connect(Text1, &QLineEdit::textChanged, this, &Navigator::Text1_Change);
    connect(Text1, &QLineEdit::returnPressed, this, &Navigator::Text1_KeyPress);

    Label9 = new QLabel(this);
    Label9->setObjectName(QStringLiteral("Label9"));
    Label9->setAccessibleName(QStringLiteral("numero dei rekord"));
}

void Navigator::layOut()
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->setSpacing(6);
    auto* of = new QLabel(QStringLiteral("di"), this);
    auto* go = new QLabel(QStringLiteral("&vai a"), this);
    go->setBuddy(Text1);
    const std::initializer_list<QWidget*> row = {previous_.button, next_.button, Label14, of,
                                                 Label9,           Command3,     go,      Text1};
    for (QWidget* control : row)
        layout->addWidget(control);
    layout->addStretch();
    layout->addWidget(Command5);
}

void Navigator::insertTools(QWidget* tools)
{
    auto* row = static_cast<QHBoxLayout*>(layout());
    row->insertWidget(row->count() - 1, tools);
}

void Navigator::reset()
{
    currentRecord_ = 0;
    Label14->setText(kNoRecord);
    Label9->clear();
    const QSignalBlocker silent(Text1);
    Text1->clear();
    for (Repeat* repeat : {&next_, &previous_}) {
        repeat->timer->stop();
        repeat->button->setEnabled(false);
    }
    Text1->setEnabled(false);
    Command3->setEnabled(false);
    paintWidget(*Command3, {});
    // Comes into use together with the lists that it widens.
    Command5->setEnabled(false);
}

void Navigator::start()
{
    for (QWidget* control : {static_cast<QWidget*>(next_.button), static_cast<QWidget*>(previous_.button),
                             static_cast<QWidget*>(Text1), static_cast<QWidget*>(Command3)})
        control->setEnabled(true);
}

void Navigator::focusNumber()
{
    Text1->setFocus();
    Text1->selectAll();
}

void Navigator::typeNumber(const QString& number)
{
    Text1->setText(number);
}

void Navigator::showCount()
{
    Label9->setText(fromAnsi(str(recFile_.recordCount())) + QLatin1Char(' '));
}

void Navigator::recount()
{
    recFile_.recount();
    showCount();
}

void Navigator::attempt(const std::function<void()>& move)
{
    try {
        move();
    } catch (const RuntimeError& error) {
        emit moveFailed(QString::fromLatin1(error.description()));
    }
}

void Navigator::Command1_Click()
{
    attempt([this] {
        recount();
        if (++currentRecord_ > recFile_.recordCount()) {
            currentRecord_ = recFile_.recordCount();
            return;
        }
        showRecord(currentRecord_);
    });
}

void Navigator::Command2_Click()
{
    attempt([this] {
        recount();
        if (--currentRecord_ < 1) {
            currentRecord_ = 1;
            return;
        }
        showRecord(currentRecord_);
    });
}

void Navigator::Text1_Change()
{
    attempt([this] {
        recount();
        const double number = val(toAnsi(Text1->text()));
        if (number <= 0 || number != std::floor(number)) return;
        if (number > static_cast<double>(recFile_.recordCount())) {
            Text1->setText(QString::number(recFile_.recordCount()));
            return;
        }
        showRecord(static_cast<RecordNumber>(number));
    });
}

void Navigator::Text1_KeyPress()
{
    if (val(toAnsi(Text1->text())) != 0) emit epiDataRequested();
}

void Navigator::showRecord(RecordNumber n)
{
    currentRecord_ = n;
    const QString number = QString::number(n);
    Label14->setText(number);
    if (val(toAnsi(Text1->text())) != static_cast<double>(n)) {
        const QSignalBlocker silent(Text1);
        Text1->setText(number);
    }
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(number);
    try {
        recFile_.seek(n);
        caricarekord();
    } catch (const RuntimeError&) {
        recordView_.azzeravar();
        throw;
    }
}

void Navigator::caricarekord()
{
    recFile_.caricastring();
    const QColor signal = recFile_.isDeleted() ? paletteColour(kYellow) : systemColour0();
    paintWidget(*Command3, {signal, Qt::black});
    for (int k = 1; k <= recFile_.fieldCount(); ++k)
        recordView_.setValue(k, fromAnsi(recFile_.fieldValue(k)));
}

void Navigator::Command_MouseDown(Repeat& repeat, Qt::MouseButton mouseButton)
{
    if (mouseButton == Qt::RightButton) emit epiDataRequested();
    if (mouseButton != Qt::LeftButton) return;
    repeat.ticked = false;
    repeat.timer->start(kRepeatInterval);
}

void Navigator::Command_MouseUp(Repeat& repeat, Qt::MouseButton mouseButton)
{
    if (mouseButton != Qt::LeftButton) return;
    repeat.timer->stop();
    repeat.timer->setInterval(kRestInterval);
}

bool Navigator::eventFilter(QObject* watched, QEvent* event)
{
    const bool down =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    const bool up = event->type() == QEvent::MouseButtonRelease;
    if (down || up) {
        const auto* control = qobject_cast<QWidget*>(watched);
        const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
        if (watched == Label14) {
            if (down && button == Qt::RightButton && recFile_.hasName()) emit epiDataRequested();
        } else if (control && control->isEnabled()) {
            Repeat& repeat = watched == next_.button ? next_ : previous_;
            if (down) Command_MouseDown(repeat, button);
            if (up) Command_MouseUp(repeat, button);
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace quorvin
