#include "stats/ChartPainter.h"

#include <QColor>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QTextOption>
#include <algorithm>
#include <cmath>

#include "base/Text.h"
#include "view/AnsiText.h"

namespace quorvin {

namespace {

/// Pictures and pages are laid out in these units, pixels of a picture. Those of a page are stretched to its
/// width; on A4 in upright format the letters have then 4 to 10 points.
constexpr int kFontPixels = 13;
struct Widths {
    int least;
    int most;
};
constexpr Widths kPictureWidths = {1000, 6000};
constexpr Widths kPageWidths = {700, 1600};
/// Share of the least width.
constexpr double kHeight = 0.7;

QRectF rect(const ChartRect& r)
{
    return {r.x, r.y, r.width, r.height};
}

/// One drawing of one chart.
class Drawing {
public:
    Drawing(QPainter& painter, const ChartData& chart, const ChartLayout& layout, const QFont& font,
            const ChartScroll& scroll) :
        painter_(painter),
        chart_(chart),
        layout_(layout),
        metrics_(font),
        scroll_(scroll)
    {
        painter_.setFont(font);
        painter_.setPen(Qt::black);
    }

    void draw(const ChartArea& area)
    {
        painter_.fillRect(QRectF(0, 0, area.width, area.height), Qt::white);
        drawTitle();
        drawTicks();
        drawCategories(area);
        drawAxes();
        drawLegend();
        drawWhyEmpty();
    }

private:
    void drawText(const QRectF& place, int flags, const QString& text)
    {
        painter_.drawText(place, flags | Qt::TextSingleLine,
                          metrics_.elidedText(text, Qt::ElideRight, place.width()));
    }

    void drawWhyEmpty()
    {
        QString reason;
        if (chart_.series.empty()) reason = QStringLiteral("nessuna serie: penultimo campo vuoto");
        if (chart_.lastCategory() == 0) reason = QStringLiteral("nessun valore da disegnare");
        drawText(rect(layout_.plot()), Qt::AlignCenter, reason);
    }

    /// In as many lines as there is room for. The end of one that is too long stays, for it is what the table
    /// is about.
    void drawTitle()
    {
        const QFont usual = painter_.font();
        QFont bold = usual;
        bold.setBold(true);
        painter_.setFont(bold);
        const QRectF place = rect(layout_.title());
        QTextOption option(Qt::AlignCenter);
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        QString title = fromAnsi(chart_.title);
        if (painter_.boundingRect(place, title, option).height() > place.height()) {
            const QFontMetricsF metrics(bold);
            const double lines = std::floor(place.height() / metrics.lineSpacing());
            title = metrics.elidedText(title, Qt::ElideMiddle, 0.8 * lines * place.width());
        }
        painter_.drawText(place, title, option);
        painter_.setFont(usual);
    }

    void drawTicks()
    {
        const ChartRect& plot = layout_.plot();
        for (const ChartTick& tick : layout_.ticks()) {
            painter_.setPen(QColor(0xD0, 0xD0, 0xD0));
            painter_.drawLine(QPointF(plot.x, tick.y), QPointF(plot.right(), tick.y));
            painter_.setPen(Qt::black);
            const double gap = metrics_.averageCharWidth() / 2;
            const QRectF place(0, tick.y - metrics_.height() / 2, plot.x - gap, metrics_.height());
            painter_.drawText(place, Qt::AlignRight | Qt::AlignVCenter, fromAnsi(tick.text));
        }
    }

    void drawAxes()
    {
        const QRectF plot = rect(layout_.plot());
        painter_.setPen(Qt::black);
        painter_.drawLine(plot.bottomLeft(), plot.topLeft());
        painter_.drawLine(plot.bottomLeft(), plot.bottomRight());
    }

    void drawCategories(const ChartArea& area)
    {
        const ChartRect& plot = layout_.plot();
        painter_.save();
        painter_.setClipRect(QRectF(plot.x, 0, plot.width, area.height), Qt::IntersectClip);
        painter_.translate(plot.x - scroll_.categories, 0);
        const auto shown = layout_.categoriesBetween(scroll_.categories, scroll_.categories + plot.width);
        for (int category = shown.first; category <= shown.last; ++category) {
            drawColumns(category);
            if ((category - 1) % layout_.nameStep() == 0)
                drawName(category, scroll_.categories, scroll_.categories + plot.width);
        }
        painter_.restore();
    }

    void drawColumns(int category)
    {
        for (int s = 0; s < static_cast<int>(chart_.series.size()); ++s) {
            const double value = chart_.series[static_cast<std::size_t>(s)].values[category].value_or(0);
            if (value <= 0) continue;
            QRectF place = rect(layout_.column({s, category}, value));
            // However small, it is there.
            place.setWidth(std::max(place.width(), 1.0));
            place.setTop(std::min(place.top(), place.bottom() - 1));
            painter_.fillRect(place, seriesColour(s));
            if (!layout_.showsValues()) continue;
            place.setTop(place.top() - metrics_.height());
            painter_.drawText(place, Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip,
                              fromAnsi(bareStr(value)));
        }
    }

    /// `from`, `to`: what is in sight; a name that has more room than that is drawn within it.
    void drawName(int category, double from, double to)
    {
        QRectF place = rect(layout_.name(category));
        const QString name = fromAnsi(chart_.categories[category]);
        if (!layout_.areNamesUpright()) {
            place.setLeft(std::max(place.left(), from));
            place.setRight(std::min(place.right(), to));
            drawText(place, Qt::AlignHCenter | Qt::AlignTop, name);
            return;
        }
        painter_.save();
        painter_.translate(place.bottomLeft());
        painter_.rotate(-90);
        drawText({0, 0, place.height(), place.width()}, Qt::AlignRight | Qt::AlignVCenter, name);
        painter_.restore();
    }

    void drawLegend()
    {
        if (layout_.legend().width <= 0) return;
        painter_.save();
        painter_.setClipRect(rect(layout_.legend()), Qt::IntersectClip);
        painter_.translate(0, -scroll_.legend);
        for (int s = 0; s < static_cast<int>(chart_.series.size()); ++s) {
            QRectF place = rect(layout_.legendEntry(s));
            const double side = place.height();
            const double inset = side / 5;
            painter_.fillRect(
                QRectF(place.topLeft(), QSizeF(side, side)).adjusted(inset, inset, -inset, -inset),
                seriesColour(s));
            place.setLeft(place.left() + side);
            drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                     fromAnsi(chart_.series[static_cast<std::size_t>(s)].caption));
        }
        painter_.restore();
    }

    QPainter& painter_;
    const ChartData& chart_;
    const ChartLayout& layout_;
    QFontMetricsF metrics_;
    ChartScroll scroll_;
};

QFont pictureFont()
{
    QFont font;
    font.setPixelSize(kFontPixels);
    return font;
}

/// Size at which everything can be told apart, within bounds.
QSizeF naturalSize(const ChartData& chart, const Widths& widths)
{
    const double height = kHeight * widths.least;
    const ChartLayout narrow(chart, {static_cast<double>(widths.least), height}, chartFont(pictureFont()));
    const double beyond = narrow.contentWidth() - narrow.plot().width;
    return {std::floor(std::min<double>(widths.least + beyond, widths.most)), height};
}

void paintPicture(QPainter& painter, const ChartData& chart, const QSizeF& size)
{
    const QFont font = pictureFont();
    const ChartArea area{size.width(), size.height(), 1, true};
    paintChart(painter, chart, ChartLayout(chart, area, chartFont(font)), area, font, {});
}

}  // namespace

QColor seriesColour(int series)
{
    // Steps of the golden angle never meet again on the colour circle.
    constexpr double kGoldenAngle = 137.508;
    constexpr int kFirstHue = 215;
    const int hue = static_cast<int>(std::fmod(kFirstHue + series * kGoldenAngle, 360));
    const int round = series / 8;
    return QColor::fromHsv(hue, 190 - 30 * (round % 3), 200 - 35 * (round % 4));
}

ChartFont chartFont(const QFont& font)
{
    const QFontMetricsF metrics(font);
    return {std::ceil(metrics.height()) + 2,
            [metrics](std::string_view text) { return metrics.horizontalAdvance(fromAnsi(text)); }};
}

void paintChart(QPainter& painter, const ChartData& chart, const ChartLayout& layout, const ChartArea& area,
                const QFont& font, const ChartScroll& scroll)
{
    Drawing(painter, chart, layout, font, scroll).draw(area);
}

void paintWholeChart(QPainter& painter, const ChartData& chart, const QRectF& place)
{
    const double width = naturalSize(chart, kPageWidths).width();
    const double scale = place.width() / width;
    // On a page that is higher than wide it takes the upper part.
    const double height = std::min(kHeight * width, place.height() / scale);
    painter.save();
    painter.translate(place.topLeft());
    painter.scale(scale, scale);
    paintPicture(painter, chart, {width, height});
    painter.restore();
}

QImage chartPicture(const ChartData& chart)
{
    QImage picture(naturalSize(chart, kPictureWidths).toSize(), QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing, false);
    paintPicture(painter, chart, picture.size());
    return picture;
}

}  // namespace quorvin
