/// Documents as the user handles them: the template, its editing, and its filling from the hits.
#pragma once

#include <QObject>

#include "output/DocumentFrame.h"
#include "output/DocumentPrintout.h"
#include "output/DocumentTemplate.h"

namespace quorvin {

class Dialogs;
class MatrixPanel;
class MenuState;
class Navigator;
class OutputPanel;
class RecordView;

/// The parts of the window that documents work with; all must outlive the panel.
struct DocumentParts {
    RecordView& recordView;
    Navigator& navigator;
    MenuState& menu;
    MatrixPanel& matrix;
    OutputPanel& output;
    Dialogs& dialogs;
};

/// Owns the template (Textserb) and the document's frame. While neither mode is on the frame is hidden, and
/// its box holds the template.
class DocumentPanel : public QObject {
    Q_OBJECT

public:
    DocumentPanel(const DocumentParts& parts, QWidget* form);

    /// What the window places.
    DocumentFrame& frame() { return *frame_; }
    Printout& printout() { return printout_; }

    /// Whether clicks in the field boxes put markers into the template.
    bool isEditing() const;
    /// A click in a box while they do.
    void Text2_Click(int index);
    /// Fills the document from the record on show, while hits are to be shown so. Raises what
    /// DocumentTemplate raises, the document filled as far as it goes.
    void elabcom();

    /// Takes over the template kept beside the file just opened, or none; one that cannot be read does no
    /// harm.
    void load();
    /// To be called before the file goes: ends the editing, and asks about a template that is not on the disk
    /// yet. False when it was to be saved and could not be.
    bool settle();
    /// Brings the frame up to date with the modes, which others may have left.
    void followModes();

    /// Gives the document this font while it is shown.
    void setFont(const QFont& font);

signals:
    /// The boxes are to be emptied; the search state is to be reset.
    void azzeravarRequested();
    void cancellaRequested();
    /// The frame came, went or changed its size.
    void placesChanged();
    /// Something worth a word in passing.
    void hint(const QString& text);

private:
    enum class Mode { none, editing, showing };

    void impostadoc_Click();
    void documento_Click();
    void beginEditing();
    void endEditing();
    void askToSave(const RichText& edited);
    void showTemplate();

    DocumentParts parts_;
    DocumentTemplate template_;
    DocumentFrame* frame_;
    DocumentPrintout printout_;
    RichText unchanged_;    ///< what the box held when the editing began
    bool unsaved_ = false;  ///< the template is not on the disk, although it should be
    Mode mode_ = Mode::none;
};

}  // namespace quorvin
