#include "stats/ChartPrintout.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <exception>

#include "base/OutputFile.h"
#include "base/RuntimeError.h"
#include "output/OverwriteQuestion.h"
#include "output/Printer.h"
#include "rec/RecFile.h"
#include "stats/ChartView.h"
#include "view/Dialogs.h"
#include "view/Messages.h"
#include "view/Utf8.h"

namespace quorvin {

namespace {

constexpr char kPictureName[] = "chart.jpg";
/// Per cent; fine lines stay clean.
constexpr int kQuality = 92;

}  // namespace

bool ChartPrintout::isShown() const
{
    return view_.isVisible();
}

void ChartPrintout::prepare()
{
    const std::filesystem::path name = recFile_.dataFileName().parent_path() / kPictureName;
    std::error_code ignored;
    const bool foreign = name != written_ && std::filesystem::exists(name, ignored);
    if (foreign && !askToOverwrite(dialogs_, QString::fromLatin1(kPictureName))) return;
    try {
        save(name);
        written_ = name;
    } catch (const std::exception&) {
        dialogs_.message(BoxIcon::critical,
                         fromUtf8Text(messages::kFileError) + fromUtf8Text(currentError().description()));
    }
}

void ChartPrintout::save(const std::filesystem::path& name) const
{
    if (isSameFile(name, recFile_.dataFileName())) throw RuntimeError(ErrorNumber::permissionDenied);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!chartPicture(view_.chart()).save(&buffer, "JPG", kQuality))
        throw RuntimeError(ErrorNumber::deviceError);
    OutputFile file;
    file.open(name);
    file.write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    file.commit();
}

void ChartPrintout::print(QPrinter& printer)
{
    QPainter painter;
    if (!painter.begin(&printer)) throw RuntimeError(ErrorNumber::deviceError);
    paintWholeChart(painter, view_.chart(),
                    QRectF(QPointF(), printer.pageRect(QPrinter::DevicePixel).size()));
    Printer::finish(painter, printer);
}

}  // namespace quorvin
