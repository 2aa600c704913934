#include "search/HitLists.h"

#include <QFontMetrics>
#include <cmath>
#include <exception>

#include "base/RuntimeError.h"
#include "search/HitList.h"
#include "search/HitListModel.h"
#include "search/HitListView.h"
#include "view/FormScale.h"
#include "view/Navigator.h"
#include "view/RecordView.h"

namespace quorvin {

namespace {

constexpr QRectF kWidePlace(83, 6, 40, 35);
constexpr QRectF kUsualPlace(99, 16.5, 24.125, 23.813);

/// Pitch of the lists' font in columns: a line of List2 then fits beside the scroll bar.
constexpr double kPitch = 0.78;

RecordNumber wholeNumber(double number)
{
    constexpr double kBeyondAnyFile = 1e18;
    if (number != std::floor(number) || std::fabs(number) > kBeyondAnyFile)
        throw RuntimeError(ErrorNumber::invalidCall);
    return static_cast<RecordNumber>(number);
}

}  // namespace

HitLists::HitLists(const HitList& hits, Navigator& navigator, RecordView& recordView, QWidget* form) :
    QObject(form),
    List1(new HitListView(hits, QStringLiteral("List1"), QStringLiteral("elenco file cercati"), form)),
    List2(new HitListView(hits, QStringLiteral("List2"), QStringLiteral("elenco campi trovati"), form)),
    hits_(hits),
    navigator_(navigator),
    recordView_(recordView),
    model_(new HitListModel(hits, this))
{
    for (HitListView* list : {List1, List2}) {
        list->setModel(model_);
        list->hide();
    }
    connect(List1, &HitListView::lineClicked, this, &HitLists::List1_Click);
    connect(List2, &HitListView::lineClicked, this, &HitLists::List2_Click);
    connect(List1, &HitListView::rightPressed, this, &HitLists::List1_MouseDown);
    connect(List2, &HitListView::rightPressed, this, &HitLists::List2_MouseDown);
}

void HitLists::show(bool shown, bool sorted)
{
    List1->setVisible(shown && !sorted);
    List2->setVisible(shown && sorted);
}

HitListView* HitLists::shown() const
{
    if (!List1->isHidden()) return List1;
    return List2->isHidden() ? nullptr : List2;
}

QRectF HitLists::place(bool maxel)
{
    return maxel ? kWidePlace : kUsualPlace;
}

void HitLists::setScale(const FormScale& scale)
{
    const QFont font = scale.squeezedFont(kPitch);
    for (HitListView* list : {List1, List2})
        list->setFont(font);
    const QFontMetrics metrics(font);
    model_->setCharacterSize({metrics.horizontalAdvance(QLatin1Char('M')), scale.lineHeight()});
}

void HitLists::empty()
{
    model_->empty();
}

void HitLists::update(bool all)
{
    model_->update(all);
}

void HitLists::List1_Click(int row)
{
    showHit(*List1, row);
}

void HitLists::List2_Click(int row)
{
    showHit(*List2, row);
}

void HitLists::List1_MouseDown(int row)
{
    if (row >= 0) emit epiDataRequested();
}

void HitLists::List2_MouseDown(int row)
{
    if (row >= 0) emit epiDataRequested();
}

/// Shows the hit of a line; a click beside the lines only opens the file anew.
void HitLists::showHit(const HitListView& list, int row)
{
    try {
        navigator_.recount();
        recordView_.enableBoxes();
        if (row < 0) return;
        const HitListKind kind = &list == List1 ? HitListKind::List1 : HitListKind::List2;
        const std::string_view line = hits_.line(static_cast<std::size_t>(row));
        navigator_.showRecord(wholeNumber(recordNumberOf(kind, line)));
        elabcom();
    } catch (const std::exception&) {
        emit failed(currentError());
    }
}

}  // namespace quorvin
