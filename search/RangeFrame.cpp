#include "search/RangeFrame.h"

#include <QFormLayout>
#include <QLineEdit>

#include "base/Text.h"
#include "view/AnsiText.h"

namespace quorvin {

namespace {

/// Above the lists, also when they are wide.
constexpr QRectF kPlace(99, 2.1, 24.125, 3.8);

constexpr int kLongestNumber = 20;

}  // namespace

RangeFrame::RangeFrame(QWidget* parent) :
    QFrame(parent),
    Text3(makeBox(QStringLiteral("Text3"), QStringLiteral("da rekord:"))),
    Text4(makeBox(QStringLiteral("Text4"), QStringLiteral("a rekord:")))
{
    setObjectName(QStringLiteral("Frame3"));
    setAccessibleName(QStringLiteral("ricerca parziale"));
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    auto* layout = new QFormLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->setVerticalSpacing(2);
    for (QLineEdit* box : {Text3, Text4})
        layout->addRow(box->accessibleName(), box);
    connect(Text3, &QLineEdit::returnPressed, Text4, qOverload<>(&QWidget::setFocus));
}

QLineEdit* RangeFrame::makeBox(const QString& name, const QString& purpose)
{
    auto* box = new QLineEdit(this);
    box->setObjectName(name);
    box->setAccessibleName(purpose);
    box->setMaxLength(kLongestNumber);
    box->setAcceptDrops(false);
    return box;
}

QRectF RangeFrame::place()
{
    return kPlace;
}

SearchRange RangeFrame::range() const
{
    return {val(toAnsi(Text3->text())), val(toAnsi(Text4->text()))};
}

}  // namespace quorvin
