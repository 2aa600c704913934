/// A small file, its print matrix and its print file in the real window.
#pragma once

#include <QPlainTextEdit>

#include "tests/support/WindowTest.h"

namespace quorvin::test {

inline QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

/// Name (6 characters), town (4), age (2); record 3 is deleted.
class OutputTest : public WindowTest {
protected:
    OutputTest()
    {
        open(rec({{.length = 6, .question = "Nome: "},
                  {.length = 4, .question = "Citta", .questionY = 2, .fieldY = 2},
                  {.length = 2, .question = "Eta ", .questionY = 4, .fieldY = 4}})
                 .record({"Verdi", "Roma", "70"})
                 .record({"Bruni", "Roma", "66"})
                 .record({"Rossi", "Bari", "65"}, '?'));
    }

    /// Chooses these fields for the matrix and leaves the mode.
    void chooseMatrix(const std::vector<int>& fields)
    {
        choose("impmat");
        for (const int field : fields)
            click(qPrintable(text("Text2(%1)").arg(field)));
        choose("impmat");
    }

    QString printed() { return control<QPlainTextEdit>("Text5").toPlainText(); }
    /// Name as a dialog gives it.
    QString inFolder(const char* name) const
    {
        return QString::fromStdString((folder_.path() / name).string());
    }
};

}  // namespace quorvin::test
