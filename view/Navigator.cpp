#include "view/Navigator.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <cmath>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "rec/RecFile.h"
#include "view/AnsiText.h"
#include "view/Colours.h"
#include "view/RecordView.h"
#include "view/StepButton.h"

namespace quorvin {

namespace {

/// Signal colour of a deleted record.
constexpr int kYellow = 14;

const QString kNoRecord = QStringLiteral("Rekord n.");

}  // namespace

Navigator::Navigator(RecFile& recFile, RecordView& recordView, QWidget* parent) :
    QWidget(parent),
    recFile_(recFile),
    recordView_(recordView),
    Command1(new StepButton(QStringLiteral("avanti"), QStringLiteral("Timer1"), this)),
    Command2(new StepButton(QStringLiteral("indietro"), QStringLiteral("Timer2"), this)),
    Command3(new QPushButton(QStringLiteral("cancella"), this)),
    Command5(new QPushButton(QStringLiteral("espandi"), this))
{
    setAutoFillBackground(true);
    const QString hint = QStringLiteral("tasto destro: richiama EpiData");
    nameButton(*Command1, QStringLiteral("Command1"), hint);
    nameButton(*Command2, QStringLiteral("Command2"), hint);
    nameButton(*Command3, QStringLiteral("Command3"),
               QStringLiteral("giallo: rekord cancellato; un clic vuota i campi e la ricerca"));
    nameButton(*Command5, QStringLiteral("Command5"), QStringLiteral("allarga o restringe l'elenco"));
    makeNumberControls();
    layOut();
    connect(Command1, &StepButton::stepped, this, &Navigator::Command1_Click);
    connect(Command2, &StepButton::stepped, this, &Navigator::Command2_Click);
    connect(Command1, &StepButton::rightPressed, this, &Navigator::epiDataRequested);
    connect(Command2, &StepButton::rightPressed, this, &Navigator::epiDataRequested);
    connect(Command3, &QPushButton::clicked, this, &Navigator::clearRequested);
    connect(Command5, &QPushButton::clicked, this, &Navigator::expandRequested);
    reset();
}

void Navigator::nameButton(QPushButton& button, const QString& name, const QString& purpose)
{
    button.setObjectName(name);
    button.setToolTip(purpose);
    button.setAccessibleDescription(purpose);
    // No wider than its caption needs: the row has to fit a window of 1000 pixels.
    const QFontMetrics metrics(button.font());
    button.setMaximumWidth(metrics.horizontalAdvance(button.text()) + 4 * metrics.averageCharWidth());
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
    Label14->setMinimumWidth(QFontMetrics(bold).horizontalAdvance(QStringLiteral("0000000000")));
    Label14->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(QStringLiteral("vai al rekord"));
    Text1->setToolTip(QStringLiteral("numero del rekord da mostrare; Invio richiama EpiData"));
    Text1->setAcceptDrops(false);
    Text1->setMaxLength(20);
    Text1->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000000000")));
    Text1->installEventFilter(this);
    connect(Text1, &QLineEdit::textChanged, this, &Navigator::Text1_Change);
    connect(Text1, &QLineEdit::returnPressed, this, &Navigator::Text1_KeyPress);

    Label9 = new QLabel(this);
    Label9->setObjectName(QStringLiteral("Label9"));
    Label9->setAccessibleName(QStringLiteral("numero dei rekord"));
    Label9->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral(" 000000000 ")));
}

void Navigator::layOut()
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->setSpacing(6);
    auto* of = new QLabel(QStringLiteral("di"), this);
    auto* go = new QLabel(QStringLiteral("&vai a"), this);
    go->setBuddy(Text1);
    const std::initializer_list<QWidget*> row = {Command2, Command1, Label14, of,
                                                 Label9,   Command3, go,      Text1};
    for (QWidget* control : row)
        layout->addWidget(control);
    layout->addStretch();
    layout->addWidget(Command5);
    setTabOrder(Command2, Command1);
    setTabOrder(Command1, Command3);
    setTabOrder(Command3, Text1);
}

void Navigator::insertTools(QWidget* tools)
{
    auto* row = static_cast<QHBoxLayout*>(layout());
    row->insertWidget(row->count() - 1, tools);
    if (!lastTool_) lastTool_ = Text1;
    for (QWidget* tool : QList<QWidget*>{tools} + tools->findChildren<QWidget*>()) {
        if ((tool->focusPolicy() & Qt::TabFocus) == 0) continue;
        setTabOrder(lastTool_, tool);
        lastTool_ = tool;
    }
    setTabOrder(lastTool_, Command5);
}

void Navigator::reset()
{
    currentRecord_ = 0;
    Label14->setText(kNoRecord);
    Label9->clear();
    const QSignalBlocker silent(Text1);
    Text1->clear();
    stopRepeating();
    enableControls(false);
    paintWidget(*Command3, {});
}

void Navigator::stopRepeating()
{
    for (StepButton* button : {Command1, Command2})
        button->stopRepeating();
}

void Navigator::start()
{
    enableControls(true);
}

void Navigator::enableControls(bool enabled)
{
    const std::initializer_list<QWidget*> controls = {Command1, Command2, Command3, Command5, Text1};
    for (QWidget* control : controls)
        control->setEnabled(enabled);
}

void Navigator::focusNumber()
{
    Text1->setFocus();
    Text1->selectAll();
}

void Navigator::focusNext()
{
    Command1->setFocus();
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
    // Without a record to move to there is nothing to say either.
    if (recFile_.recordBytes() == 0) return;
    try {
        move();
    } catch (const std::exception&) {
        emit moveFailed(QString::fromLatin1(currentError().description()));
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

void Navigator::pressNext()
{
    Command1->click();
}

void Navigator::pressPrevious()
{
    Command2->click();
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
        showRecord(static_cast<RecordNumber>(number), Text1->text());
    });
}

void Navigator::Text1_KeyPress()
{
    if (val(toAnsi(Text1->text())) != 0) emit epiDataRequested();
}

void Navigator::followInBox(RecordNumber n)
{
    const QSignalBlocker silent(Text1);
    Text1->setText(QString::number(n));
}

void Navigator::showRecord(RecordNumber n)
{
    followInBox(n);
    showRecord(n, Text1->text());
}

void Navigator::showFound(RecordNumber n)
{
    followInBox(n);
    showNumber(n, Text1->text());
    read(n);
}

void Navigator::showRecord(RecordNumber n, const QString& caption)
{
    showNumber(n, caption);
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(QString::number(n));
    read(n);
}

void Navigator::showNumber(RecordNumber n, const QString& caption)
{
    currentRecord_ = n;
    Label14->setText(caption);
}

void Navigator::read(RecordNumber n)
{
    try {
        recFile_.seek(n);
        caricarekord();
    } catch (const std::exception&) {
        recordView_.azzeravar();
        showSignal(false);
        throw;
    }
}

void Navigator::showSignal(bool deleted)
{
    paintWidget(*Command3, {deleted ? paletteColour(kYellow) : systemColour0(), Qt::black});
}

void Navigator::caricarekord()
{
    recFile_.caricastring();
    showSignal(recFile_.isDeleted());
    for (int k = 1; k <= recFile_.fieldCount(); ++k)
        recordView_.setValue(k, fromAnsi(recFile_.fieldValue(k)));
}

bool Navigator::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Text1 && event->type() == QEvent::KeyPress) {
        // Held down, Enter starts EpiData once, whatever keys go with it.
        const auto* key = static_cast<QKeyEvent*>(event);
        return key->isAutoRepeat() && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter);
    }
    const bool rightPress = event->type() == QEvent::MouseButtonPress &&
                            static_cast<QMouseEvent*>(event)->button() == Qt::RightButton;
    if (watched == Label14 && rightPress && recFile_.hasName()) emit epiDataRequested();
    return QWidget::eventFilter(watched, event);
}

}  // namespace quorvin
