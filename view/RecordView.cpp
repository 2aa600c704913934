#include "view/RecordView.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSlider>
#include <QWheelEvent>
#include <algorithm>

#include "base/Text.h"
#include "view/AnsiText.h"
#include "view/FieldBox.h"

namespace quorvin {

namespace {

constexpr int kOffsetLowest = -200;
constexpr int kOffsetLowestIncompatible = -10;
constexpr int kOffsetHighest = 200;
constexpr int kSpacingLowest = 50;
constexpr int kSpacingNormal = 100;
constexpr int kSpacingHighest = 200;

/// Fields that the form shows without scrolling.
constexpr int kFieldsWithoutScrolling = 22;

/// Characters of a question that are shown; only a damaged file has longer ones.
constexpr qsizetype kMostCaption = 500;

QString elementName(const char* array, int n)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(n);
}

QLabel* captionFor(QWidget* control, const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setBuddy(control);
    return label;
}

QSlider* makeSlider(const QString& name, const QString& purpose, int lowest, int highest, int value,
                    QWidget* parent)
{
    auto* slider = new QSlider(Qt::Horizontal, parent);
    slider->setObjectName(name);
    slider->setAccessibleName(purpose);
    slider->setToolTip(purpose);
    slider->setRange(lowest, highest);
    slider->setPageStep(10);
    slider->setValue(value);
    slider->setMinimumWidth(60);
    slider->setMaximumWidth(150);
    return slider;
}

}  // namespace

RecordView::RecordView(QWidget* parent) :
    QWidget(parent),
    scale_(FormScale::fitting(FormScale::smallestForm())),
    VScroll1(new QScrollBar(Qt::Vertical, this))
{
    makeScaleBar();
    VScroll1->setObjectName(QStringLiteral("VScroll1"));
    VScroll1->setAccessibleName(QStringLiteral("scorrimento verticale"));
    VScroll1->hide();
    // valueChanged covers both the end of a scroll and the scroll under way.
    connect(VScroll1, &QScrollBar::valueChanged, this, &RecordView::VScroll1_Change);
}

void RecordView::makeScaleBar()
{
    scaleBar_ = new QWidget(this);
    auto* layout = new QHBoxLayout(scaleBar_);
    layout->setContentsMargins(0, 0, 0, 0);
    Slider1 = makeSlider(QStringLiteral("Slider1"), QStringLiteral("spostamento orizzontale"), kOffsetLowest,
                         kOffsetHighest, 0, scaleBar_);
    Slider2 = makeSlider(QStringLiteral("Slider2"), QStringLiteral("spaziatura verticale in percento"),
                         kSpacingLowest, kSpacingHighest, kSpacingNormal, scaleBar_);
    layout->addWidget(captionFor(Slider1, QStringLiteral("s&postamento"), scaleBar_));
    layout->addWidget(Slider1);
    layout->addWidget(captionFor(Slider2, QStringLiteral("spa&ziatura"), scaleBar_));
    layout->addWidget(Slider2);
    connect(Slider1, &QSlider::valueChanged, this, &RecordView::Slider1_Change);
    connect(Slider2, &QSlider::valueChanged, this, &RecordView::Slider2_Change);
}

void RecordView::makeControls(int n)
{
    Field& f = field(n);
    if (f.Text2) return;
    f.Label2 = new QLabel(this);
    f.Label2->setObjectName(elementName("Label2", n));
    f.Label2->setTextFormat(Qt::PlainText);
    f.Label2->lower();
    f.Text2 = new FieldBox(this);
    f.Text2->setObjectName(elementName("Text2", n));
    f.Text2->installEventFilter(this);
    connect(f.Text2, &FieldBox::clicked, this, [this, n] { emit Text2_Click(n); });
    connect(f.Text2, &FieldBox::returnPressed, this, [this, n] { emit Text2_KeyPress(n); });
    VScroll1->raise();
    if (n > 1) setTabOrder(field(n - 1).Text2, f.Text2);
}

void RecordView::layOutField(const FieldTable& fields, int n)
{
    makeControls(n);
    const auto i = static_cast<std::size_t>(n);
    Field& f = field(n);
    f.questionX = val(fields.questionX[i]);
    f.questionY = val(fields.questionY[i]);
    f.fieldX = val(fields.fieldX[i]);
    f.fieldY = val(fields.fieldY[i]);
    f.columns = fields.length(n) + 1;
    f.questionColours = decodeColourCode(fields.questionColour[i]);
    f.boxColours = decodeColourCode(fields.fieldColour[i]);
    f.highlight.reset();

    const QString question = fromAnsi(fields.questionText[i]);
    f.Label2->setText(fromAnsi(rTrim(fields.questionText[i])).left(kMostCaption));
    f.Label2->show();
    f.Text2->empty();
    f.Text2->setEnabled(true);
    const QString name = fromAnsi(trim(fields.fieldName[i]));
    f.Text2->setAccessibleName(question.trimmed().isEmpty() ? name : question.trimmed());
    f.Text2->setToolTip(name);
    f.Text2->setVisible(fields.length(n) != 0);
    fieldCount_ = std::max(fieldCount_, n);
    place(f);
    paint(f);
}

void RecordView::hideFields()
{
    releaseBoxes();
    for (int n = 1; n <= fieldCount_; ++n) {
        field(n).Label2->hide();
        field(n).Text2->hide();
        field(n).Text2->empty();
        field(n).highlight.reset();
    }
    fieldCount_ = 0;
    labelColour_ = QColor();
    lift_ = 0;
    Slider1->setValue(0);
    Slider2->setValue(kSpacingNormal);
    VScroll1->setValue(0);
    VScroll1->hide();
}

void RecordView::setScale(const FormScale& scale)
{
    scale_ = scale;
    placeAll();
}

void RecordView::showScrollBar(int fieldCount)
{
    VScroll1->setRange(0, fieldCount);
    VScroll1->setPageStep(kFieldsWithoutScrolling);
    VScroll1->setValue(0);
    VScroll1->setVisible(fieldCount > kFieldsWithoutScrolling);
}

void RecordView::setCompatible(bool compatible)
{
    Slider1->setMinimum(compatible ? kOffsetLowest : kOffsetLowestIncompatible);
}

FieldBox* RecordView::Text2(int n) const
{
    return n >= 1 && n <= fieldCount_ ? field(n).Text2 : nullptr;
}

void RecordView::setValue(int n, const QString& value)
{
    if (FieldBox* box = Text2(n)) box->showValue(value);
}

void RecordView::azzeravar()
{
    for (int n = 1; n <= fieldCount_; ++n)
        field(n).Text2->empty();
    enableBoxes();
}

void RecordView::enableBoxes()
{
    for (int n = 1; n <= fieldCount_; ++n)
        field(n).Text2->setEnabled(!allKept_ && !field(n).kept);
}

void RecordView::keepBox(int n, const ColourPair& colours)
{
    if (!Text2(n)) return;
    highlight(n, colours);
    field(n).kept = true;
    // The focus goes on to the next box; the form must not move away under the pointer for it.
    const QScopedValueRollback<bool> still(still_, field(n).Text2->underMouse());
    enableBoxes();
}

void RecordView::keepAllBoxes()
{
    allKept_ = true;
    enableBoxes();
}

void RecordView::releaseBoxes()
{
    allKept_ = false;
    for (int n = 1; n <= fieldCount_; ++n)
        field(n).kept = false;
    enableBoxes();
}

void RecordView::Slider1_Change()
{
    placeAll();
}

void RecordView::Slider2_Change()
{
    placeAll();
}

void RecordView::VScroll1_Change()
{
    placeAll();
}

/// Line of the form at which something of line `y` of the file stands.
double RecordView::lineOf(double y) const
{
    return Slider2->value() / 100.0 * y - VScroll1->value() - lift_ + kTopLines;
}

void RecordView::place(const Field& f)
{
    const auto put = [this](QWidget* control, double x, double y, double columns) {
        control->setGeometry(scale_.rect(QRectF(x - Slider1->value(), lineOf(y) - kTopLines, columns, 1)));
    };
    const auto characters = static_cast<double>(f.Label2->text().size());
    const double columns = labelColumns(f);
    f.Label2->setFont(columns < characters ? scale_.squeezedFont(columns / characters) : scale_.font());
    put(f.Label2, f.questionX, f.questionY, columns);
    f.Text2->setFont(scale_.font());
    put(f.Text2, f.fieldX, f.fieldY, f.columns);
}

/// Columns for the question: those of its text, but no more than there are before its own box on the same
/// line.
double RecordView::labelColumns(const Field& f)
{
    const auto characters = static_cast<double>(f.Label2->text().size());
    const double room = f.fieldX - f.questionX;
    const bool underBox = f.questionY == f.fieldY && room >= 1 && room < characters && f.columns > 1;
    return underBox ? room : characters;
}

void RecordView::placeAll()
{
    for (int n = 1; n <= fieldCount_; ++n)
        place(field(n));
}

void RecordView::useFileColours(bool on)
{
    fileColours_ = on;
    paintAll();
}

void RecordView::setLabelColour(const QColor& colour)
{
    labelColour_ = colour;
    paintAll();
}

void RecordView::highlight(int n, const ColourPair& colours)
{
    if (!Text2(n)) return;
    field(n).highlight = colours;
    paint(field(n));
}

void RecordView::clearHighlights()
{
    for (int n = 1; n <= fieldCount_; ++n) {
        if (!field(n).kept) field(n).highlight.reset();
    }
    paintAll();
}

void RecordView::paint(const Field& f) const
{
    const ColourPair usual;
    const ColourPair& ofLabel = fileColours_ ? f.questionColours : usual;
    paintWidget(*f.Label2, labelColour_.isValid() ? ColourPair{labelColour_, Qt::white} : ofLabel);
    const ColourPair& ofFile = fileColours_ ? f.boxColours : usual;
    paintWidget(*f.Text2, f.highlight ? *f.highlight : ofFile);
}

void RecordView::paintAll() const
{
    for (int n = 1; n <= fieldCount_; ++n)
        paint(field(n));
}

void RecordView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int width = VScroll1->sizeHint().width();
    VScroll1->setGeometry(this->width() - width, 0, width, height());
}

void RecordView::wheelEvent(QWheelEvent* event)
{
    constexpr int kUnitsPerNotch = 120;
    constexpr int kLinesPerNotch = 3;
    scrollBy(-event->angleDelta().y() * kLinesPerNotch / kUnitsPerNotch);
    event->accept();
}

bool RecordView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn && !still_) {
        if (const auto* box = qobject_cast<FieldBox*>(watched)) scrollTo(*box);
    }
    return QWidget::eventFilter(watched, event);
}

/// Brings a box that received the focus into sight.
void RecordView::scrollTo(const QWidget& box)
{
    const int line = scale_.lineHeight();
    int lines = 0;
    if (box.y() < 0) lines = (box.y() - line + 1) / line;
    if (box.geometry().bottom() >= height()) lines = (box.geometry().bottom() - height() + line) / line;
    if (lines != 0) scrollBy(lines);

    // Sideways only for a box whose beginning is out of sight; a long one would else push its question away.
    const int column = scale_.columnWidth();
    int columns = 0;
    if (box.x() < 0) columns = (box.x() - column + 1) / column;
    if (box.x() > width() - 2 * column) {
        const int end = std::min(box.geometry().right() + column, box.x() + width() / 2);
        columns = (end - width() + column) / column;
    }
    if (columns != 0) Slider1->setValue(Slider1->value() + columns);
}

/// Moves the fields up by `lines`, or down when negative: by the scroll bar as far as it goes, and beyond it
/// by as much as the lowest field needs. So every field can be reached, whatever lines the file gives it.
void RecordView::scrollBy(int lines)
{
    if (lines < 0) {
        const int back = std::min(lift_, -lines);
        lift_ -= back;
        lines += back;
    }
    if (!VScroll1->isHidden()) {
        const int before = VScroll1->value();
        VScroll1->setValue(before + lines);
        lines -= VScroll1->value() - before;
    }
    if (lines > 0) lift_ = std::min(lift_ + lines, lowestLift());
    placeAll();
}

/// The lift at which the lowest field stands at the view's foot; the lift now when it stands higher.
int RecordView::lowestLift() const
{
    int lowest = 0;
    for (int n = 1; n <= fieldCount_; ++n)
        lowest = std::max(lowest, field(n).Text2->geometry().bottom());
    const int line = scale_.lineHeight();
    return lift_ + std::max(0, (lowest - height() + line) / line);
}

}  // namespace quorvin
