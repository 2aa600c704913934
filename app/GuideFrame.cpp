#include "app/GuideFrame.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "app/BuiltInTexts.h"
#include "view/Messages.h"
#include "view/Utf8.h"

namespace quorvin {

GuideFrame::GuideFrame(QWidget* parent) :
    TextFrame(QStringLiteral("Frame7"), fromUtf8Text(messages::kGuideFrame), QStringLiteral("Text7"),
              guideText(), parent)
{
    auto* button = new QPushButton(fromUtf8Text(messages::kFullGuide), this);
    button->setObjectName(QStringLiteral("fullGuide"));
    const QString purpose = QStringLiteral("apre la guida completa in un'altra finestra (Alt+G)");
    button->setToolTip(purpose);
    button->setAccessibleName(QStringLiteral("guida completa"));
    button->setAccessibleDescription(purpose);
    connect(button, &QPushButton::clicked, this, &GuideFrame::fullGuideRequested);
    content()->addWidget(button, 0, Qt::AlignRight);
}

}  // namespace quorvin
