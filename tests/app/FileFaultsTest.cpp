#include <gtest/gtest.h>

#include <QAction>
#include <QListView>
#include <QStatusBar>
#include <QTest>
#include <cerrno>
#include <utility>

#include "output/DocumentEdit.h"
#include "tests/output/OutputFixture.h"
#include "tests/support/FileFaults.h"

namespace quorvin {
namespace {

namespace fs = std::filesystem;
using test::FileFaults;
using test::Files;
using test::text;

/// Something that the user does, over and over, each time with another failure.
struct Journey {
    const char* name;
    const char* prefix;  ///< of the box that says what failed; none where only the status bar does
    std::function<void()> prepare;
    std::function<void()> act;
};

/// What happens to one operation, and how it is said.
struct Fault {
    const char* name;
    std::function<void(FileFaults&, int)> arrange;  ///< for the n-th, from 1
    const char* description;
    bool shortens = false;  ///< there is less to find, which nobody needs to say
};

class FileFaultsTest : public test::OutputTest {
protected:
    FileFaultsTest()
    {
        folder_.write("prova.mtr", " 1\r\nTITOLO\r\n 1\r\n\"*(1)*          fine\"\r\n");
        openFile(file());
    }

    void restore(const Files& all) const
    {
        for (const auto& [name, bytes] : folder_.files())
            if (!all.contains(name)) fs::remove(folder_.path() / name);
        for (const auto& [name, bytes] : all)
            if (test::bytesOf(folder_.path() / name) != bytes) folder_.write(name, bytes);
    }

    QStringList cells(const char* name)
    {
        auto& view = control<QAbstractItemView>(name);
        QStringList all;
        for (int row = 0; view.isVisible() && row < view.model()->rowCount(); ++row)
            for (int column = 0; column < view.model()->columnCount(); ++column)
                all.append(view.model()->index(row, column).data().toString());
        return all;
    }
    /// What comes of a file in the window.
    QStringList shown()
    {
        QStringList all = {caption("Label14"), caption("Label3"), caption("Label8"), caption("Label9")};
        for (int n = 1; control("Command1").isEnabled() && n <= 3; ++n)
            all.append(value(n));
        return all + cells("MSFlexGrid1") + cells("List1") +
               QStringList{printed(), control<DocumentEdit>("Textcomunic").toPlainText()};
    }
    QStringList errors() const { return dialogs_.messages.filter(QRegularExpression(text("^!"))); }

    void tick(const char* name, bool on = true)
    {
        if (item(name).isChecked() != on) choose(name);
    }
    /// A search in a mode, instead of the one before; what it writes goes to a file of one name.
    Journey searching(const char* mode, const char* before = nullptr)
    {
        return {mode, "!Errore!! ",
                [this, mode, before] {
                    if (before) tick(before, false);
                    tick("elencorekord", mode != std::string("step"));
                    if (mode != std::string("step")) tick(mode);
                },
                [this] {
                    click("Command3");
                    dialogs_.yesAnswers = 9;
                    dialogs_.filesToSave = QStringList(inFolder("new.rec"));
                    search({{2, "r"}});
                }};
    }
    /// A move from a record, with nothing to be said but in the status bar.
    Journey moving(const char* from, const std::function<void()>& act)
    {
        return {"move", nullptr, [this, from] { type("Text1", text(from)); }, act};
    }
    void clickHit(int row)
    {
        auto& list = control<QListView>("List1");
        const QPoint line = list.visualRect(list.model()->index(row, 0)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, line);
    }

    /// Does it once; whether it was done as if nothing had failed.
    bool isDone(const Journey& journey)
    {
        dialogs_.messages.clear();
        form_->statusBar()->clearMessage();
        journey.act();
        if (std::exchange(sourceHarmed_, false)) folder_.write("prova.rec", before_.at("prova.rec"));
        return errors().isEmpty() && shown() == expected_ && folder_.files() == after_;
    }
    void begin(const Journey& journey)
    {
        before_ = folder_.files();
        journey.prepare();
        isDone(journey);
        EXPECT_EQ(errors(), QStringList()) << journey.name;
        expected_ = shown();
        after_ = folder_.files();
    }
    /// What failed is said, nothing on the disk has changed, and the same can be done at once.
    void expectSaid(const Journey& journey, const char* description)
    {
        if (journey.prefix) {
            EXPECT_EQ(errors(), QStringList(text(journey.prefix) + text(description)));
        } else {
            EXPECT_EQ(errors(), QStringList());
            EXPECT_TRUE(form_->statusBar()->currentMessage().endsWith(text(description)))
                << form_->statusBar()->currentMessage().toStdString();
            // What is on show is of the record whose number is.
            const QString names[] = {text(""), text("Verdi "), text("Bruni "), text("Rossi ")};
            EXPECT_TRUE(value(1).isEmpty() || value(1) == names[caption("Label14").toInt()]);
            EXPECT_TRUE(expected_[expected_.size() - 2].startsWith(printed()));
        }
        EXPECT_FALSE(journey.name == std::string("freq") && control("MSFlexGrid1").isVisible());
    }

    /// Every operation, or every byte, in turn.
    void failEach(const Journey& journey, const Fault& fault)
    {
        bool reached = true;
        for (int n = 1; reached; ++n, ++points_) {
            SCOPED_TRACE(std::string(journey.name) + ", " + fault.name + ", " + std::to_string(n));
            restore(before_);
            journey.prepare();
            bool done = false;
            {
                FileFaults faults;
                fault.arrange(faults, n);
                done = isDone(journey);
                reached = faults.isReached();
            }
            if (!done && !(fault.shortens && errors().isEmpty())) expectSaid(journey, fault.description);
            EXPECT_TRUE(done || (reached && folder_.files() == before_));
            restore(before_);
            const FileFaults none;
            journey.prepare();
            EXPECT_TRUE(isDone(journey)) << "afterwards";
        }
    }

    const Fault failing_ = {"a failure", [](FileFaults& faults, int n) { faults.at = n, faults.error = EIO; },
                            "Errore di I/O della periferica"};
    const Fault filling_ = {"the disk full",
                            [](FileFaults& faults, int n) { faults.room = static_cast<std::size_t>(n) - 1; },
                            "Disco pieno"};
    const Fault vanishing_ = {"the file gone",
                              [this](FileFaults& faults, int n) {
                                  faults.at = n;
                                  faults.before = [this] {
                                      // The name of a file that is removed while it is open may stay taken.
                                      fs::rename(file(), away_.path() / std::to_string(points_));
                                      sourceHarmed_ = true;
                                  };
                              },
                              "Impossibile trovare il file"};
    const Fault shortened_ = {"the file cut short",
                              [this](FileFaults& faults, int n) {
                                  faults.at = n;
                                  faults.before = [this] {
                                      sourceHarmed_ = true;
                                      fs::resize_file(file(), fs::file_size(file()) - 20);
                                  };
                              },
                              "Input oltre la fine del file", true};
    test::TempFolder away_;
    Files before_;
    Files after_;
    QStringList expected_;
    bool sourceHarmed_ = false;
    int points_ = 0;
};

TEST_F(FileFaultsTest, Opening)
{
    const QStringList whole = shown();
    const Files before = folder_.files();
    const QString error = text(failing_.description);
    QStringList said;
    bool reached = true;
    for (int n = 1; reached; ++n) {
        dialogs_.messages.clear();
        form_->statusBar()->clearMessage();
        {
            FileFaults faults;
            failing_.arrange(faults, n);
            openFile(file());
            reached = faults.isReached();
        }
        const QStringList now = errors() + QStringList(form_->statusBar()->currentMessage());
        EXPECT_TRUE(shown() == whole || now != QStringList(QString())) << n;
        said += now;
        if (now.last().startsWith(text("matrice"))) {
            // What is kept beside the file must not give way to an empty matrix; without it there is nothing
            // to lose.
            dialogs_.typed = text("3");
            choose("margstamp");
            EXPECT_EQ(errors(), QStringList(text("!Errore file !! ") + error)) << n;
            EXPECT_TRUE(folder_.files() == before) << n;
            fs::remove(folder_.path() / "prova.mtr");
            choose("margstamp");
            EXPECT_EQ(folder_.files()["prova.mtr"], "\r\n 3\r\n\"\"\r\n") << n;
            restore(before);
        }
        openFile(file());
        EXPECT_EQ(shown(), whole) << "afterwards";
    }
    said.removeDuplicates();
    said.removeAll(QString());
    EXPECT_EQ(said, (QStringList{text("!Errore!! ") + error, text("matrice di stampa non letta: ") + error,
                                 text("!Errore file !! ") + error}));
}

TEST_F(FileFaultsTest, Reading)
{
    for (const Journey& journey : {
             moving("1", [this] { click("Command1"); }),
             moving("3", [this] { click("Command2"); }),
             moving("1", [this] { type("Text1", text("3")); }),
             searching("step"),
             searching("elencorekord"),
             Journey{"hit", "!Errore troppi rekord trovati !! ", [this] { tick("documento"), clickHit(0); },
                     [this] { clickHit(1); }},
             searching("stamp2", "documento"),
             searching("freq", "stamp2"),
             Journey{"stamp1", nullptr, [this] { tick("freq", false), tick("stamp1"); },
                     [this] {
                         type("Text8", text("1"));
                         type("Text9", text("3"));
                         QTest::keyClick(&control("Text9"), Qt::Key_Return);
                     }},
         }) {
        begin(journey);
        failEach(journey, failing_);
        failEach(journey, vanishing_);
        failEach(journey, shortened_);
        restore(before_);
        FileFaults faults;
        faults.portion = 1;
        journey.prepare();
        EXPECT_TRUE(isDone(journey)) << journey.name << ", byte by byte";
    }
    EXPECT_GT(points_, 200);
}

/// Blocks are read ahead by a thread of their own.
TEST_F(FileFaultsTest, ReadingAhead)
{
    auto rec = test::rec({{}, {.length = 70}, {}});
    for (int i = 0; i < 16000; ++i)
        rec.record({"x", i % 4000 ? "" : "r", ""});
    open(rec);
    const Journey journey = searching("elencorekord");
    begin(journey);
    failEach(journey, failing_);
    failEach(journey, shortened_);
    EXPECT_GT(points_, 20);
}

TEST_F(FileFaultsTest, Writing)
{
    const auto asks = [this](const char* item, const char* answer) {
        return Journey{item, "!Errore file !! ", [] {},
                       [this, item, answer] {
                           dialogs_.typed = text(answer);
                           choose(item);
                       }};
    };
    // All but the first of the new files are written over the one before.
    for (const Journey& journey : {
             asks("intestazione", "ELENCO"),
             asks("margstamp", "3"),
             Journey{"impmat", "!Errore file !! ", [] {},
                     [this] {
                         chooseMatrix({3, 2});
                     }},
             Journey{"impostadoc", "!Errore file !! ",
                     [this] {
                         dialogs_.yesAnswers = 0;
                         openFile(file());
                     },
                     [this] {
                         choose("impostadoc");
                         control<DocumentEdit>("Textcomunic").selectAll();
                         QTest::keyClicks(&control("Textcomunic"), text("Egregio"));
                         dialogs_.yesAnswers = 1;
                         choose("impostadoc");
                     }},
             searching("creamatutto"),
             searching("creamat1"),
             searching("creamat2"),
         }) {
        begin(journey);
        failEach(journey, failing_);
        if (before_.size() == after_.size()) failEach(journey, filling_);
    }
    EXPECT_GT(points_, 400);
}

}  // namespace
}  // namespace quorvin
