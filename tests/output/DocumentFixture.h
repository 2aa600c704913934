/// The document's box in the real window.
#pragma once

#include <QTest>

#include "output/DocumentEdit.h"
#include "tests/output/OutputFixture.h"

namespace quorvin::test {

class DocumentTest : public OutputTest {
protected:
    DocumentEdit& box() { return control<DocumentEdit>("Textcomunic"); }
    QString shown() { return box().toPlainText(); }
    QTextCharFormat formatAt(int position)
    {
        QTextCursor cursor(box().document());
        cursor.setPosition(position + 1);
        return cursor.charFormat();
    }
    void write(const char* words) { QTest::keyClicks(&box(), text(words)); }
    /// Selects from one position to another, where the caret stands then.
    void select(int from, int to)
    {
        QTextCursor cursor(box().document());
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        box().setTextCursor(cursor);
    }
    /// Opens the file with a stored template.
    void openWith(const std::string& document)
    {
        folder_.write("prova.mtr", "\r\n 0\r\n\"" + document + "\"\r\n");
        openFile(file());
    }
};

}  // namespace quorvin::test
