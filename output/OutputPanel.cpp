#include "output/OutputPanel.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <exception>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "output/OverwriteQuestion.h"
#include "output/PrintMatrix.h"
#include "output/Printout.h"
#include "search/RangeFrame.h"
#include "search/SearchPanel.h"
#include "search/SearchStatus.h"
#include "view/AnsiText.h"
#include "view/Dialogs.h"
#include "view/MenuState.h"
#include "view/Messages.h"
#include "view/Navigator.h"
#include "view/RecordView.h"
#include "view/Utf8.h"

namespace quorvin {

namespace {

const QString kStamp1 = QStringLiteral("stamp1");
const QString kStamp2 = QStringLiteral("stamp2");
const QString kStampcol = QStringLiteral("stampcol");

/// Records between two looks at the clock, and the milliseconds that an interval may take before it is gone
/// on with in slices.
constexpr RecordNumber kStep = 1000;
constexpr qint64 kAtOnce = 150;

}  // namespace

OutputPanel::OutputPanel(const OutputParts& parts, QWidget* form) :
    QObject(form),
    parts_(parts),
    printFile_(parts.recFile, parts.matrix),
    interval_(parts.recFile, printFile_),
    frame_(new PrintFrame(form)),
    command4_(new QPushButton(QStringLiteral("stampa"), form)),
    timer_(parts.status.stopButton(), this)
{
    Navigator::nameButton(*command4_, QStringLiteral("Command4"),
                          QStringLiteral("stampa ciò che è in mostra (Ctrl+P)"));
    command4_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    connect(command4_, &QPushButton::clicked, this, &OutputPanel::Command4_Click);
    connect(frame_, &PrintFrame::Text8_Click, this, &OutputPanel::Text8_Click);
    connect(frame_, &PrintFrame::Text9_Click, this, &OutputPanel::Text9_Click);
    connect(frame_, &PrintFrame::Text9_Change, this, &OutputPanel::Text9_Change);
    connect(frame_, &PrintFrame::Text9_KeyPress, this, &OutputPanel::Text9_KeyPress);
    connect(frame_, &PrintFrame::closeRequested, this, &OutputPanel::closeFrame);
    connect(&timer_, &SliceTimer::slice, this, &OutputPanel::printSome);
    connect(&timer_, &SliceTimer::escapePressed, this, &OutputPanel::stopInterval);
    connect(&parts.status, &SearchStatus::stopRequested, this, &OutputPanel::stopInterval);
    connect(&parts.search, &SearchPanel::stateShown, this, &OutputPanel::showPrintFile);
    parts.search.addConsumer(printFile_);
    connectMenu();
    reset(false);
}

void OutputPanel::connectMenu()
{
    parts_.menu.onClicks<OutputPanel>(*this,
                                      {{kStamp1, &OutputPanel::stamp1_Click},
                                       {kStamp2, &OutputPanel::stamp2_Click},
                                       {QStringLiteral("prefstamp"), &OutputPanel::prefstamp_Click},
                                       {QStringLiteral("impoststamp"), &OutputPanel::impoststamp_Click},
                                       {kStampcol, &OutputPanel::stampcol_Click}});
}

void OutputPanel::reset(bool fileOpen)
{
    printFile_.clear();
    showPrintFile();
    printer_.font = Printer::usualFont();
    frame_->setTextFont(printer_.font);
    frame_->hide();
    command4_->setEnabled(fileOpen);
    followModes();
}

// The modes

/// What follows from the ticks of the two modes.
void OutputPanel::followModes()
{
    const bool records = parts_.menu.isTicked(kStamp1);
    printFile_.stamp2 = parts_.menu.isTicked(kStamp2);
    frame_->Frame8().setVisible(records);
    frame_->setClosable(!records && !printFile_.stamp2);
    if (records) {
        parts_.recordView.keepAllBoxes();
    } else {
        parts_.recordView.releaseBoxes();
    }
    emit modeChanged();
    emit placesChanged();
}

/// Common to the beginning of both modes: an empty print file in sight.
void OutputPanel::begin()
{
    printFile_.clear();
    showPrintFile();
    frame_->show();
}

void OutputPanel::stamp1_Click()
{
    if (parts_.menu.isTicked(kStamp1)) {
        parts_.menu.setMode(kStamp1, false);
        followModes();
        parts_.navigator.focusNext();
        emit cancellaRequested();
        return;
    }
    if (parts_.menu.isAnyTicked(MenuState::kCountingModes)) return;
    parts_.menu.setMode(kStamp1, true);
    begin();
    frame_->Frame8().from->clear();
    frame_->Frame8().to->clear();
    parts_.search.cancella();
    parts_.status.hideState();
    emit azzeravarRequested();
    followModes();
    warnOfEmptyMatrix();
    frame_->Frame8().from->setFocus();
}

void OutputPanel::stamp2_Click()
{
    if (parts_.menu.isTicked(kStamp2)) {
        parts_.menu.setMode(kStamp2, false);
        followModes();
        return;
    }
    if (parts_.menu.isAnyTicked(MenuState::kCountingModes)) return;
    // Frame8 takes the focus with it.
    if (frame_->isAncestorOf(frame_->window()->focusWidget())) parts_.navigator.focusNext();
    parts_.menu.setMode(kStamp2, true);
    begin();
    followModes();
    emit azzeravarRequested();
    warnOfEmptyMatrix();
    emit cancellaRequested();
}

void OutputPanel::warnOfEmptyMatrix()
{
    if (parts_.matrix.entries.empty())
        parts_.dialogs.message(BoxIcon::exclamation, fromUtf8Text(messages::kEmptyMatrix));
}

void OutputPanel::showPrintFile()
{
    frame_->show(printFile_);
}

void OutputPanel::closeFrame()
{
    if (frame_->isHidden() || !frame_->isClosable()) return;
    const bool focusWithin = frame_->isAncestorOf(frame_->window()->focusWidget());
    frame_->hide();
    if (focusWithin) parts_.navigator.focusNext();
    emit placesChanged();
}

// The interval

void OutputPanel::Text8_Click()
{
    frame_->Frame8().from->clear();
    frame_->Frame8().to->clear();
}

void OutputPanel::Text9_Click()
{
    printFile_.clear();
    showPrintFile();
    frame_->Frame8().to->clear();
}

void OutputPanel::Text9_Change()
{
    const auto isBeyond = [this] {
        return frame_->Frame8().range().to.value_or(0) > static_cast<double>(parts_.recFile.recordCount());
    };
    if (!isBeyond()) return;
    try {
        // There may be more by now.
        parts_.navigator.recount();
    } catch (const std::exception&) {
        emit hint(fromUtf8Text(currentError().description()));
    }
    if (isBeyond()) frame_->Frame8().to->setText(QString::number(parts_.recFile.recordCount()));
}

void OutputPanel::Text9_KeyPress()
{
    if (isPrinting() || frame_->Frame8().to->text().isEmpty()) return;
    // What was said before must not stand over the progress.
    emit hint({});
    printFile_.clear();
    showPrintFile();
    parts_.navigator.stopRepeating();
    try {
        parts_.navigator.recount();
        const SearchRange range = frame_->Frame8().range();
        const bool norec = parts_.menu.isTicked(QStringLiteral("norec"));
        if (!interval_.start(range.from, range.to.value_or(0), norec)) {
            emit hint(QStringLiteral("intervallo di rekord non valido"));
            return;
        }
    } catch (const std::exception&) {
        emit hint(fromUtf8Text(currentError().description()));
        return;
    }
    frame_->show();
    if (!printFor(kAtOnce)) {
        endInterval();
        return;
    }
    parts_.status.showRunning(QStringLiteral("  ...stampa in corso"));
    timer_.start();
}

/// Prints for some milliseconds; false when nothing is left to print. What fails ends the interval with what
/// was printed so far.
bool OutputPanel::printFor(qint64 milliseconds)
{
    QElapsedTimer time;
    time.start();
    try {
        while (interval_.advance(kStep)) {
            if (time.elapsed() >= milliseconds) return true;
        }
    } catch (const std::exception&) {
        emit hint(QStringLiteral("stampa interrotta: ") + fromUtf8Text(currentError().description()));
    }
    return false;
}

void OutputPanel::printSome()
{
    if (!printFor(SliceTimer::kSlice)) {
        endInterval();
    } else if (timer_.isProgressDue()) {
        parts_.status.showProgress(interval_.progress());
    }
}

void OutputPanel::stopInterval()
{
    if (isPrinting()) endInterval();
}

void OutputPanel::endInterval()
{
    abandon();
    showPrintFile();
    frame_->focusText();
}

void OutputPanel::abandon()
{
    interval_.stop();
    if (!isPrinting()) return;
    timer_.stop();
    parts_.status.hideState();
}

// Font and printer

void OutputPanel::prefstamp_Click()
{
    const auto chosen = parts_.dialogs.chooseFont(fromUtf8Text(messages::kFontTitle), printer_.font);
    if (!chosen) return;
    QFont font(chosen->family(), chosen->pointSize());
    font.setBold(chosen->bold());
    font.setItalic(chosen->italic());
    printer_.font = font;
    frame_->setTextFont(font);
    emit fontChosen(font);
}

void OutputPanel::impoststamp_Click()
{
    printer_.setUp(parts_.dialogs);
}

void OutputPanel::stampcol_Click()
{
    printer_.stampcol = parts_.menu.toggle(kStampcol);
    if (!printer_.isReachable())
        parts_.dialogs.message(BoxIcon::critical, fromUtf8Text(messages::kNoPrinter));
}

Printout* OutputPanel::shownPrintout() const
{
    const auto shown =
        std::find_if(printouts_.begin(), printouts_.end(), [](Printout* p) { return p->isShown(); });
    return shown == printouts_.end() ? nullptr : *shown;
}

void OutputPanel::Command4_Click()
{
    Printout* printout = shownPrintout();
    if (printout && !printout->isEmpty()) {
        printout->prepare();
        print([printout](QPrinter& printer) { printout->print(printer); });
    } else if (!printout && !parts_.menu.isAnyTicked(MenuState::kCountingModes) && !frame_->isHidden() &&
               !frame_->text().isEmpty()) {
        print([this](QPrinter& printer) { Printer::drawText(printer, frame_->text(), frame_->textFont()); });
    } else {
        emit hint(QStringLiteral("non c'è nulla da stampare"));
    }
}

void OutputPanel::print(const Printer::Drawing& drawing)
{
    const QString replaced = printer_.fileToReplace();
    if (!replaced.isEmpty() && !askToOverwrite(parts_.dialogs, replaced)) return;
    try {
        printer_.print(drawing, parts_.recFile.dataFileName());
        emit hint(QStringLiteral("stampa inviata"));
    } catch (const std::exception&) {
        emit hint(fromUtf8Text(currentError().description()));
        parts_.dialogs.message(BoxIcon::critical, fromUtf8Text(messages::kNoPrinter));
    }
}

}  // namespace quorvin
