#include "app/TextFrame.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace quorvin {

TextFrame::TextFrame(const QString& name, const QString& title, const QString& boxName, const char* text,
                     QWidget* parent) :
    TitledFrame(name, title, parent)
{
    box_ = new QPlainTextEdit(QString::fromUtf8(text), this);
    box_->setObjectName(boxName);
    box_->setAccessibleName(title);
    box_->setReadOnly(true);
    box_->setTabChangesFocus(true);
    box_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // The texts set words under each other.
    box_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setFocusProxy(box_);
    content()->addWidget(box_);
}

void TextFrame::showEvent(QShowEvent* event)
{
    TitledFrame::showEvent(event);
    if (!event->spontaneous()) box_->setFocus();
}

}  // namespace quorvin
