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
#include <QListView>
#include <QProcess>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>
#include <numeric>
#include <random>

#include "output/DocumentEdit.h"
#include "tests/output/OutputFixture.h"
#include "tests/support/PlainRec.h"
#include "tests/support/ProvenRecord.h"

namespace quorvin {
namespace {

using test::isProven;
using test::text;

struct Writers {
    const char* records;  ///< that they keep, about
    const char* files;    ///< "same" or "other"
};

class OtherWritersTest : public test::OutputTest, public testing::WithParamInterface<Writers> {
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
        dialogs_.whileAsking = [this] {
            EXPECT_FALSE(boxes().empty());
            checkBoxes();
        };
        writer_.start(text(REC_WRITER_STUB), {QString::fromStdString(file().string()),
                                              text(GetParam().records), text(GetParam().files)});
    }

    /// Does one thing after the other, for a while or as many seconds as the environment asks for.
    void work()
    {
        using Act = void (OtherWritersTest::*)();
        const std::pair<const char*, Act> acts[] = {
            {"move", &OtherWritersTest::move},   {"list", &OtherWritersTest::list},
            {"steps", &OtherWritersTest::steps}, {"count", &OtherWritersTest::count},
            {"print", &OtherWritersTest::print}, {"write", &OtherWritersTest::write},
        };
        const int seconds = qEnvironmentVariableIntValue("QUORVIN_WRITERS_SECONDS");
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < (seconds > 0 ? 1000 * seconds : 1500) && !HasFailure()) {
            const auto& [name, act] = acts[below(std::size(acts))];
            const testing::ScopedTrace trace(__FILE__, __LINE__, name);
            click("Command3");
            (this->*act)();
            most_ = std::max(most_, caption("Label9").toInt());
        }
    }

    /// What the window shows once nobody writes any more.
    void checkRest()
    {
        writer_.closeWriteChannel();
        ASSERT_TRUE(writer_.waitForFinished());
        const QStringList told = text(writer_.readAllStandardOutput()).split(QLatin1Char(' '));
        ASSERT_EQ(told.size(), 2);
        if (proven_) {
            EXPECT_LE(most_, told[1].toInt());
            EXPECT_GT(proofs_, 100);
        } else {
            openFile(file());
        }
        proven_ = true;
        click("Command3");
        type("Text1", told[0]);
        EXPECT_EQ(caption("Label9").trimmed(), told[0]);
        EXPECT_TRUE(isProven(boxes(), told[0].toUInt())) << boxes();
        EXPECT_NE(test::bytesOf(file()).find(value(1).toStdString()), std::string::npos) << "no longer there";
        in({"elencorekord"}, [&] {
            search({{4, "v"}, {1, "v"}});
            checkLines();
            EXPECT_EQ(caption("Label3").trimmed(), told[0]);
        });
    }

    QProcess writer_;

private:
    int below(std::size_t end) { return static_cast<int>(random_() % end); }
    /// Of about one record in five, or of all.
    const char* pattern() { return below(4) == 0 ? "7" : "v"; }

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
    void checkBoxes()
    {
        const std::string all = boxes();
        if (!all.empty())
            prove(isProven(all, caption("Label14").toUInt()), caption("Label14") + text(all.c_str()));
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

    QListView& shownList() { return control<QListView>(item("sort").isChecked() ? "List2" : "List1"); }
    void checkLines()
    {
        const QAbstractItemModel& model = *shownList().model();
        static const QRegularExpression number(text("^ (\\d+)\\.|\\[(\\d+)\\]$"));
        for (int row = 0; row < model.rowCount() && !HasFailure(); ++row) {
            const QString line = model.index(row, 0).data().toString();
            const auto match = number.match(line);
            checkTokens(line, 2, (match.captured(1) + match.captured(2)).toUInt());
        }
    }

    // What is done

    /// With these menu items ticked.
    void in(const std::vector<const char*>& items, const std::function<void()>& act)
    {
        for (const char* name : items)
            choose(name);
        act();
        for (const char* name : items)
            if (item(name).isChecked()) choose(name);
    }
    void move()
    {
        type("Text1", QString::number(1 + below(2 * static_cast<std::size_t>(most_) + 2)));
        checkBoxes();
        // Mostly backwards, over the place where the file may have been cut meanwhile.
        for (int times = 30; times > 0; --times) {
            click("Command3");
            click(below(6) == 0 ? "Command1" : "Command2");
            checkBoxes();
        }
    }
    /// Lists hits and clicks on some of them, with a document or without.
    void list()
    {
        if (below(2) == 0) choose("sort");
        in({"elencorekord"}, [this] {
            search({{4, pattern()}, {1, pattern()}});
            checkLines();
            below(2) == 0 ? clickHits(false) : in({"documento"}, [this] { clickHits(true); });
        });
    }
    void clickHits(bool filled)
    {
        QListView& view = shownList();
        const int rows = view.model()->rowCount();
        for (int times = 30; times > 0 && rows > 0; --times) {
            // Those at the end are the first to be cut.
            const int row = std::max(0, rows - 1 - below(below(2) == 0 ? static_cast<std::size_t>(rows) : 4));
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
    }
    void steps()
    {
        dialogs_.yesAnswers = below(6);
        search({{4, pattern()}, {1, pattern()}});
        dialogs_.yesAnswers = 0;
    }
    void count()
    {
        in({"elencorekord", below(2) == 0 ? "freq" : "tabella"}, [this] {
            search({{3, "k"}, {1, pattern()}});
            const QAbstractItemModel& grid = *control<QTableView>("MSFlexGrid1").model();
            for (int row = 1; row < grid.rowCount() && !HasFailure(); ++row) {
                const QString key = grid.index(row, 0).data().toString();
                if (key.startsWith(QLatin1Char('Z'))) break;
                checkTokens(key, 1, numberOf(key.trimmed()));
                prove(grid.index(row, grid.columnCount() - 1).data() == text("1"), key + text(" once"));
            }
        });
    }
    void print()
    {
        in({"elencorekord", "stamp2"}, [this] {
            search({{4, pattern()}, {1, pattern()}});
            QStringList records = printed().split(QString(78, QLatin1Char('<')));
            records.removeLast();
            for (const QString& record : records) {
                const QStringList lines = record.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
                QString all;
                for (const QString& line : lines.mid(lines.size() - 4))
                    all += line.mid(2);
                prove(isProven(all.toStdString()), record);
            }
        });
    }
    void write()
    {
        std::filesystem::remove(folder_.path() / "new.rec");
        dialogs_.filesToSave = QStringList(inFolder("new.rec"));
        in({"elencorekord", "creamatutto"}, [this] { search({{4, pattern()}, {1, pattern()}}); });
        const std::string bytes = test::bytesOf(folder_.path() / "new.rec");
        if (bytes.empty()) return;
        const test::PlainRec written(bytes);
        for (std::size_t n = 1; n <= written.count() && !HasFailure(); ++n) {
            const std::vector<std::string> values = written.record(n);
            const std::string all = std::accumulate(values.begin() + 1, values.end(), std::string());
            prove(isProven(all), text(all.c_str()));
        }
    }

    std::mt19937 random_{11};
    bool proven_ = GetParam().files == std::string("same");
    int most_ = 1;
    int proofs_ = 0;
};

TEST_P(OtherWritersTest, NoRecordThatNobodyWrote)
{
    ASSERT_TRUE(writer_.waitForStarted());
    work();
    checkRest();
}

INSTANTIATE_TEST_SUITE_P(Writers, OtherWritersTest,
                         testing::Values(Writers{"40", "same"}, Writers{"15000", "same"},
                                         Writers{"40", "other"}),
                         [](const auto& it) { return std::string(it.param.files) + it.param.records; });

}  // namespace
}  // namespace quorvin
