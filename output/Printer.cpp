#include "output/Printer.h"

#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTextLayout>

#include "base/OutputFile.h"
#include "base/RuntimeError.h"
#include "view/Dialogs.h"

namespace quorvin {

namespace {

/// Millimetres on each side of a page: a line of 78 characters in the usual font, and a margin of 11, have
/// room on A4.
constexpr double kPageMargin = 10;

[[noreturn]] void fail()
{
    throw RuntimeError(ErrorNumber::deviceError);
}

/// Puts lines on pages from the top.
class PageWriter {
public:
    PageWriter(QPrinter& printer, const QFont& font) :
        printer_(printer),
        font_(font, &printer),
        metrics_(font_, &printer)
    {
        if (!painter_.begin(&printer)) fail();
        painter_.setFont(font_);
        page_ = printer.pageRect(QPrinter::DevicePixel).size();
    }

    void writeLine(const QString& text)
    {
        QTextLayout layout(text, font_, &printer_);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        const double indent = indentOf(text);
        layout.beginLayout();
        for (double left = 0;; left = indent) {
            QTextLine line = layout.createLine();
            if (!line.isValid()) break;
            line.setLineWidth(page_.width() - left);
            line.setPosition({left, 0});
        }
        layout.endLayout();
        for (int i = 0; i < layout.lineCount(); ++i) {
            makeRoom();
            layout.lineAt(i).draw(&painter_, QPointF(0, y_));
            y_ += metrics_.lineSpacing();
        }
    }

    void finish() { Printer::finish(painter_, printer_); }

private:
    /// Width of the blanks at the beginning; none where they leave no room for text.
    double indentOf(const QString& text) const
    {
        qsizetype blanks = 0;
        while (blanks < text.size() && text[blanks] == QLatin1Char(' '))
            ++blanks;
        const double width = metrics_.horizontalAdvance(text.left(blanks));
        return width < page_.width() / 2 ? width : 0;
    }

    void makeRoom()
    {
        if (y_ + metrics_.height() <= page_.height()) return;
        if (!printer_.newPage()) fail();
        y_ = 0;
    }

    QPrinter& printer_;
    QFont font_;
    QFontMetricsF metrics_;
    QPainter painter_;
    QSizeF page_;
    double y_ = 0;
};

bool isFile(const QPrinter& printer)
{
    return printer.outputFormat() == QPrinter::PdfFormat;
}

}  // namespace

Printer::Printer() : font(usualFont()) {}

Printer::~Printer() = default;

QFont Printer::usualFont()
{
    QFont courier(QStringLiteral("Courier new"), 10);
    courier.setStyleHint(QFont::Monospace);
    courier.setFixedPitch(true);
    return courier;
}

QPrinter& Printer::printer()
{
    if (!printer_) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        const QMarginsF margins(kPageMargin, kPageMargin, kPageMargin, kPageMargin);
        printer_->setPageMargins(margins, QPageLayout::Millimeter);
    }
    return *printer_;
}

void Printer::setUp(Dialogs& dialogs)
{
    if (!dialogs.setUpPrinter(printer())) return;
    // The dialog has asked about a file that is there.
    printedTo_.clear();
}

bool Printer::isReachable()
{
    return isFile(printer()) ? !printer().outputFileName().isEmpty() : printer().isValid();
}

QString Printer::fileToReplace()
{
    const QString name = isFile(printer()) ? printer().outputFileName() : QString();
    return name == printedTo_ && QFileInfo::exists(name) ? name : QString();
}

void Printer::print(const Drawing& drawing, const std::filesystem::path& source)
{
    if (!isReachable()) fail();
    printer().setDocName(QFileInfo(source).fileName());
    printer().setColorMode(stampcol ? QPrinter::Color : QPrinter::GrayScale);
    if (isFile(printer())) {
        const QString target = printer().outputFileName();
        if (isSameFile(QFileInfo(target).filesystemAbsoluteFilePath(), source))
            throw RuntimeError(ErrorNumber::permissionDenied);
        printToFile(drawing, target);
    } else {
        drawing(printer());
    }
}

void Printer::finish(QPainter& painter, const QPrinter& printer)
{
    const bool ended = painter.end();
    const QPrinter::PrinterState state = printer.printerState();
    if (!ended || state == QPrinter::Error || state == QPrinter::Aborted) fail();
}

void Printer::drawText(QPrinter& printer, const QString& text, const QFont& font)
{
    PageWriter pages(printer, font);
    // What ends the last line begins no further one.
    const QString lines = text.endsWith(QLatin1Char('\n')) ? text.chopped(1) : text;
    for (const QString& line : lines.split(QLatin1Char('\n')))
        pages.writeLine(line);
    pages.finish();
}

/// By way of a temporary file, for what writes PDF does not say when the disk is full.
void Printer::printToFile(const Drawing& drawing, const QString& target)
{
    const QTemporaryDir folder;
    QFile pdf(folder.filePath(QStringLiteral("stampa.pdf")));
    printer().setOutputFileName(pdf.fileName());
    try {
        drawing(printer());
    } catch (const RuntimeError&) {
        printer().setOutputFileName(target);
        throw;
    }
    printer().setOutputFileName(target);
    if (!pdf.open(QIODevice::ReadOnly)) fail();
    const QByteArray bytes = pdf.readAll();
    if (!bytes.trimmed().endsWith("%%EOF")) fail();
    OutputFile file;
    file.open(QFileInfo(target).filesystemAbsoluteFilePath());
    file.write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    file.commit();
    printedTo_ = target;
}

}  // namespace quorvin
