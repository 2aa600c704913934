/// A small file, its print matrix and its print file in the real window.
#pragma once

#include <QPlainTextEdit>

#include "tests/support/WindowTest.h"

namespace quorvin::test {

inline QString text(const char* latin)
{
    return QString::fromLatin1(latin);
}

/// With what is written beside the open file.
class PrintingTest : public WindowTest {
protected:
    /// Chooses the printer's file and presses the button; true when there is a PDF now.
    bool printTo(const char* name)
    {
        dialogs_.pdf = inFolder(name);
        choose("impoststamp");
        click("Command4");
        return bytesOf(folder_.path() / name).starts_with("%PDF");
    }
    bool holds(const char* pdf, const std::string& part) const
    {
        return bytesOf(folder_.path() / pdf).find(part) != std::string::npos;
    }

    /// Systems name a font in this style with a dash or without.
    bool holdsFont(const char* pdf, const std::string& family, const std::string& style) const
    {
        return holds(pdf, family + "-" + style) || holds(pdf, family + style);
    }

    std::filesystem::path matrixFile() const { return folder_.path() / "prova.mtr"; }
    QString printed() { return control<QPlainTextEdit>("Text5").toPlainText(); }
    /// Name as a dialog gives it.
    QString inFolder(const char* name) const
    {
        return QString::fromStdString((folder_.path() / name).string());
    }
};

/// Name (6 characters), town (4), age (2); record 3 is deleted.
class OutputTest : public PrintingTest {
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
};

}  // namespace quorvin::test
