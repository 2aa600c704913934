#include "search/RangeFrame.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "base/Text.h"
#include "view/AnsiText.h"

namespace quorvin {

namespace {

constexpr int kLongestNumber = 20;

}  // namespace

RangeFrame::RangeFrame(const QString& name, const QString& purpose, const QString& first, const QString& last,
                       Qt::Orientation direction, QWidget* parent) :
    QFrame(parent),
    from(makeBox(first, QStringLiteral("da rekord:"))),
    to(makeBox(last, QStringLiteral("a rekord:")))
{
    setObjectName(name);
    setAccessibleName(purpose);
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->setVerticalSpacing(2);
    for (QLineEdit* box : {from, to}) {
        const bool column = direction == Qt::Vertical;
        const int row = column ? layout->rowCount() : 0;
        auto* label = new QLabel(box->accessibleName(), this);
        label->setBuddy(box);
        layout->addWidget(label, row, column ? 0 : layout->columnCount());
        layout->addWidget(box, row, column ? 1 : layout->columnCount());
    }
    connect(from, &QLineEdit::returnPressed, to, qOverload<>(&QWidget::setFocus));
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

SearchRange RangeFrame::range() const
{
    return {val(toAnsi(from->text())), val(toAnsi(to->text()))};
}

}  // namespace quorvin
