#include "output/RichTextDocument.h"

#include <QFont>
#include <QGuiApplication>
#include <QScreen>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <algorithm>
#include <utility>

namespace quorvin {

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kPointsPerInch = 72;
/// Distance of the tab stops that nobody set, twips.
constexpr int kUsualTabStops = 720;
constexpr qsizetype kMostFontName = 64;
constexpr std::uint32_t kColourBits = 0xFFFFFF;

constexpr std::pair<Alignment, Qt::AlignmentFlag> kAlignments[] = {
    {Alignment::left, Qt::AlignLeft},
    {Alignment::centre, Qt::AlignHCenter},
    {Alignment::right, Qt::AlignRight},
    {Alignment::justified, Qt::AlignJustify},
};

constexpr std::pair<TabKind, QTextOption::TabType> kTabKinds[] = {
    {TabKind::left, QTextOption::LeftTab},
    {TabKind::centre, QTextOption::CenterTab},
    {TabKind::right, QTextOption::RightTab},
    {TabKind::decimal, QTextOption::DelimiterTab},
};

/// Lengths in a document are pixels of the screen; on paper they are scaled.
double pixelsPerInch()
{
    return QGuiApplication::primaryScreen()->logicalDotsPerInchY();
}

double toPixels(int twips)
{
    return twips * pixelsPerInch() / kTwipsPerInch;
}

/// Within what is kept; pages from elsewhere ask for anything.
int toTwips(double pixels)
{
    const double twips = pixels * kTwipsPerInch / pixelsPerInch();
    return qRound(std::clamp<double>(twips, -kMostTwips, kMostTwips));
}

QString toQString(std::u32string_view text)
{
    constexpr char16_t kByteOrderMark = 0xFEFF;
    QString result = QString::fromUcs4(text.data(), static_cast<qsizetype>(text.size()));
    // At the beginning it is taken for the sign of the byte order.
    if (text.starts_with(kByteOrderMark)) result.prepend(QChar(kByteOrderMark));
    return result;
}

/// Where the first line begins; the stops of a paragraph in the window are counted from there.
int firstLine(const ParagraphFormat& format)
{
    return format.leftIndent + format.firstIndent;
}

// From the window

/// Size in points; sizes may also be pixels, or steps from the usual size.
double pointSizeOf(const QTextCharFormat& format, const QFont& usual)
{
    if (format.hasProperty(QTextFormat::FontPointSize)) return format.fontPointSize();
    const double pixels = format.intProperty(QTextFormat::FontPixelSize);
    if (pixels > 0) return pixels * kPointsPerInch / pixelsPerInch();
    constexpr double kSteps[] = {0.7, 0.8, 1.0, 1.2, 1.5, 2.0, 2.4};
    constexpr int kUsualStep = 2;
    const int step = kUsualStep + format.intProperty(QTextFormat::FontSizeAdjustment);
    return usual.pointSizeF() * kSteps[std::clamp(step, 0, static_cast<int>(std::size(kSteps)) - 1)];
}

std::optional<std::uint32_t> colourOf(const QBrush& brush)
{
    if (brush.style() == Qt::NoBrush || brush.color().alpha() == 0) return std::nullopt;
    return brush.color().rgb() & kColourBits;
}

CharFormat fromQt(const QTextCharFormat& format, const QFont& usual)
{
    CharFormat result;
    const QStringList families = format.fontFamilies().toStringList();
    const QString family = families.isEmpty() ? usual.family() : families.constFirst();
    if (!family.isEmpty()) result.font = family.left(kMostFontName).toStdU32String();
    result.halfPoints = qRound(std::clamp<double>(2 * pointSizeOf(format, usual), 1, kMostHalfPoints));
    result.bold = format.fontWeight() > QFont::Medium;
    result.italic = format.fontItalic();
    result.underline = format.fontUnderline();
    result.strikeOut = format.fontStrikeOut();
    result.colour = colourOf(format.foreground());
    result.background = colourOf(format.background());
    return result;
}

ParagraphFormat fromQt(const QTextBlock& block)
{
    const QTextBlockFormat format = block.blockFormat();
    const int lists = block.textList() ? block.textList()->format().indent() : 0;
    const double indents = (format.indent() + lists) * block.document()->indentWidth();
    ParagraphFormat result;
    for (const auto& [alignment, flag] : kAlignments) {
        if (format.alignment() & flag) result.alignment = alignment;
    }
    result.leftIndent = toTwips(format.leftMargin() + indents);
    result.rightIndent = toTwips(format.rightMargin());
    result.firstIndent = toTwips(format.textIndent());
    for (const QTextOption::Tab& tab : format.tabPositions()) {
        TabStop stop{toTwips(tab.position) + firstLine(result)};
        const bool isHanging = stop.position == result.leftIndent && result.firstIndent < 0;
        if (isHanging && tab.type == QTextOption::LeftTab) continue;
        for (const auto& [kind, type] : kTabKinds) {
            if (tab.type == type) stop.kind = kind;
        }
        result.tabs.push_back(stop);
    }
    return result;
}

/// What stands before an item of a list.
QString bulletOf(const QTextBlock& block)
{
    const QTextList* list = block.textList();
    if (!list) return {};
    const bool isPicture = list->format().style() >= QTextListFormat::ListSquare;
    return (isPicture ? QStringLiteral("•") : list->itemText(block)) + QLatin1Char('\t');
}

void appendBlock(RichText& result, const QTextBlock& block, const QFont& usual)
{
    result.setParagraphFormat(fromQt(block));
    result.append(bulletOf(block).toStdU32String(), fromQt(block.charFormat(), usual));
    for (auto i = block.begin(); !i.atEnd(); ++i) {
        const QTextFragment fragment = i.fragment();
        if (fragment.charFormat().isImageFormat()) continue;
        result.append(fragment.text().toStdU32String(), fromQt(fragment.charFormat(), usual));
    }
}

// To the window

QTextBlockFormat toQt(const ParagraphFormat& format)
{
    QTextBlockFormat result;
    result.setAlignment(kAlignments[static_cast<std::size_t>(format.alignment)].second);
    result.setLeftMargin(toPixels(format.leftIndent));
    result.setRightMargin(toPixels(format.rightIndent));
    result.setTextIndent(toPixels(format.firstIndent));
    QList<QTextOption::Tab> tabs;
    const int left = firstLine(format);
    // Where the first line hangs out, the others' beginning is a stop for it.
    if (format.firstIndent < 0) tabs.append({toPixels(-format.firstIndent), QTextOption::LeftTab});
    for (const TabStop& stop : format.tabs) {
        // Italian numbers have a comma.
        tabs.append({toPixels(stop.position - left), kTabKinds[static_cast<std::size_t>(stop.kind)].second,
                     QLatin1Char(',')});
    }
    // The first one that lies ahead counts, in the order of the list.
    std::stable_sort(tabs.begin(), tabs.end(),
                     [](const auto& a, const auto& b) { return a.position < b.position; });
    result.setTabPositions(tabs);
    return result;
}

/// Puts a run in, which may go over the ends of paragraphs; `paragraph` counts them.
void insertRun(QTextCursor& cursor, const RichText& text, std::u32string_view run, const CharFormat& format,
               std::size_t& paragraph)
{
    const QTextCharFormat look = toQt(format);
    while (true) {
        const std::size_t end = run.find(RichText::kParagraphEnd);
        if (cursor.atBlockStart()) cursor.setBlockCharFormat(look);
        cursor.insertText(toQString(run.substr(0, end)), look);
        if (end == std::u32string_view::npos) return;
        cursor.insertBlock(toQt(text.paragraphs()[++paragraph]), look);
        run.remove_prefix(end + 1);
        if (run.empty()) return;
    }
}

}  // namespace

QFont documentFont()
{
    const CharFormat usual;
    return toQt(usual).font();
}

QTextCharFormat toQt(const CharFormat& format)
{
    QTextCharFormat result;
    result.setFontFamilies({toQString(format.font)});
    result.setFontPointSize(format.halfPoints / 2.0);
    result.setFontWeight(format.bold ? QFont::Bold : QFont::Normal);
    result.setFontItalic(format.italic);
    result.setFontUnderline(format.underline);
    result.setFontStrikeOut(format.strikeOut);
    if (format.colour) result.setForeground(QColor(*format.colour));
    if (format.background) result.setBackground(QColor(*format.background));
    return result;
}

RichText toRichText(const QTextDocument& document)
{
    RichText result;
    const QFont usual = document.defaultFont();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        appendBlock(result, block, usual);
        if (block.next().isValid()) result.endParagraph(fromQt(block.charFormat(), usual));
    }
    return result;
}

void setRichText(QTextDocument& document, const RichText& text)
{
    const bool undo = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    document.clear();
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.setBlockFormat(toQt(text.paragraphs()[0]));
    // What is typed into an empty document has a font of its own too.
    cursor.setBlockCharFormat(toQt(CharFormat()));
    std::size_t paragraph = 0;
    std::size_t position = 0;
    for (const RichText::Run& run : text.runs()) {
        insertRun(cursor, text, std::u32string_view(text.text()).substr(position, run.length), run.format,
                  paragraph);
        position += run.length;
    }
    cursor.endEditBlock();
    QTextOption option = document.defaultTextOption();
    option.setTabStopDistance(toPixels(kUsualTabStops));
    document.setDefaultTextOption(option);
    document.setUndoRedoEnabled(undo);
    document.setModified(false);
}

}  // namespace quorvin
