#include "output/PrintFrame.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QToolButton>
#include <QVBoxLayout>

#include "output/PrintFile.h"
#include "search/RangeFrame.h"
#include "view/AnsiText.h"
#include "view/TitleLabel.h"

namespace quorvin {

namespace {

/// Takes nothing but text: some versions of Qt crash on an empty clipboard.
class TextBox : public QPlainTextEdit {
public:
    using QPlainTextEdit::QPlainTextEdit;

protected:
    void insertFromMimeData(const QMimeData* source) override
    {
        if (source->hasText()) QPlainTextEdit::insertFromMimeData(source);
    }
};

}  // namespace

PrintFrame::PrintFrame(QWidget* parent) :
    QFrame(parent),
    frame8_(new RangeFrame(QStringLiteral("Frame8"), QStringLiteral("rekord da stampare"),
                           QStringLiteral("Text8"), QStringLiteral("Text9"), Qt::Horizontal, this)),
    Text5(new TextBox(this)),
    fill_(new QLabel(this)),
    close_(new QToolButton(this))
{
    setObjectName(QStringLiteral("printFrame"));
    setAccessibleName(QStringLiteral("file di stampa"));
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    Text5->setObjectName(QStringLiteral("Text5"));
    Text5->setAccessibleName(QStringLiteral("testo del file di stampa"));
    Text5->setLineWrapMode(QPlainTextEdit::NoWrap);
    Text5->setTabChangesFocus(true);
    // A file dropped anywhere on the window is to be opened.
    Text5->setAcceptDrops(false);
    close_->setText(QStringLiteral("×"));
    close_->setAutoRaise(true);
    close_->setAccessibleName(QStringLiteral("chiudi"));
    close_->setToolTip(QStringLiteral("chiudi (Esc)"));
    connect(close_, &QToolButton::clicked, this, &PrintFrame::closeRequested);
    for (QWidget* box : std::initializer_list<QWidget*>{frame8_->from, frame8_->to, Text5})
        box->installEventFilter(this);
    connect(frame8_->to, &QLineEdit::textChanged, this, &PrintFrame::Text9_Change);
    connect(frame8_->to, &QLineEdit::returnPressed, this, &PrintFrame::Text9_KeyPress);
    connect(Text5, &QPlainTextEdit::textChanged, this, &PrintFrame::showFill);
    layOut();
}

void PrintFrame::layOut()
{
    auto* head = new QHBoxLayout;
    head->setSpacing(12);
    head->addWidget(new TitleLabel(QStringLiteral("file di stampa"), this));
    head->addWidget(frame8_);
    head->addStretch();
    head->addWidget(fill_);
    head->addWidget(close_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 4);
    layout->setSpacing(2);
    layout->addLayout(head);
    layout->addWidget(Text5, 1);
}

void PrintFrame::show(const PrintFile& printFile)
{
    const std::string_view text = printFile.text();
    if (printFile.edition() != edition_) {
        Text5->setPlainText(fromAnsi(text));
    } else if (text.size() > shown_) {
        QTextCursor end(Text5->document());
        end.movePosition(QTextCursor::End);
        end.insertText(fromAnsi(text.substr(shown_)));
        Text5->document()->setModified(false);
    }
    edition_ = printFile.edition();
    shown_ = text.size();
    full_ = printFile.isFull();
    showFill();
}

/// Line ends count as two characters, as in the print file.
void PrintFrame::showFill()
{
    const QLocale italian(QLocale::Italian);
    const int characters = Text5->document()->characterCount() + Text5->blockCount() - 2;
    const auto capacity = static_cast<int>(PrintFile::kCapacity);
    fill_->setText(full_ && !Text5->document()->isModified()
                       ? QStringLiteral("pieno: il resto manca (32K)")
                       : QStringLiteral("%1 caratteri di %2")
                             .arg(italian.toString(characters), italian.toString(capacity)));
}

QString PrintFrame::text() const
{
    return Text5->toPlainText();
}

void PrintFrame::setTextFont(const QFont& font)
{
    Text5->setFont(font);
}

QFont PrintFrame::textFont() const
{
    return Text5->font();
}

void PrintFrame::focusText()
{
    Text5->setFocus();
}

void PrintFrame::setTabOrderAfter(QWidget* control)
{
    QWidget* const controls[] = {frame8_->from, frame8_->to, Text5, close_};
    for (QWidget* next : controls) {
        setTabOrder(control, next);
        control = next;
    }
}

void PrintFrame::setClosable(bool closable)
{
    close_->setVisible(closable);
}

bool PrintFrame::isClosable() const
{
    return !close_->isHidden();
}

bool PrintFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        // Enter held down prints the interval once, and does not go on in the text that it leads to.
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->isAutoRepeat() && enterIsDown_) return true;
        enterIsDown_ = event->type() == QEvent::KeyPress && watched == frame8_->to &&
                       key->matches(QKeySequence::InsertParagraphSeparator);
    }
    const bool pressed = event->type() == QEvent::MouseButtonPress &&
                         static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    if (pressed && watched == frame8_->from) emit Text8_Click();
    if (pressed && watched == frame8_->to) emit Text9_Click();
    return QFrame::eventFilter(watched, event);
}

}  // namespace quorvin
