#include "output/DocumentPrintout.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QPainter>
#include <QPrinter>
#include <QScreen>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <memory>

#include "base/RuntimeError.h"
#include "output/DocumentEdit.h"
#include "output/DocumentFrame.h"
#include "output/Printer.h"

namespace quorvin {

namespace {

/// What a letter leaves blank on each side beyond the printer's own margin, in inches.
constexpr double kLetterMargin = 10 / 25.4;

[[noreturn]] void fail()
{
    throw RuntimeError(ErrorNumber::deviceError);
}

/// Indents stay pixels of the screen where all other lengths follow the device.
void scaleIndents(QTextDocument& document, double scale)
{
    QTextCursor cursor(&document);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        format.setLeftMargin(format.leftMargin() * scale);
        format.setRightMargin(format.rightMargin() * scale);
        format.setTextIndent(format.textIndent() * scale);
        cursor.setPosition(block.position());
        cursor.setBlockFormat(format);
    }
}

void drawPage(QPainter& painter, const QTextDocument& document, int page, QPointF corner)
{
    const QSizeF size = document.pageSize();
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = QRectF(QPointF(0, page * size.height()), size);
    context.palette.setColor(QPalette::Text, Qt::black);
    painter.save();
    painter.translate(corner - context.clip.topLeft());
    painter.setClipRect(context.clip);
    document.documentLayout()->draw(&painter, context);
    painter.restore();
}

}  // namespace

bool DocumentPrintout::isShown() const
{
    return frame_.isVisible();
}

bool DocumentPrintout::isEmpty() const
{
    return frame_.Textcomunic().document()->isEmpty();
}

void DocumentPrintout::print(QPrinter& printer)
{
    QPainter painter;
    if (!painter.begin(&printer)) fail();
    const QPointF corner(kLetterMargin * printer.logicalDpiX(), kLetterMargin * printer.logicalDpiY());
    const QSizeF whole = printer.pageRect(QPrinter::DevicePixel).size();
    const std::unique_ptr<QTextDocument> paper(frame_.Textcomunic().document()->clone());
    scaleIndents(*paper, printer.logicalDpiY() / QGuiApplication::primaryScreen()->logicalDotsPerInchY());
    paper->documentLayout()->setPaintDevice(&printer);
    paper->setDocumentMargin(0);
    paper->setPageSize(whole - QSizeF(2 * corner.x(), 2 * corner.y()));
    for (int page = 0; page < paper->pageCount(); ++page) {
        if (page > 0 && !printer.newPage()) fail();
        drawPage(painter, *paper, page, corner);
    }
    Printer::finish(painter, printer);
}

}  // namespace quorvin
