#include "output/ExportPanel.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QTest>
#include <algorithm>
#include <tuple>

#include "tests/output/OutputFixture.h"

namespace quorvin {
namespace {

namespace fs = std::filesystem;
using test::bytesOf;
using test::text;

using ExportPanelTest = test::OutputTest;

TEST_F(ExportPanelTest, NewFilesOfEachKind)
{
    using Case = std::tuple<const char*, const char*>;
    chooseMatrix({3, 1, 3});
    choose("elencorekord");
    for (const auto& [mode, written] : {
             Case{"creamat1", "66Bruni !\r\n65Rossi ?\r\n"},
             Case{"creamat2", "66!\r\n65?\r\n"},
             Case{"creamatutto", "Bruni Roma66!\r\nRossi Bari65?\r\n"},
         }) {
        choose(mode);
        dialogs_.filesToSave = QStringList(inFolder("new.rec"));
        dialogs_.yesAnswers = 1;
        search({{3, "6"}});
        const std::string bytes = bytesOf(folder_.path() / "new.rec");
        EXPECT_TRUE(bytes.ends_with(written)) << mode << '\n' << bytes;
        EXPECT_TRUE(dialogs_.askedNames.last().endsWith(text("/prova.Sel.rec")));
        EXPECT_EQ(caption("searchNotice"), text("new.rec: rekord scritti 2"));
        click("Command3");
    }
    EXPECT_EQ(dialogs_.messages.size(), 2) << "the second and the third time the file was there";
    EXPECT_EQ(dialogs_.icon, BoxIcon::exclamation);
    fs::remove(folder_.path() / "new.rec");
    choose("creamatutto");
    search({{3, "6"}});
    EXPECT_FALSE(fs::exists(folder_.path() / "new.rec")) << "the mode is off";
    EXPECT_EQ(caption("searchNotice"), QString());

    // Step by step, and printed too.
    choose("elencorekord");
    choose("creamat2");
    choose("stamp2");
    dialogs_.filesToSave = QStringList(inFolder("steps.rec"));
    dialogs_.yesAnswers = 1;
    search({{3, "6"}});
    EXPECT_TRUE(bytesOf(folder_.path() / "steps.rec").ends_with("\r\n66!\r\n"));
    EXPECT_EQ(caption("searchNotice"), text("steps.rec: rekord scritti 1"));
    EXPECT_TRUE(printed().contains(text("Nome: Bruni ")));
}

TEST_F(ExportPanelTest, FilesThatAreNotWritten)
{
    const std::string source = bytesOf(file());
    choose("elencorekord");
    choose("creamat1");
    search({{2, "ro"}});
    EXPECT_EQ(dialogs_.messages, QStringList(text("!Errore!! matrice vuota!! ")));
    EXPECT_EQ(caption("Label3"), text(" 0")) << "no search";
    EXPECT_TRUE(dialogs_.askedNames.isEmpty());

    choose("creamatutto");
    dialogs_.messages.clear();
    dialogs_.filesToSave = QStringList(inFolder("./prova.rec"));
    enter("Text2(2)");
    EXPECT_EQ(dialogs_.messages,
              QStringList(QString::fromUtf8("!Errore!! non è possibile sostituire il file origine!! ")));
    ASSERT_EQ(dialogs_.askedNames.size(), 2) << "asked again, then cancelled";
    EXPECT_TRUE(dialogs_.askedNames[1].endsWith(QLatin1Char('/')));
    EXPECT_FALSE(item("creamatutto").isChecked());
    EXPECT_EQ(caption("Label3"), text(" 2")) << "the search runs without writing";
    EXPECT_EQ(bytesOf(file()), source);

    choose("creamatutto");
    folder_.write("there.rec", "old");
    dialogs_.messages.clear();
    dialogs_.filesToSave = QStringList(inFolder("there.rec"));
    enter("Text2(2)");
    EXPECT_EQ(dialogs_.messages,
              QStringList(text("Attenzione!!il file ") + inFolder("there.rec") +
                          QString::fromUtf8(" esiste già ...sovrascrivere il file esistente?")));
    EXPECT_EQ(bytesOf(folder_.path() / "there.rec"), "old");
    EXPECT_FALSE(item("creamatutto").isChecked());

    choose("creamatutto");
    dialogs_.messages.clear();
    dialogs_.filesToSave = QStringList(inFolder("none/new.rec"));
    enter("Text2(2)");
    EXPECT_EQ(dialogs_.messages, QStringList(text("!Errore!! Impossibile trovare il percorso")));
}

TEST_F(ExportPanelTest, LongFieldsAreCutForEpiData)
{
    open(test::rec({{.length = 100}}).record({std::string(100, 'x')}));
    choose("elencorekord");
    for (const std::size_t length : {100U, 80U}) {
        choose("creamatutto");
        dialogs_.filesToSave = QStringList(inFolder("new.rec"));
        dialogs_.yesAnswers = 1;
        search({{1, "x"}});
        const std::string bytes = bytesOf(folder_.path() / "new.rec");
        EXPECT_EQ(std::count(bytes.begin(), bytes.end(), 'x'), length);
        choose("compEpidat");
        choose("creamatutto");
    }
}

TEST_F(ExportPanelTest, ClosingTheWindowGivesANewFileUp)
{
    auto rec = test::rec({{}});
    open(rec.records(60000));
    choose("elencorekord");
    choose("creamatutto");
    dialogs_.filesToSave = QStringList(inFolder("new.rec"));
    click("Text2(1)");
    type("Text2(1)", text("r"));
    QTest::keyClick(&control("Text2(1)"), Qt::Key_Return);
    ASSERT_EQ(caption("Label16"), text("  ...ricerca in corso"));
    form_->close();
    const auto files = fs::directory_iterator(folder_.path());
    EXPECT_EQ(std::distance(fs::begin(files), fs::end(files)), 1) << "only the open one";
}

}  // namespace
}  // namespace quorvin
