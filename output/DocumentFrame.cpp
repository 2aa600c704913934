#include "output/DocumentFrame.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "output/DocumentEdit.h"
#include "output/FormatBar.h"
#include "view/FormScale.h"
#include "view/Messages.h"
#include "view/TitleLabel.h"
#include "view/Utf8.h"

namespace quorvin {

namespace {

/// Size of the box while it is edited, 11250 x 2760 twips: a column of the form is 120 of them wide, a line
/// 240 high.
constexpr QRectF kEditPlace(0, 0, 11250 / 120.0, 2760 / 240.0);

}  // namespace

DocumentFrame::DocumentFrame(Dialogs& dialogs, QWidget* parent) :
    QFrame(parent),
    textcomunic_(new DocumentEdit(this))
{
    const QString title = fromUtf8Text(messages::kDocumentFrame);
    setObjectName(QStringLiteral("Frame9"));
    setAccessibleName(title);
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    textcomunic_->setObjectName(QStringLiteral("Textcomunic"));
    textcomunic_->setAccessibleName(QStringLiteral("testo del documento"));
    bar_ = new FormatBar(*textcomunic_, dialogs, this);

    auto* headLine = new QWidget(this);
    headLine->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* head = new QHBoxLayout(headLine);
    head->setContentsMargins(0, 0, 0, 0);
    head->setSpacing(12);
    head->addWidget(new TitleLabel(title, this));
    head->addWidget(bar_);
    head->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 4);
    layout->setSpacing(2);
    layout->addWidget(headLine);
    layout->addWidget(textcomunic_, 1);
    layout->addStretch();
    setEditing(false);
}

void DocumentFrame::setEditing(bool editing)
{
    editing_ = editing;
    bar_->setVisible(editing);
    textcomunic_->setReadOnly(!editing);
    // Also a letter that is only read can be gone through and copied from by keyboard.
    if (!editing)
        textcomunic_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    resizeBox();
}

void DocumentFrame::setScale(const FormScale& scale)
{
    editSize_ = scale.rect(kEditPlace).size();
    resizeBox();
}

void DocumentFrame::resizeBox()
{
    textcomunic_->setMaximumSize(editing_ ? editSize_ : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

void DocumentFrame::setTabOrderAfter(QWidget* control)
{
    setTabOrder(bar_->setTabOrderAfter(control), textcomunic_);
}

}  // namespace quorvin
