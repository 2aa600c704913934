#include "app/Formstart.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSlider>
#include <QTest>
#include <QUrl>
#include <fstream>
#include <tuple>

#include "app/FormCanvas.h"
#include "app/FullGuide.h"
#include "tests/support/WindowTest.h"

namespace quorvin {
namespace {

class FormstartTest : public test::WindowTest {
protected:
    void drop(QWidget& target, QMimeData& media, QPointF point)
    {
        QDragEnterEvent enter(point.toPoint(), Qt::CopyAction | Qt::MoveAction, &media, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(&target, &enter);
        ASSERT_TRUE(enter.isAccepted());
        QDropEvent event(point, Qt::CopyAction | Qt::MoveAction, &media, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &event);
    }
};

TEST_F(FormstartTest, AFileThatIsMissingLeavesNoneOpen)
{
    EXPECT_TRUE(control("Label7").isVisible());
    open(test::rec({{}}).records(1));
    EXPECT_FALSE(control("Label7").isVisible());
    EXPECT_EQ(form_->focusWidget(), &control("Text1"));
    openFile(folder_.path() / "missing.rec");
    EXPECT_TRUE(control("Label7").isVisible());
}

TEST_F(FormstartTest, TheMenuBarsAccessKeysDiffer)
{
    QStringList keys;
    for (const QAction* action : form_->menuBar()->actions())
        keys.append(action->text().section(QLatin1Char('&'), 1).left(1).toUpper());
    EXPECT_EQ(keys.size(), 8);
    EXPECT_EQ(keys.removeDuplicates(), 0);
    EXPECT_FALSE(keys.contains(QString()));
}

TEST_F(FormstartTest, OpeningAsksWithTheFilterAndCancelChangesNothing)
{
    open(test::rec({{}}).records(3));
    EXPECT_EQ(
        dialogs_.askedFilter,
        QStringLiteral(
            " File dati EpiData (*.rec) |*.rec|File dati Testo (*.txt) |*.txt|File dati Tutti (*.*) |*.*"));
    click("Command1");
    dialogs_.fileToOpen.clear();
    QTest::keyClick(form_.get(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(value(1), QStringLiteral("r1   "));
    EXPECT_TRUE(dialogs_.messages.isEmpty());
}

TEST_F(FormstartTest, AnotherFileStartsAfresh)
{
    open(test::rec({{}, {}, {}}).records(3));
    click("Text2(2)");
    click("Command1");
    choose("preferenze");
    choose("impostMaiusc");
    control<QSlider>("Slider1").setValue(-20);
    open(test::rec({{}, {}}).record({"new"}, '?'));
    EXPECT_FALSE(control("Text2(3)").isVisible());
    EXPECT_NE(background("Text2(2)"), QColor(0xC0, 0, 0xC0));
    EXPECT_EQ(value(1), QString());
    EXPECT_EQ(caption("Label14"), QStringLiteral("Rekord n."));
    EXPECT_EQ(control<QSlider>("Slider1").value(), 0);
    EXPECT_FALSE(item("preferenze").isChecked());
    click("Command1");
    EXPECT_EQ(value(1), QStringLiteral("NEW  ")) << "capitals last for the run";
}

TEST_F(FormstartTest, CompatibilityFollowsTheLongestFieldAndTheUser)
{
    for (const int length : {80, 81}) {
        open(test::rec({{.length = 3}, {.length = length}}).record({}));
        EXPECT_EQ(item("compEpidat").isChecked(), length == 80) << length;
        EXPECT_EQ(control<QSlider>("Slider1").minimum(), length == 80 ? -200 : -10);
    }
    choose("compEpidat");
    EXPECT_TRUE(item("compEpidat").isChecked());
    EXPECT_EQ(control<QSlider>("Slider1").minimum(), -200);
    choose("compEpidat");
    EXPECT_EQ(control<QSlider>("Slider1").minimum(), -10);
}

TEST_F(FormstartTest, TheFrameOpenedLastStandsInFront)
{
    open(test::rec({{}}).records(1));
    for (const char* menu : {"preferenze", "preferenze", "note", "preferenze"})
        choose(menu);
    QWidget& box = control("Check1");
    EXPECT_EQ(form_->childAt(box.mapTo(form_.get(), QPoint(8, box.height() / 2))), &box);
}

TEST_F(FormstartTest, TheGridPreferenceWarnsOfAnEmptyMatrix)
{
    open(test::rec({{}}).records(1));
    choose("preferenze");
    click("Check3");
    EXPECT_EQ(dialogs_.messages, QStringList(QStringLiteral(" Attenzione !! Matrice di stampa vuota")));
    click("Check3");
    EXPECT_EQ(dialogs_.messages.size(), 1);
    EXPECT_FALSE(control("Check4").isEnabled());
}

TEST_F(FormstartTest, BuiltInTextsOpenAndClose)
{
    using Case = std::tuple<const char*, const char*, const char*>;
    for (const auto& [menu, frame, part] :
         {Case{"note", "Frame7", "imposta matrice"},
          Case{"limiti", "Frame5", "massima dimensione griglie      :800 X 200   "},
          Case{"versione", "Frame6", "Quorvin"}}) {
        choose(menu);
        const auto* box = control(frame).findChild<QPlainTextEdit*>();
        EXPECT_TRUE(box->toPlainText().contains(QString::fromLatin1(part))) << menu;
        QTest::keyClick(control(frame).focusProxy(), Qt::Key_Escape);
        EXPECT_FALSE(control(frame).isVisible() || item(menu).isChecked()) << menu;
    }
}

TEST_F(FormstartTest, EscapeClosesOneFrameAfterTheOtherAndGivesTheFocusBack)
{
    open(test::rec({{}}).records(1));
    control("Text2(1)").setFocus();
    for (const char* menu : {"preferenze", "versione", "limiti", "note"})
        choose(menu);
    for (const char* frame : {"Frame7", "Frame5", "Frame6", "Frame10"}) {
        EXPECT_TRUE(control(frame).isVisible()) << frame;
        QTest::keyClick(form_->focusWidget(), Qt::Key_Escape);
        EXPECT_FALSE(control(frame).isVisible()) << frame;
    }
    EXPECT_EQ(form_->focusWidget(), &control("Text2(1)"));
}

TEST_F(FormstartTest, TheFullGuideIsOpenedWhereItIsOrMissedInABox)
{
    const std::filesystem::path program = folder_.path() / "bin";
    const std::filesystem::path shared = folder_.path() / "share" / "doc" / "quorvin";
    std::filesystem::create_directories(program);
    std::filesystem::create_directories(shared);
    const QString inProgram = QFileInfo(program / "guida.html").filePath();
    const auto pressed = [&] { openFullGuide(dialogs_, QString::fromStdString(program.string())); };
    pressed();
    ASSERT_EQ(dialogs_.messages.size(), 1);
    for (const auto& folder : {program, shared})
        EXPECT_TRUE(dialogs_.messages[0].contains(QString::fromStdString(folder.string()))) << folder;
    EXPECT_EQ(dialogs_.icon, BoxIcon::information);
    for (const auto& folder : {shared, program}) {
        std::ofstream(folder / "guida.html") << "<p>";
        pressed();
        EXPECT_EQ(dialogs_.openedOutside.value(0), QFileInfo(folder / "guida.html").filePath());
        dialogs_.openedOutside.clear();
    }
    EXPECT_EQ(dialogs_.messages.size(), 1);
    dialogs_.canOpen = false;
    pressed();
    EXPECT_TRUE(dialogs_.messages.last().endsWith(QDir::toNativeSeparators(inProgram)));
    choose("note");
    QTest::keyClick(form_->focusWidget(), Qt::Key_Tab);
    QTest::keyClick(form_->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(dialogs_.messages.size(), 3);
}

TEST_F(FormstartTest, AControlIsDroppedAtThePointer)
{
    choose("limiti");
    QMimeData media;
    media.setData(QLatin1String(FormCanvas::kControlType), "Frame5");
    drop(control("Form"), media, QPointF(160, 96));
    EXPECT_NEAR(control("Frame5").x(), 160, 1);
    EXPECT_NEAR(control("Frame5").y(), 96, 1);
}

TEST_F(FormstartTest, AFileDroppedOnTheWindowIsOpened)
{
    const auto name = folder_.write("dropped.rec", test::rec({{}}).records(4).bytes());
    QMimeData media;
    media.setUrls({QUrl::fromLocalFile(QString::fromStdString(name.string()))});
    drop(*form_, media, QPointF(50, 50));
    QApplication::processEvents();
    EXPECT_EQ(caption("Label9"), QStringLiteral(" 4 "));
}

TEST_F(FormstartTest, LowScreensGetLowerLines)
{
    open(test::rec({{}}).records(1));
    form_->resize(1024, 900);
    const int usual = control<FormCanvas>("Form").scale().lineHeight();
    choose("adatta600");
    const int low = control<FormCanvas>("Form").scale().lineHeight();
    EXPECT_LT(low, usual);
    EXPECT_LE(low * kFormLines + form_->menuBar()->height(), 600);
    choose("adatta600");
    EXPECT_EQ(control<FormCanvas>("Form").scale().lineHeight(), usual);
}

}  // namespace
}  // namespace quorvin
