#include "output/FormatBar.h"

#include <QButtonGroup>
#include <QFontComboBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLineEdit>
#include <QPainter>
#include <QShortcut>
#include <QToolButton>
#include <array>

#include "output/DocumentEdit.h"
#include "view/Dialogs.h"

namespace quorvin {

namespace {

constexpr int kSizes[] = {8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 28, 36, 48, 72};
/// Points; to half a point.
constexpr double kSmallestSize = 1;
constexpr double kLargestSize = 1638;

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

/// Shows a text, which the box's list may have or not.
void showText(QComboBox& box, const QString& text)
{
    box.setCurrentIndex(box.findText(text));
    box.setEditText(text);
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
    font_->setObjectName(QStringLiteral("fontName"));
    font_->setAccessibleName(QStringLiteral("carattere"));
    font_->setToolTip(QStringLiteral("carattere"));
    font_->setMaximumWidth(220);
    size_->setObjectName(QStringLiteral("fontSize"));
    size_->setAccessibleName(QStringLiteral("dimensione in punti"));
    size_->setToolTip(QStringLiteral("dimensione in punti"));
    size_->setEditable(true);
    size_->setInsertPolicy(QComboBox::NoInsert);
    for (const int size : kSizes)
        size_->addItem(QString::number(size));
    connect(font_, &QComboBox::textActivated, this, [this](const QString& family) {
        QTextCharFormat format;
        format.setFontFamilies({family});
        apply(format);
    });
    connect(size_, &QComboBox::activated, this, &FormatBar::applySize);
    connect(size_->lineEdit(), &QLineEdit::returnPressed, this, &FormatBar::applySize);
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
        apply(format);
    });
    connect(italic_, &QToolButton::clicked, this, [this](bool on) {
        QTextCharFormat format;
        format.setFontItalic(on);
        apply(format);
    });
    connect(underline_, &QToolButton::clicked, this, [this](bool on) {
        QTextCharFormat format;
        format.setFontUnderline(on);
        apply(format);
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
    const QStringList families = format.fontFamilies().toStringList();
    const QFont usual = box_.document()->defaultFont();
    showText(*font_, families.isEmpty() ? usual.family() : families.constFirst());
    const double size = format.fontPointSize();
    showText(*size_, QString::number(size > 0 ? size : usual.pointSizeF()));
    bold_->setChecked(format.fontWeight() > QFont::Medium);
    italic_->setChecked(format.fontItalic());
    underline_->setChecked(format.fontUnderline());
    const bool own = format.foreground().style() != Qt::NoBrush;
    colour_->setIcon(
        colourIcon(own ? format.foreground().color() : box_.palette().color(QPalette::Text), *this));
}

void FormatBar::showAlignment()
{
    const Qt::Alignment alignment = box_.alignment();
    for (const AlignmentRow& row : kAlignments) {
        if (alignment & row.alignment) alignments_->button(row.alignment)->setChecked(true);
    }
}

void FormatBar::apply(const QTextCharFormat& format)
{
    box_.mergeCurrentCharFormat(format);
    box_.setFocus();
}

/// What is no size gives way to the size that is.
void FormatBar::applySize()
{
    bool isNumber = false;
    const double typed = size_->currentText().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
    if (isNumber && typed >= kSmallestSize && typed <= kLargestSize) {
        QTextCharFormat format;
        format.setFontPointSize(qRound(2 * typed) / 2.0);
        apply(format);
    }
    showFormat(box_.currentCharFormat());
}

void FormatBar::chooseColour()
{
    const QTextCharFormat format = box_.currentCharFormat();
    const bool own = format.foreground().style() != Qt::NoBrush;
    const auto chosen = dialogs_.chooseColour(own ? format.foreground().color() : QColor(Qt::black));
    if (!chosen) return;
    QTextCharFormat coloured;
    coloured.setForeground(*chosen);
    apply(coloured);
}

}  // namespace quorvin
