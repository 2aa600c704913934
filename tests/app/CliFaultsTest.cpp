#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QProcess>
#include <random>

#include "tests/output/OutputFixture.h"

namespace quorvin {
namespace {

using test::text;

class CliFaultsTest : public testing::Test {
protected:
    void writeSource(int records, int length) const
    {
        auto rec = test::rec({{.length = length}});
        for (int i = 0; i < records; ++i)
            rec.record({(i % 2 ? "a" : "b") + std::to_string(i)});
        folder_.write("prova.rec", rec.bytes());
    }
    /// Has quorvin-cli, started by another program if one is named, write the records with this text over
    /// new.rec, and kills it after so long. What it says, and its exit status.
    QString create(const char* pattern, QStringList starter = {}, int milliseconds = 30000) const
    {
        const QString folder = QString::fromStdString(folder_.path().string());
        starter +=
            QStringList{text(QUORVIN_CLI),           text("crea"),    folder + text("/prova.rec"), text("-c"),
                        text("#1=") + text(pattern), text("--tutto"), text("--sovrascrivi"),       text("-o"),
                        folder + text("/new.rec")};
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(starter.first(), starter.mid(1));
        if (!process.waitForFinished(milliseconds)) process.kill();
        process.waitForFinished();
        return QString::fromUtf8(process.readAll()).remove(QLatin1Char('\r')) +
               (process.exitStatus() == QProcess::NormalExit ? QString::number(process.exitCode())
                                                             : QString());
    }
    std::string created(const char* pattern) const
    {
        EXPECT_TRUE(create(pattern).endsWith(text("\n0")));
        return target();
    }
    std::string target() const { return folder_.files()["new.rec"]; }

    test::TempFolder folder_;
};

#ifdef Q_OS_LINUX
TEST_F(CliFaultsTest, ADiskFullAtEveryByte)
{
    writeSource(2, 2);
    const std::string whole = created("a");
    created("b");
    const test::Files before = folder_.files();
    const auto limited = [](std::size_t room) {
        return QStringList{text("prlimit"), text("--fsize=") + QString::number(room)};
    };
    for (std::size_t room = 0; room < whole.size(); ++room) {
        EXPECT_EQ(create("a", limited(room)), text("Errore!! Disco pieno\n2")) << room;
        EXPECT_EQ(folder_.files(), before) << room;
    }
    create("a", limited(whole.size()));
    EXPECT_EQ(target(), whole);
}
#endif

TEST_F(CliFaultsTest, KilledWhileItWritesOverAFile)
{
    writeSource(30000, 70);
    const std::string one = created("a");
    QElapsedTimer time;
    time.start();
    const std::string other = created("b");
    std::mt19937 random(1);
    std::uniform_int_distribution<> moment(1, static_cast<int>(time.elapsed()) + 1);
    for (int i = 0; i < 100; ++i) {
        create(i % 2 ? "b" : "a", {}, moment(random));
        const std::string now = target();
        ASSERT_TRUE(now == one || now == other) << i;
    }
    for (const auto& [name, bytes] : folder_.files())
        EXPECT_TRUE(name == "prova.rec" || name == "new.rec" || name.starts_with("quorvin-")) << name;
}

}  // namespace
}  // namespace quorvin
