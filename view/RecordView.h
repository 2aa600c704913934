/// One record as the data-entry screen shows it: questions and value boxes at the file's positions.
#pragma once

#include <QWidget>
#include <array>
#include <optional>

#include "rec/FieldTable.h"
#include "view/Colours.h"
#include "view/FormScale.h"

class QLabel;
class QScrollBar;
class QSlider;

namespace quorvin {

class FieldBox;

/// Owns the control arrays Label2 and Text2 (1..200; index 0 stays empty), the sliders Slider1 (horizontal
/// offset in columns) and Slider2 (vertical spacing in per cent) and the scroll bar VScroll1 (lines). The
/// view stands below the two lines of the navigation; positions are counted on the whole form, so line 0 of a
/// file is at the view's upper edge.
class RecordView : public QWidget {
    Q_OBJECT

public:
    /// Lines of the form above the view.
    static constexpr int kTopLines = 2;

    explicit RecordView(QWidget* parent);

    /// Shows field `n` at its place; its box stays hidden when its length is 0.
    void layOutField(const FieldTable& fields, int n);
    /// Hides all fields, forgets their colours, puts sliders and scroll bar back.
    void hideFields();
    void setScale(const FormScale& scale);

    /// Shows VScroll1 when there are more fields than a screen usually holds; its maximum is their number.
    void showScrollBar(int fieldCount);
    /// Lower limit of Slider1, for files that EpiData can open or cannot.
    void setCompatible(bool compatible);

    int fieldCount() const { return fieldCount_; }
    /// Box of field `n`, 1..fieldCount; null for any other number.
    FieldBox* Text2(int n) const;
    void setValue(int n, const QString& value);
    /// Empties all boxes, and enables them as `enableBoxes` does.
    void azzeravar();
    /// Enables all boxes but those that a mode keeps: one by one, with colours that stay meanwhile, or all of
    /// them.
    void enableBoxes();
    void keepBox(int n, const ColourPair& colours);
    void keepAllBoxes();
    void releaseBoxes();

    /// "colori file originali": the file's own colours, or the usual ones.
    void useFileColours(bool on);
    /// Background of all labels while a mode shows itself by it; an invalid colour for the usual one.
    void setLabelColour(const QColor& colour);
    /// Colours of a chosen box; they go over all others until they are taken off, which those of a box that
    /// a mode keeps are not.
    void highlight(int n, const ColourPair& colours);
    void clearHighlights();

    /// The row of controls that set offset and spacing; a child of the view until somebody places it
    /// elsewhere.
    QWidget* scaleBar() const { return scaleBar_; }

signals:
    void Text2_Click(int index);
    /// Enter in a box.
    void Text2_KeyPress(int index);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// A field's two controls and what places and colours them.
    struct Field {
        QLabel* Label2 = nullptr;
        FieldBox* Text2 = nullptr;
        double questionX = 0;
        double questionY = 0;
        double fieldX = 0;
        double fieldY = 0;
        int columns = 0;
        ColourPair questionColours;
        ColourPair boxColours;
        std::optional<ColourPair> highlight;
        bool kept = false;  ///< disabled by a mode
    };

    void makeScaleBar();
    void makeControls(int n);
    void Slider1_Change();
    void Slider2_Change();
    void VScroll1_Change();
    double lineOf(double y) const;
    static double labelColumns(const Field& field);
    void place(const Field& field);
    void placeAll();
    void paint(const Field& field) const;
    void paintAll() const;
    void scrollTo(const QWidget& box);
    void scrollBy(int lines);
    int lowestLift() const;
    Field& field(int n) { return fields_[static_cast<std::size_t>(n)]; }
    const Field& field(int n) const { return fields_[static_cast<std::size_t>(n)]; }

    std::array<Field, kFieldSlots> fields_;
    int fieldCount_ = 0;
    bool fileColours_ = false;
    bool allKept_ = false;  ///< a mode keeps all boxes
    bool still_ = false;    ///< the box with the focus is not brought into sight
    int lift_ = 0;          ///< lines that the fields are moved up beyond what VScroll1 does
    QColor labelColour_;
    FormScale scale_;
    QWidget* scaleBar_;
    QSlider* Slider1;
    QSlider* Slider2;
    QScrollBar* VScroll1;
};

}  // namespace quorvin
