#include "app/FormPlaces.h"

#include <QRectF>
#include <QScrollArea>
#include <algorithm>

#include "app/FormCanvas.h"
#include "output/DocumentPanel.h"
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

/// First lines of the frames below the record, each alone; and of several, from above.
constexpr double kStatTop = 20;
constexpr double kDocumentTop = 18;
constexpr double kTemplateTop = 27.5;
constexpr double kPrintTop = 26;
constexpr double kSharedTops[][3] = {{12, 26}, {6, 16, 28}};

/// Columns that a template takes while it is written.
constexpr double kTemplateColumns = 95.5;

}  // namespace

FormPlaces::FormPlaces(const FormParts& parts) : parts_(parts)
{
    parts_.canvas.place(&parts_.navigator, kNavigatorPlace);
    parts_.canvas.place(&parts_.search.Frame3(), SearchPanel::kFrame3Place);
    update();
}

/// Those that are shown, from above.
QList<FormPlaces::LowerPart> FormPlaces::lowerParts() const
{
    DocumentFrame& document = parts_.document.frame();
    const bool editing = document.isEditing();
    QList<LowerPart> parts = {
        {&parts_.statistics.frame(), kStatTop},
        {&document, editing ? kTemplateTop : kDocumentTop, editing ? kTemplateColumns : 0},
        {&parts_.output.printFrame(), kPrintTop},
    };
    parts.removeIf([](const LowerPart& part) { return part.frame->isHidden(); });
    if (parts.size() < 2) return parts;
    for (qsizetype i = 0; i < parts.size(); ++i)
        parts[i].top = kSharedTops[parts.size() - 2][i];
    return parts;
}

void FormPlaces::update()
{
    const HitLists& lists = parts_.search.lists();
    const QRectF place = HitLists::place(parts_.menu.isTicked(QStringLiteral("maxel")));
    parts_.canvas.place(lists.List1, place);
    parts_.canvas.place(lists.List2, place);

    QRectF record = kRecordPlace;
    if (!parts_.search.Frame3().isHidden()) record.setRight(SearchPanel::kFrame3Place.left());
    if (lists.shown()) record.setRight(place.left());
    const StatFrame& statFrame = parts_.statistics.frame();
    const bool enlarged = !statFrame.isHidden() && statFrame.isEnlarged();
    const double right = lists.shown() || enlarged ? record.right() : 0;
    QList<LowerPart> lower = lowerParts();
    if (enlarged) lower[0].top = record.top();
    if (!lower.isEmpty()) record.setBottom(lower[0].top);
    for (qsizetype i = 0; i < lower.size(); ++i) {
        const double most = lower[i].most;
        const double width = most > 0 && right > 0 ? std::min(most, right) : std::max(most, right);
        const double bottom = i + 1 < lower.size() ? lower[i + 1].top : 0;
        const double height = bottom > 0 ? bottom - lower[i].top : 0;
        parts_.canvas.place(lower[i].frame, QRectF(0, lower[i].top, width, height));
    }
    // Behind an enlarged table its boxes would still take keys.
    parts_.record.setVisible(!enlarged);
    parts_.canvas.place(&parts_.record, record);
}

void FormPlaces::bringIntoSight(const QWidget& frame)
{
    if (frame.isHidden()) return;
    const QRect place = frame.geometry();
    parts_.scroll.ensureVisible(place.right(), place.bottom(), 0, 0);
    parts_.scroll.ensureVisible(place.left(), place.top(), 0, 0);
}

}  // namespace quorvin
