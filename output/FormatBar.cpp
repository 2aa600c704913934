#include "output/FormatBar.h"

#include <QButtonGroup>
#include <QFontComboBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QShortcut>
#include <QToolButton>
#include <algorithm>
#include <array>

#include "output/DocumentEdit.h"
#include "view/Dialogs.h"

namespace quorvin {

namespace {

constexpr int kSizes[] = {8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 28, 36, 48, 72};
/// Points; sizes are rounded to half a point.
constexpr double kSmallestSize = 1;

/// Pixels.
constexpr int kFontWidth = 220;

constexpr int kIconSide = 16;
constexpr int kIconLines = 4;

struct AlignmentRow {
    Qt::AlignmentFlag alignment;
    const char* name;
    const char* purpose;
    std::array<int, kIconLines> widths;  ///< of the icon's lines
};

constexpr AlignmentRow kAlignments[] = {
    {Qt::AlignLeft, "alignLeft", "allinea a sinistra", {14, 9, 14, 7}},
    {Qt::AlignHCenter, "alignCentre", "centra", {14, 8, 14, 6}},
    {Qt::AlignRight, "alignRight", "allinea a destra", {14, 9, 14, 7}},
    {Qt::AlignJustify, "alignJustify", "giustifica", {14, 14, 14, 14}},
};

QPixmap blankIcon(const QWidget& widget)
{
    QPixmap picture(QSize(kIconSide, kIconSide) * widget.devicePixelRatioF());
    picture.setDevicePixelRatio(widget.devicePixelRatioF());
    picture.fill(Qt::transparent);
    return picture;
}

QIcon alignmentIcon(const AlignmentRow& row, const QWidget& widget)
{
    constexpr int kSpacing = 4;
    QPixmap picture = blankIcon(widget);
    QPainter painter(&picture);
    const QColor ink = widget.palette().color(QPalette::ButtonText);
    for (int i = 0; i < kIconLines; ++i) {
        const int width = row.widths[static_cast<std::size_t>(i)];
        int left = 1;
        if (row.alignment == Qt::AlignHCenter) left = (kIconSide - width) / 2;
        if (row.alignment == Qt::AlignRight) left = kIconSide - 1 - width;
        painter.fillRect(left, 1 + i * kSpacing, width, 2, ink);
    }
    return picture;
}

/// A letter over a bar of the colour.
QIcon colourIcon(const QColor& colour, const QWidget& widget)
{
    constexpr int kBar = 4;
    QPixmap picture = blankIcon(widget);
    QPainter painter(&picture);
    QFont font = widget.font();
    font.setBold(true);
    font.setPixelSize(kIconSide - kBar);
    painter.setFont(font);
    painter.setPen(widget.palette().color(QPalette::ButtonText));
    painter.drawText(QRect(0, -1, kIconSide, kIconSide - kBar + 1), Qt::AlignCenter, QStringLiteral("A"));
    painter.fillRect(0, kIconSide - kBar, kIconSide, kBar, colour);
    return picture;
}

}  // namespace

FormatBar::FormatBar(DocumentEdit& box, Dialogs& dialogs, QWidget* parent) :
    QWidget(parent),
    box_(box),
    dialogs_(dialogs),
    font_(new QFontComboBox(this)),
    size_(new QComboBox(this)),
    alignments_(new QButtonGroup(this))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    row->addWidget(font_);
    row->addWidget(size_);
    makeFontBoxes();
    makeToggles();
    makeAlignments();
    makeColour();
    connect(&box_, &QTextEdit::currentCharFormatChanged, this, &FormatBar::showFormat);
    connect(&box_, &QTextEdit::cursorPositionChanged, this, &FormatBar::showAlignment);
    connect(&box_, &QTextEdit::textChanged, this, &FormatBar::showAlignment);
    showFormat(box_.currentCharFormat());
    showAlignment();
}

QWidget* FormatBar::setTabOrderAfter(QWidget* control)
{
    for (int i = 0; i < layout()->count(); ++i) {
        QWidget* next = layout()->itemAt(i)->widget();
        setTabOrder(control, next);
        control = next;
    }
    return control;
}

void FormatBar::makeFontBoxes()
{
    makeEditable(*font_, "fontName", QStringLiteral("carattere"), &FormatBar::applyFont);
    makeEditable(*size_, "fontSize", QStringLiteral("dimensione in punti"), &FormatBar::applySize);
    font_->setMaximumWidth(kFontWidth);
    for (const int size : kSizes)
        size_->addItem(QString::number(size));
}

/// Has a list apply what is chosen, or typed and left. By mouse or Enter one is back in the text then.
void FormatBar::makeEditable(QComboBox& box, const char* name, const QString& purpose,
                             void (FormatBar::*take)())
{
    box.setObjectName(QLatin1String(name));
    box.setAccessibleName(purpose);
    box.setToolTip(purpose);
    box.setEditable(true);
    box.setInsertPolicy(QComboBox::NoInsert);
    // While a size is typed it is not to become a longer one of the list.
    if (&box == size_) box.setCompleter(nullptr);
    box.installEventFilter(this);
    box.lineEdit()->installEventFilter(this);
    connect(&box, &QComboBox::activated, this, [this, take] {
        (this->*take)();
        if (!viaKeys_) box_.setFocus();
    });
    connect(box.lineEdit(), &QLineEdit::editingFinished, this, [this, take, &box] {
        if (box.lineEdit()->isModified()) (this->*take)();
    });
    connect(box.lineEdit(), &QLineEdit::returnPressed, this, [this] { box_.setFocus(); });
}

bool FormatBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) viaKeys_ = true;
    if (event->type() == QEvent::MouseButtonPress) viaKeys_ = false;
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        showFormat(box_.currentCharFormat());
        box_.setFocus();
        return true;
    }
    if (event->type() != QEvent::Wheel) return QWidget::eventFilter(watched, event);
    // Turned in passing, it must not format the letter.
    event->ignore();
    return true;
}

QToolButton* FormatBar::addButton(const char* name, const QString& purpose)
{
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(purpose);
    button->setToolTip(purpose);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIconSize(QSize(kIconSide, kIconSide));
    layout()->addWidget(button);
    return button;
}

QToolButton* FormatBar::addToggle(const char* name, const QString& caption, const QString& purpose,
                                  const QKeySequence& keys)
{
    const QString shown = keys.toString(QKeySequence::NativeText);
    QToolButton* button = addButton(name, QStringLiteral("%1 (%2)").arg(purpose, shown));
    button->setText(caption);
    button->setCheckable(true);
    // A button's own shortcut acts a moment later only, when the next letter may have been typed already.
    auto* shortcut = new QShortcut(keys, parentWidget(), nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, button, [this, button] {
        if (isVisible()) button->click();
    });
    return button;
}

/// In Italian: grassetto, corsivo, sottolineato.
void FormatBar::makeToggles()
{
    bold_ = addToggle("bold", QStringLiteral("G"), QStringLiteral("grassetto"), QKeySequence::Bold);
    italic_ = addToggle("italic", QStringLiteral("C"), QStringLiteral("corsivo"), QKeySequence::Italic);
    underline_ =
        addToggle("underline", QStringLiteral("S"), QStringLiteral("sottolineato"), QKeySequence::Underline);
    const auto show = [](QToolButton* button, void (QFont::*set)(bool)) {
        QFont font = button->font();
        (font.*set)(true);
        button->setFont(font);
    };
    show(bold_, &QFont::setBold);
    show(italic_, &QFont::setItalic);
    show(underline_, &QFont::setUnderline);
    connect(bold_, &QToolButton::clicked, this, [this](bool on) {
        QTextCharFormat format;
        format.setFontWeight(on ? QFont::Bold : QFont::Normal);
        applyAndGoOn(format);
    });
    connect(italic_, &QToolButton::clicked, this, [this](bool on) {
        QTextCharFormat format;
        format.setFontItalic(on);
        applyAndGoOn(format);
    });
    connect(underline_, &QToolButton::clicked, this, [this](bool on) {
        QTextCharFormat format;
        format.setFontUnderline(on);
        applyAndGoOn(format);
    });
}

void FormatBar::makeAlignments()
{
    for (const AlignmentRow& row : kAlignments) {
        QToolButton* button = addButton(row.name, QLatin1String(row.purpose));
        button->setIcon(alignmentIcon(row, *this));
        button->setCheckable(true);
        alignments_->addButton(button, row.alignment);
    }
    connect(alignments_, &QButtonGroup::idClicked, this, [this](int alignment) {
        box_.setAlignment(static_cast<Qt::AlignmentFlag>(alignment));
        box_.setFocus();
    });
}

void FormatBar::makeColour()
{
    colour_ = addButton("colour", QStringLiteral("colore del testo"));
    connect(colour_, &QToolButton::clicked, this, &FormatBar::chooseColour);
}

void FormatBar::showFormat(const QTextCharFormat& format)
{
    // The name as the document has it, also where this system has another font for it.
    const QString family = format.fontFamilies().toStringList().value(0, box_.font().family());
    font_->setCurrentIndex(font_->findText(family));
    font_->setEditText(family);
    const double size = format.fontPointSize() > 0 ? format.fontPointSize() : box_.font().pointSizeF();
    // Keys go on from here also where the list lacks the size.
    const auto larger = std::upper_bound(std::begin(kSizes), std::end(kSizes), size);
    size_->setCurrentIndex(std::max(0, static_cast<int>(larger - std::begin(kSizes)) - 1));
    size_->setEditText(QString::number(size));
    bold_->setChecked(format.fontWeight() > QFont::Medium);
    italic_->setChecked(format.fontItalic());
    underline_->setChecked(format.fontUnderline());
    colour_->setIcon(colourIcon(colour(), *this));
}

void FormatBar::showAlignment()
{
    const Qt::Alignment alignment = box_.alignment();
    for (const AlignmentRow& row : kAlignments) {
        if (alignment & row.alignment) alignments_->button(row.alignment)->setChecked(true);
    }
}

/// Of the text at the caret.
QColor FormatBar::colour() const
{
    const QBrush own = box_.currentCharFormat().foreground();
    return own.style() == Qt::NoBrush ? box_.palette().color(QPalette::Text) : own.color();
}

void FormatBar::apply(const QTextCharFormat& format)
{
    if (format.propertyCount() > 0) box_.mergeCurrentCharFormat(format);
    showFormat(box_.currentCharFormat());
}

/// What was typed into a list and not left yet comes first.
void FormatBar::applyAndGoOn(const QTextCharFormat& format)
{
    if (font_->lineEdit()->isModified()) applyFont();
    if (size_->lineEdit()->isModified()) applySize();
    apply(format);
    box_.setFocus();
}

/// What is no font of this system gives way to the font that is; sizes likewise.
void FormatBar::applyFont()
{
    QTextCharFormat format;
    const int index = font_->findText(font_->currentText(), Qt::MatchFixedString);
    if (index >= 0) format.setFontFamilies({font_->itemText(index)});
    apply(format);
}

void FormatBar::applySize()
{
    bool isNumber = false;
    const double typed = size_->currentText().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
    QTextCharFormat format;
    if (isNumber && typed >= kSmallestSize && typed <= kMostHalfPoints / 2.0)
        format.setFontPointSize(qRound(2 * typed) / 2.0);
    apply(format);
}

void FormatBar::chooseColour()
{
    const auto chosen = dialogs_.chooseColour(colour());
    if (!chosen) return;
    QTextCharFormat coloured;
    coloured.setForeground(*chosen);
    applyAndGoOn(coloured);
}

}  // namespace quorvin
