/// Which part of the form each of its large parts takes, by what is shown.
#pragma once

#include <QList>

class QScrollArea;
class QWidget;

namespace quorvin {

class DocumentPanel;
class FormCanvas;
class MenuState;
class Navigator;
class OutputPanel;
class RecordView;
class SearchPanel;
class StatPanel;

/// The parts that share the form; all must outlive the places.
struct FormParts {
    QScrollArea& scroll;  ///< shows the canvas
    FormCanvas& canvas;
    const MenuState& menu;
    Navigator& navigator;
    RecordView& record;
    SearchPanel& search;
    OutputPanel& output;
    DocumentPanel& document;
    StatPanel& statistics;
};

/// Lists stand to the right; statistics, document and print file below, one above the other; the record gets
/// the room that they leave.
class FormPlaces {
public:
    explicit FormPlaces(const FormParts& parts);

    /// Brings all places up to date.
    void update();
    /// Scrolls a window that is lower than its form to a frame that is shown; of one that is larger than the
    /// window to its beginning.
    void bringIntoSight(const QWidget& frame);

private:
    struct LowerPart {
        QWidget* frame;
        double top;       ///< line of the form when it is alone
        double most = 0;  ///< columns, 0 for all
    };

    QList<LowerPart> lowerParts() const;

    FormParts parts_;
};

}  // namespace quorvin
