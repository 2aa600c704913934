/// Other programs write the REC file while the window works on it.
///
/// What is promised: every record that is shown, listed, printed, counted or written anew stood in the file
/// as a whole, under its number, when it was read; none is made of parts of two, of half a record or of bytes
/// that nobody wrote. This holds for writers that append (in pieces of any size), cut the file anywhere, put
/// another file in its place, empty it and write it again, or remove it. It cannot hold while bytes of one
/// record are overwritten where they stand, in the very moment in which they are read: the file is never
/// locked, and nothing tells such a mixture from a record. Where a file with other definitions takes the
/// name, records mean nothing until it is opened anew; there the promise is only that nothing breaks.

#include <gtest/gtest.h>

#include <QAction>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>
#include <random>

#include "base/RuntimeError.h"
#include "output/DocumentEdit.h"
#include "rec/RecFile.h"
#include "tests/support/ProvenRecord.h"
#include "tests/support/WindowTest.h"

namespace quorvin {
namespace {

using test::isProven;

QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

class OtherWritersTest : public test::WindowTest {
protected:
    OtherWritersTest()
    {
        std::vector<test::FieldSpec> fields;
        for (const int width : test::kProvenWidths) {
            const auto row = static_cast<int>(fields.size()) + 1;
            fields.push_back({.length = width, .question = "q:", .questionY = row, .fieldY = row});
        }
        folder_.write("prova.mtr", " 1\r\n 2\r\n 3\r\n 4\r\n\r\n 0\r\n\"A *(1)*                              "
                                   "          B *(4)*          C\"\r\n");
        const std::string record = test::provenText(1, 0);
        open(test::rec(fields).record(
            {record.substr(0, 20), record.substr(20, 60), record.substr(80, 2), record.substr(82, 20)}));
        choose("preferenze");
        click("Check2");
        choose("preferenze");
        dialogs_.whileAsking = [this] { checkBoxes(true); };
    }

    ~OtherWritersTest() override
    {
        if (writer_.state() != QProcess::NotRunning) stopWriter();
    }

    void startWriter(unsigned records, const char* files)
    {
        writer_.start(text(REC_WRITER_STUB), {QString::fromStdString(file().string()), text("7"),
                                              QString::number(records), text(files)});
        ASSERT_TRUE(writer_.waitForStarted());
    }
    /// Leaves the numbers it tells in `told_`.
    void stopWriter()
    {
        writer_.closeWriteChannel();
        EXPECT_TRUE(writer_.waitForFinished(60000));
        told_ = QString::fromLatin1(writer_.readAllStandardOutput()).split(QLatin1Char(' '));
        EXPECT_EQ(writer_.exitCode(), 0);
        ASSERT_GE(told_.size(), 2);
    }

    /// Does one thing after the other, for a few seconds or as many as the environment asks for.
    void work(bool proven)
    {
        proven_ = proven;
        using Act = void (OtherWritersTest::*)();
        const std::pair<const char*, Act> acts[] = {
            {"step", &OtherWritersTest::step},         {"go", &OtherWritersTest::go},
            {"hold", &OtherWritersTest::hold},         {"list", &OtherWritersTest::list},
            {"stepwise", &OtherWritersTest::stepwise}, {"count", &OtherWritersTest::count},
            {"print", &OtherWritersTest::print},       {"interval", &OtherWritersTest::interval},
            {"write", &OtherWritersTest::write},       {"reopen", &OtherWritersTest::reopen},
        };
        const int seconds = qEnvironmentVariableIntValue("QUORVIN_WRITERS_SECONDS");
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < 1000 * (seconds > 0 ? seconds : 3) && !HasFailure()) {
            const auto& [name, act] = acts[below(std::size(acts))];
            const testing::ScopedTrace trace(__FILE__, __LINE__, name);
            click("Command3");
            (this->*act)();
            most_ = std::max(most_, caption("Label9").toInt());
            ++done_[name];
        }
    }

    /// What the window shows once nobody writes any more.
    void checkRest()
    {
        stopWriter();
        if (proven_) {
            EXPECT_LE(most_, told_[1].toInt());
        } else {
            reopen();
        }
        proven_ = true;
        const QString last = told_[0];
        click("Command3");
        type("Text1", last);
        EXPECT_EQ(caption("Label9").trimmed(), last);
        EXPECT_TRUE(isProven(boxes(), last.toUInt())) << boxes();
        EXPECT_NE(test::bytesOf(file()).find(value(1).toStdString()), std::string::npos) << "no longer there";
        choose("elencorekord");
        find({1, 4});
        EXPECT_EQ(caption("Label3").trimmed(), last);
        checkLines();
        choose("elencorekord");
        std::cout << "writer: " << told_.join(text(" ")).toStdString() << "window:";
        for (const auto& [name, times] : done_)
            std::cout << ' ' << name << ' ' << times;
        std::cout << " proofs " << proofs_ << " blanks " << blanks_ << " boxes " << dialogs_.messages.size()
                  << " most " << most_ << '\n';
    }

private:
    int below(std::size_t end) { return static_cast<int>(random_() % end); }

    // What stands there

    std::string boxes() { return (value(1) + value(2) + value(3) + value(4)).toStdString(); }

    void prove(bool holds, const QString& what)
    {
        ++proofs_;
        if (!holds && proven_) ADD_FAILURE() << what.toStdString();
    }
    /// The number of a token, or 0.
    static unsigned numberOf(const QString& token)
    {
        const QString plain = token.toLower();
        const unsigned number = plain.mid(1, 5).toUInt();
        return test::token(number, plain.mid(7, 7).toUInt()) == plain.toStdString() ? number : 0;
    }
    /// A record as a whole under its number; or nothing, where nothing could be read.
    void checkBoxes(bool shown = false)
    {
        const std::string all = boxes();
        if (all.empty()) {
            ++blanks_;
            EXPECT_FALSE(shown);
        } else {
            prove(isProven(all, caption("Label14").toUInt()),
                  caption("Label14") + text(": ") + QString::fromStdString(all));
        }
    }
    /// One token, as often as expected, with this number.
    void checkTokens(const QString& words, int times, unsigned number)
    {
        static const QRegularExpression tokens(text("r\\d{5}v\\d{7}c[0-9a-f]{4}"),
                                               QRegularExpression::CaseInsensitiveOption);
        QStringList found;
        for (auto all = tokens.globalMatch(words); all.hasNext();)
            found.append(all.next().captured());
        const bool same = found.size() == times && found.count(found.first()) == times;
        prove(same && number != 0 && numberOf(found.first()) == number, words);
    }

    const char* listName() { return item("sort").isChecked() ? "List2" : "List1"; }
    void checkLines()
    {
        const QAbstractItemModel& model = *control<QListView>(listName()).model();
        static const QRegularExpression number(text("^ (\\d+)\\.|\\[(\\d+)\\]$"));
        for (int row = 0; row < model.rowCount() && !HasFailure(); ++row) {
            const QString line = model.index(row, 0).data().toString();
            const auto match = number.match(line);
            checkTokens(line, 2, (match.captured(1) + match.captured(2)).toUInt());
        }
    }

    // What is done

    void find(const std::vector<int>& fields)
    {
        std::vector<std::pair<int, const char*>> criteria;
        for (auto field = fields.rbegin(); field != fields.rend(); ++field)
            criteria.emplace_back(*field, *field == 3 ? "k" : below(4) == 0 ? "7" : "v");
        if (told_.size() > 1)
            for (auto& [field, pattern] : criteria)
                pattern = "v";
        search(criteria);
    }

    void step()
    {
        type("Text1", QString::number(most_));
        // Mostly backwards, over the place where the file may have been cut meanwhile.
        for (int times = 60; times > 0; --times) {
            click("Command3");
            click(below(6) == 0 ? "Command1" : "Command2");
            checkBoxes();
        }
    }
    void go()
    {
        for (int times = 1 + below(10); times > 0; --times) {
            click("Command3");
            type("Text1", QString::number(1 + below(2 * static_cast<std::size_t>(most_) + 2)));
            checkBoxes();
        }
    }
    void hold()
    {
        auto& button = control<QPushButton>(below(2) == 0 ? "Command1" : "Command2");
        QTest::mousePress(&button, Qt::LeftButton);
        QTest::qWait(160);
        QTest::mouseRelease(&button, Qt::LeftButton);
        checkBoxes();
    }
    /// Lists hits and clicks on some of them, with a document or without.
    void list()
    {
        choose("elencorekord");
        if (below(2) == 0) choose("sort");
        find({1, 4});
        checkLines();
        const bool filled = below(2) == 0;
        if (filled) choose("documento");
        auto& view = control<QListView>(listName());
        const auto rows = static_cast<std::size_t>(view.model()->rowCount());
        for (int times = 30; times > 0 && rows > 0; --times) {
            // Those at the end are the first to be cut.
            const int row = below(2) == 0
                                ? below(rows)
                                : static_cast<int>(rows) - 1 - below(std::min<std::size_t>(rows, 4));
            const QModelIndex line = view.model()->index(row, 0);
            view.scrollTo(line);
            QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                              view.visualRect(line).center());
            if (value(2).isEmpty()) continue;
            checkBoxes();
            if (filled)
                checkTokens(control<DocumentEdit>("Textcomunic").toPlainText(), 2,
                            caption("Label14").toUInt());
        }
        if (filled) choose("documento");
        choose("elencorekord");
    }
    void stepwise()
    {
        dialogs_.yesAnswers = below(6);
        find({1, 4});
        dialogs_.yesAnswers = 0;
    }
    void count()
    {
        const char* mode = below(2) == 0 ? "freq" : "tabella";
        choose("elencorekord");
        choose(mode);
        find({1, 3});
        const QAbstractItemModel& grid = *control<QTableView>("MSFlexGrid1").model();
        for (int row = 1; row < grid.rowCount() && !HasFailure(); ++row) {
            const QString key = grid.index(row, 0).data().toString();
            if (key.startsWith(QLatin1Char('Z'))) break;
            checkTokens(key, 1, numberOf(key.trimmed()));
            prove(grid.index(row, grid.columnCount() - 1).data().toString() == text("1"),
                  key + text(" once"));
        }
        choose(mode);
        choose("elencorekord");
    }
    void checkPrint()
    {
        QStringList records =
            control<QPlainTextEdit>("Text5").toPlainText().split(QString(78, QLatin1Char('<')));
        records.removeLast();
        for (const QString& record : records) {
            const QStringList lines = record.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
            QString all;
            for (const QString& line : lines.mid(lines.size() - 4))
                all += line.mid(2);
            prove(isProven(all.toStdString()), record);
        }
    }
    void print()
    {
        choose("elencorekord");
        choose("stamp2");
        find({1, 4});
        checkPrint();
        choose("stamp2");
        choose("elencorekord");
    }
    void interval()
    {
        choose("stamp1");
        type("Text8", text("1"));
        type("Text9", QString::number(1 + below(300)));
        QTest::keyClick(&control("Text9"), Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([this] { return caption("Label16") != text("  ...stampa in corso"); }));
        checkPrint();
        choose("stamp1");
    }
    void write()
    {
        const std::filesystem::path name = folder_.path() / "new.rec";
        std::filesystem::remove(name);
        choose("elencorekord");
        choose("creamatutto");
        dialogs_.filesToSave = QStringList(QString::fromStdString(name.string()));
        find({1, 4});
        if (std::filesystem::exists(name)) checkWritten(name);
        if (item("creamatutto").isChecked()) choose("creamatutto");
        choose("elencorekord");
    }
    void checkWritten(const std::filesystem::path& name)
    {
        RecFile written;
        written.open(name);
        written.readDefinitions();
        try {
            written.measure();
        } catch (const RuntimeError& none) {
            EXPECT_EQ(none.number(), ErrorNumber::divisionByZero);
        }
        for (RecordNumber n = 1; n <= written.recordCount() && !HasFailure(); ++n) {
            written.seek(n);
            written.caricastring();
            // Its mark stands within the last line's first characters.
            const std::string text = written.recordText();
            prove(isProven(text.substr(0, text.size() - 1)), QString::fromStdString(text));
        }
    }
    void reopen()
    {
        for (int times = 10; times > 0; --times) {
            do {
                openFile(file());
            } while (caption("Label9").isEmpty());
            click("Command1");
            checkBoxes();
        }
    }

    QProcess writer_;
    QStringList told_;
    std::mt19937 random_{11};
    std::map<std::string, int> done_;
    bool proven_ = true;
    int most_ = 1;
    int proofs_ = 0;
    int blanks_ = 0;
};

TEST_F(OtherWritersTest, NoRecordThatNobodyWrote)
{
    for (const unsigned records : {40U, 15000U}) {
        startWriter(records, "same");
        work(true);
        checkRest();
    }
}

TEST_F(OtherWritersTest, AFileOfAnotherKindBreaksNothing)
{
    startWriter(40, "other");
    work(false);
    checkRest();
}

}  // namespace
}  // namespace quorvin
