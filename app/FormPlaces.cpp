#include "app/FormPlaces.h"

#include <QRectF>

#include "app/FormCanvas.h"
#include "output/OutputPanel.h"
#include "search/HitListView.h"
#include "search/SearchPanel.h"
#include "stats/StatPanel.h"
#include "view/MenuState.h"
#include "view/Navigator.h"
#include "view/RecordView.h"

namespace quorvin {

namespace {

/// Places on the form: left, top, width, height in columns and lines; 0 reaches to the edge.
constexpr QRectF kNavigatorPlace(0, 0, 0, RecordView::kTopLines);
constexpr QRectF kRecordPlace(0, RecordView::kTopLines, 0, 0);

/// First lines of the print file and of the statistics, below which the record gives way to them.
constexpr double kPrintTop = 26;
constexpr double kStatTop = 20;
/// And when both are shown.
constexpr double kStatTopAbovePrint = 12;

}  // namespace

FormPlaces::FormPlaces(const FormParts& parts) : parts_(parts)
{
    parts_.canvas.place(&parts_.navigator, kNavigatorPlace);
    parts_.canvas.place(&parts_.search.Frame3(), SearchPanel::kFrame3Place);
    update();
}

void FormPlaces::update()
{
    const HitLists& lists = parts_.search.lists();
    const QRectF place = HitLists::place(parts_.menu.isTicked(QStringLiteral("maxel")));
    parts_.canvas.place(lists.List1, place);
    parts_.canvas.place(lists.List2, place);
    PrintFrame& printFrame = parts_.output.printFrame();
    StatFrame& statFrame = parts_.statistics.frame();
    const bool prints = !printFrame.isHidden();
    const bool counts = !statFrame.isHidden();
    const bool enlarged = counts && statFrame.isEnlarged();

    QRectF record = kRecordPlace;
    if (!parts_.search.Frame3().isHidden()) record.setRight(SearchPanel::kFrame3Place.left());
    if (lists.shown()) record.setRight(place.left());
    const double right = lists.shown() || enlarged ? record.right() : 0;
    const double usualTop = prints ? kStatTopAbovePrint : kStatTop;
    const double statTop = enlarged ? record.top() : usualTop;
    const QRectF print(0, kPrintTop, right, 0);
    const QRectF stat(0, statTop, right, prints ? kPrintTop - statTop : 0);
    if (prints) record.setBottom(kPrintTop);
    if (counts) record.setBottom(statTop);
    // Behind an enlarged table its boxes would still take keys.
    parts_.record.setVisible(!enlarged);
    parts_.canvas.place(&printFrame, print);
    parts_.canvas.place(&statFrame, stat);
    parts_.canvas.place(&parts_.record, record);
}

}  // namespace quorvin
