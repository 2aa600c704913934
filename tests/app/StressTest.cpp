#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListView>
#include <QRegularExpression>
#include <QThread>
#include <algorithm>
#include <iostream>

#include "base/Text.h"
#include "tests/app/RandomUser.h"
#include "view/AnsiText.h"

namespace quorvin {
namespace {

QStringList qtMessages;

void takeQtMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    // The display that is none says what it cannot do, and QTest that a place is out of the window by now.
    const bool ofTest = text.startsWith(QLatin1String("This plugin")) ||
                        text.startsWith(QLatin1String("Mouse event")) ||
                        // Of older Windows, and of Wine.
                        text.startsWith(QLatin1String("EnableNonClientDpiScaling"));
    if (type != QtDebugMsg && type != QtInfoMsg && !ofTest) qtMessages += text;
}

int setting(const char* name, int usual)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : usual;
}

/// What must hold behind whatever the user does.
class StressTest : public test::RandomUser, public testing::WithParamInterface<int> {
protected:
    StressTest() : previous_(qInstallMessageHandler(takeQtMessage)) {}
    ~StressTest() override
    {
        form_.reset();
        qInstallMessageHandler(previous_);
    }

    void check() override;
    void checkHits() override;
    void checkRecord(const test::PlainRec& rec);
    void checkBoxes(const test::PlainRec& rec);
    void checkColours();
    void checkList();
    void checkFiles();
    bool isAnyTriggered(const char* items) const;
    bool isAnyTicked(const char* items) const
    {
        return rules_->isAnyTicked(QString::fromLatin1(items).split(QLatin1Char(' ')));
    }
    double number(const char* label) { return val(toAnsi(caption(label))); }

    QtMessageHandler previous_;
};

bool StressTest::isAnyTriggered(const char* items) const
{
    const QStringList names = QString::fromLatin1(items).split(QLatin1Char(' '));
    return std::any_of(names.begin(), names.end(),
                       [this](const QString& n) { return triggered_.contains(n); });
}

void StressTest::check()
{
    failures_ += rules_->broken();
    failures_ += std::exchange(qtMessages, {});
    if (QApplication::activeModalWidget()) fail(QStringLiteral("a box stays open"));
    if (QThread::currentThread()->loopLevel() != 0) fail(QStringLiteral("an event loop goes on"));
    if (openName() == QLatin1String("vuoto.rec") || openName() == QLatin1String("manca.rec"))
        fail(QStringLiteral("open, though it cannot be"));
    for (const char* name : {"Command1", "Command2", "Command3", "Command4", "Command5", "Text1"})
        if (control(name).isEnabled() == openName().isEmpty())
            fail(QLatin1String(name) + QStringLiteral(" does not follow the file"));
    if (const test::PlainRec* rec = openRec()) {
        checkRecord(*rec);
        checkBoxes(*rec);
        checkColours();
    }
    checkList();
    checkFiles();
}

void StressTest::checkRecord(const test::PlainRec& rec)
{
    if (number("Label9") != static_cast<double>(rec.count()))
        fail(QStringLiteral("Label9 reads %1, the file has %2").arg(caption("Label9")).arg(rec.count()));
    const double n = number("Label14");
    const QString shown = caption("Label14");
    if (shown == QLatin1String("Rekord n.") || (shown == numberBefore_ && openName() == fileBefore_)) return;
    if (n < 1 || n > static_cast<double>(rec.count())) {
        fail(QStringLiteral("no such record: ") + shown);
        return;
    }
    if (searched_ || fileWasGone_) return;
    const auto record = rec.record(static_cast<std::size_t>(n));
    for (std::size_t i = 1; i < rec.lengths.size(); ++i) {
        const QString stored = fromAnsi(record[i]);
        const QString expected = rules_->isTicked("impostMaiusc") ? stored.toUpper() : stored;
        const auto& box = control<QLineEdit>(qPrintable(QStringLiteral("Text2(%1)").arg(i)));
        // While a button is held, a step may come before the key that changes the record shown.
        if (box.text() != expected && !box.isModified())
            fail(QStringLiteral("record %1, field %2 is not '%3'").arg(shown).arg(i).arg(expected));
    }
    if ((background("Command3") == QColor(Qt::yellow)) != (record[0] == "?"))
        fail(QStringLiteral("record %1: signal of a deleted record").arg(shown));
}

void StressTest::checkBoxes(const test::PlainRec& rec)
{
    const bool emptied = isAnyTriggered("elencorekord eliminapuntegg unirek freq tabella impmat");
    const bool coloured = control<QCheckBox>("Check1").isChecked() || isAnyTicked("impmat");
    for (std::size_t i = 1; i < rec.lengths.size(); ++i) {
        const auto& box = control(qPrintable(QStringLiteral("Text2(%1)").arg(i)));
        const bool enabled = box.isEnabledTo(box.parentWidget());
        if (isAnyTicked("stamp1") ? enabled : !enabled && !isAnyTicked("impmat"))
            fail(box.objectName() + QStringLiteral(" is wrongly enabled or disabled"));
        if (box.isHidden() != (rec.lengths[i] == 0))
            fail(box.objectName() + QStringLiteral(" is wrongly shown or hidden"));
        if (emptied && !searched_ && !coloured && box.autoFillBackground())
            fail(box.objectName() + QStringLiteral(" is still highlighted"));
    }
}

/// Statistics colour the labels; else the file does, if it may.
void StressTest::checkColours()
{
    const bool counting = isAnyTicked("freq tabella");
    const bool ofFile = control<QCheckBox>("Check1").isChecked() && !isAnyTicked("impmat");
    if (control("Label2(1)").autoFillBackground() != (counting || ofFile))
        fail(QStringLiteral("the labels are wrongly coloured or plain"));
}

void StressTest::checkList()
{
    const int rows = control<QListView>("List1").model()->rowCount();
    // Printing records takes the lines off and leaves the count.
    if (isSearching() || !isAnyTicked("elencorekord") || isAnyTicked("stamp1")) return;
    if (number("Label3") != rows)
        fail(QStringLiteral("%1 hits in Label3, %2 lines").arg(caption("Label3")).arg(rows));
}

void StressTest::checkFiles()
{
    for (const auto& [name, rec] : files_) {
        if ((name == openName().toStdString() || chance(50)) &&
            test::bytesOf(folder_.path() / name) != rec.bytes)
            fail(QString::fromStdString(name) + QStringLiteral(" has changed"));
    }
    const std::string now = settings();
    const bool mayChange = openName() != fileBefore_ ||
                           isAnyTriggered("intestazione margstamp impostadoc documento aprifile") ||
                           (isAnyTriggered("impmat") && !isAnyTicked("impmat"));
    if (now != settingsBefore_ && !mayChange) fail(QStringLiteral("the settings have changed"));
    if (now == settingsBefore_ || now.empty()) return;
    static const QRegularExpression form(
        QStringLiteral("\\A(?:[ -]\\d+\\r\\n)*[^\\r\\n]*\\r\\n \\d+\\r\\n\"[^\"]*\"\\r\\n\\z"));
    const QString text = QString::fromLatin1(QByteArray::fromStdString(now));
    if (!form.match(text).hasMatch()) fail(QStringLiteral("settings that cannot be read again: ") + text);
}

/// Holds what a search has found against a plain one.
void StressTest::checkHits()
{
    const test::PlainRec& rec = *openRec();
    const QStringList& boxes = dialogs_.messages;
    const bool stopped =
        boxes.contains(QStringLiteral("continuo?")) || !boxes.filter(QStringLiteral("!Err")).isEmpty();
    constexpr std::size_t kMostRecords = 1000;
    if (stopped || rec.count() > kMostRecords || isAnyTicked("ricparz")) return;
    std::vector<double> expected;
    for (std::size_t n = 1; n <= rec.count(); ++n) {
        const auto record = rec.record(n);
        const bool skipped = isAnyTicked("norec") && record[0] == "?";
        if (!skipped && test::isHit(query_, record)) expected.push_back(static_cast<double>(n));
    }
    if (number("Label3") != static_cast<double>(expected.size()))
        fail(QStringLiteral("%1 hits, a plain search finds %2").arg(caption("Label3")).arg(expected.size()));
    if (!isAnyTicked("elencorekord") || isAnyTicked("sort")) return;
    std::vector<double> listed;
    const QAbstractItemModel& lines = *control<QListView>("List1").model();
    for (int i = 0; i < lines.rowCount(); ++i)
        listed.push_back(val(toAnsi(lines.index(i, 0).data().toString().section(QLatin1Char('.'), 0, 0))));
    if (listed != expected) fail(QStringLiteral("the lines are not the hits"));
}

/// QUORVIN_STRESS_SEED, _SEEDS and _EVENTS replay one seed, or let it go on for long.
TEST_P(StressTest, WhateverTheUserDoes)
{
    const int first = setting("QUORVIN_STRESS_SEED", GetParam());
    const int seeds = setting("QUORVIN_STRESS_SEEDS", 1);
    const int events = setting("QUORVIN_STRESS_EVENTS", 10000);
    for (int seed = first; seed < first + seeds && failures_.isEmpty(); ++seed) {
        std::cout << "seed " << seed << std::flush;
        run(static_cast<unsigned>(seed), events);
        std::cout << ": slowest deed " << slowest_ << " ms" << std::endl;
    }
    EXPECT_TRUE(failures_.isEmpty()) << report();
}

INSTANTIATE_TEST_SUITE_P(Seeds, StressTest, testing::Values(1, 2));

}  // namespace
}  // namespace quorvin
