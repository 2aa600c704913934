#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <tuple>

#include "tests/support/WindowTest.h"

namespace quorvin {
namespace {

const QColor kYellow(255, 255, 0);
const QColor kNotDeleted(0xC8, 0xC8, 0xC8);

using NavigatorTest = test::WindowTest;

TEST_F(NavigatorTest, StepsThroughTheRecords)
{
    open(test::rec({{}}).records(2));
    EXPECT_EQ(caption("Label9"), QStringLiteral(" 2 "));
    EXPECT_EQ(value(1), QString());
    click("Command1");
    EXPECT_EQ(value(1), QStringLiteral("r1   "));
    EXPECT_EQ(caption("Label14"), QStringLiteral("1"));
    EXPECT_EQ(control<QLineEdit>("Text1").text(), QStringLiteral("1"));
    EXPECT_EQ(clipboard(), QStringLiteral("1"));
    click("Command1");
    EXPECT_EQ(value(1), QStringLiteral("r2   "));

    QApplication::clipboard()->setText(QStringLiteral("other"));
    click("Command1");
    EXPECT_EQ(value(1), QStringLiteral("r2   "));
    EXPECT_EQ(clipboard(), QStringLiteral("other")) << "the last record stays and nothing is copied";
    click("Command2");
    click("Command2");
    EXPECT_EQ(caption("Label14"), QStringLiteral("1"));
    EXPECT_EQ(value(1), QStringLiteral("r1   "));
    QTest::keyClick(&control("Text2(1)"), Qt::Key_PageDown);
    EXPECT_EQ(value(1), QStringLiteral("r2   "));
    QTest::keyClick(&control("Text2(1)"), Qt::Key_PageUp);
    EXPECT_EQ(value(1), QStringLiteral("r1   "));
}

TEST_F(NavigatorTest, TypedNumbers)
{
    open(test::rec({{}}).records(12));
    using Case = std::tuple<const char*, const char*, const char*, const char*>;
    for (const auto& [typed, left, shown, number] :
         {Case{"5", "5", "r5   ", "5"}, Case{"0", "0", "r5   ", "5"}, Case{"-3", "-3", "r5   ", "5"},
          Case{"abc", "abc", "r5   ", "5"}, Case{"99", "12", "r12  ", "12"},
          Case{"99999999999999999999", "12", "r12  ", "12"}, Case{"07", "07", "r7   ", "07"}}) {
        type("Text1", QString::fromLatin1(typed));
        EXPECT_EQ(control<QLineEdit>("Text1").text().toStdString(), left) << typed;
        EXPECT_EQ(value(1).toStdString(), shown) << typed;
        EXPECT_EQ(caption("Label14").toStdString(), number) << typed;
    }
    control<QLineEdit>("Text1").setText(QStringLiteral("2.5"));
    EXPECT_EQ(value(1), QStringLiteral("r7   "));
}

TEST_F(NavigatorTest, DeletedRecordsShowTheSignalAndAFailedReadLeavesNothing)
{
    open(test::rec({{}}).record({"a"}).record({"b"}, '?').record({"\x1A"}));
    for (const bool deleted : {false, true, false}) {
        click("Command1");
        EXPECT_EQ(background("Command3"), deleted ? kYellow : kNotDeleted);
    }
    EXPECT_EQ(caption("Label14"), QStringLiteral("3"));
    EXPECT_EQ(value(1), QString());
}

TEST_F(NavigatorTest, AFileThatOthersChange)
{
    open(test::rec({{}}).records(1));
    click("Command1");
    test::append(file(), "new  !\r\n");
    click("Command1");
    EXPECT_EQ(value(1), QStringLiteral("new  "));
    EXPECT_EQ(caption("Label9"), QStringLiteral(" 2 "));

    std::filesystem::remove(file());
    click("Command2");
    EXPECT_EQ(value(1), QStringLiteral("new  ")) << "a file that is gone ends the step, nothing else";
    EXPECT_TRUE(dialogs_.messages.isEmpty());

    folder_.write("prova.rec", "1 1\r\n");
    click("Command2");
    click("Command1");
    EXPECT_EQ(caption("Label9"), QStringLiteral(" 0 "));
    EXPECT_EQ(value(1), QString()) << "no values of another record under this number";
}

TEST_F(NavigatorTest, AHeldButtonRepeats)
{
    open(test::rec({{}}).records(100));
    auto& next = control<QPushButton>("Command1");
    const auto& timer = control<QTimer>("Timer1");
    EXPECT_EQ(timer.interval(), 500);
    QTest::mousePress(&next, Qt::LeftButton);
    EXPECT_EQ(timer.interval(), 50);
    EXPECT_TRUE(QTest::qWaitFor([&] { return caption("Label14") == QStringLiteral("4"); }, 5000));
    const QString reached = caption("Label14");
    QTest::mouseRelease(&next, Qt::LeftButton);
    EXPECT_EQ(caption("Label14"), reached) << "the release of a hold is no step";
    EXPECT_FALSE(timer.isActive());
    EXPECT_EQ(timer.interval(), 500);
    click("Command1");
    EXPECT_EQ(caption("Label14").toInt(), reached.toInt() + 1);
}

TEST_F(NavigatorTest, AHoldEndsWhateverHappensToTheRelease)
{
    open(test::rec({{}}).records(1000));
    auto& next = control<QPushButton>("Command1");
    const auto& timer = control<QTimer>("Timer1");
    const auto hold = [&](const char* record) {
        QTest::mousePress(&next, Qt::LeftButton);
        return QTest::qWaitFor([&] { return caption("Label14") == QString::fromLatin1(record); }, 5000);
    };
    ASSERT_TRUE(hold("2"));
    QTest::mouseRelease(&next, Qt::LeftButton, Qt::NoModifier, QPoint(-50, 0));
    QTest::keyClick(&control("Text2(1)"), Qt::Key_PageDown);
    EXPECT_EQ(caption("Label14"), QStringLiteral("3"))
        << "the next step counts, though the hold ended off the button";

    ASSERT_TRUE(hold("5"));
    QDialog box(form_.get());
    QTimer::singleShot(0, &box, &QDialog::reject);
    box.exec();
    EXPECT_FALSE(timer.isActive()) << "a box that opens ends the hold";
    QTest::mouseRelease(&next, Qt::LeftButton);
}

TEST_F(NavigatorTest, EpiDataIsStartedWithTheFile)
{
    useEpiDataStub();
    const std::pair<const char*, std::function<void()>> gestures[] = {
        {"menu", [&] { choose("EpiData"); }},
        {"right button on next", [&] { click("Command1", Qt::RightButton); }},
        {"right button on the number", [&] { click("Label14", Qt::RightButton); }},
        {"Enter in the number box", [&] { QTest::keyClick(&control("Text1"), Qt::Key_Return); }},
    };
    for (const auto& [name, gesture] : gestures) {
        std::filesystem::remove(file().string() + ".started");
        open(test::rec({{}}).records(2));
        type("Text1", QStringLiteral("2"));
        gesture();
        EXPECT_TRUE(QTest::qWaitFor([&] { return epiDataStarted(); }, 5000)) << name;
        EXPECT_EQ(clipboard(), QStringLiteral("2"));
        click("Command2");
        EXPECT_EQ(value(1), QStringLiteral("r1   ")) << "the file is there again for the next step";
    }
    EXPECT_TRUE(dialogs_.messages.isEmpty());
}

TEST_F(NavigatorTest, AMissingEpiDataIsSaid)
{
    qputenv("QUORVIN_EPIDATA", "/no/such/program");
    open(test::rec({{}}).records(2));
    QTest::keyClick(&control("Text1"), Qt::Key_Return);
    EXPECT_TRUE(dialogs_.messages.isEmpty()) << "Enter without a number starts nothing";
    choose("EpiData");
    EXPECT_EQ(dialogs_.messages, QStringList(QStringLiteral("!Errore file !! Impossibile trovare il file")));

    type("Text1", QStringLiteral("1"));
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
    QApplication::sendEvent(&control("Text1"), &held);
    EXPECT_EQ(dialogs_.messages.size(), 1) << "Enter held down starts nothing again";
}

}  // namespace
}  // namespace quorvin
