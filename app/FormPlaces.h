/// Which part of the form each of its large parts takes, by what is shown.
#pragma once

namespace quorvin {

class FormCanvas;
class MenuState;
class Navigator;
class OutputPanel;
class RecordView;
class SearchPanel;
class StatPanel;

/// The parts that share the form; all must outlive the places.
struct FormParts {
    FormCanvas& canvas;
    const MenuState& menu;
    Navigator& navigator;
    RecordView& record;
    SearchPanel& search;
    OutputPanel& output;
    StatPanel& statistics;
};

/// Lists stand to the right, the print file and the statistics below; the record gets the room that they
/// leave.
class FormPlaces {
public:
    explicit FormPlaces(const FormParts& parts);

    /// Brings all places up to date.
    void update();

private:
    FormParts parts_;
};

}  // namespace quorvin
