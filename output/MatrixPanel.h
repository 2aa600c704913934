/// The print matrix as the user handles it: its choice, header and margin, all kept beside the REC file.
#pragma once

#include <QObject>

#include "output/PrintMatrix.h"

namespace quorvin {

class Dialogs;
class MenuState;
class RecFile;
class RecordView;
class RuntimeError;

/// The parts of the window that the matrix works with; all must outlive the panel.
struct MatrixParts {
    RecFile& recFile;
    RecordView& recordView;
    MenuState& menu;
    Dialogs& dialogs;
};

class MatrixPanel : public QObject {
    Q_OBJECT

public:
    MatrixPanel(const MatrixParts& parts, QObject* form);

    const PrintMatrix& matrix() const { return matrix_; }

    /// Reads what is kept beside the open file; nothing when no file is open. A file that cannot be read does
    /// no harm.
    void load();

    /// Keeps this document template with the matrix, and writes both; false, after `saveFailed`, when that
    /// fails: the one before is kept then.
    bool saveTemplate(std::string stored);

    /// Whether clicks in the field boxes choose fields for the matrix.
    bool isChoosing() const;
    /// A click in a box while they do. Raises RuntimeError 9 when the matrix is full.
    void Text2_Click(int index);

signals:
    /// The boxes are to be emptied; the search state is to be reset.
    void azzeravarRequested();
    void cancellaRequested();
    /// The choice began or ended: while it lasts the file's own colours give way to the usual ones, among
    /// which the chosen boxes stand out.
    void choosingChanged();
    /// The file beside the REC file could not be written.
    void saveFailed(const RuntimeError& error);
    /// Something worth a word in passing.
    void hint(const QString& text);

private:
    void impmat_Click();
    void intestazione_Click();
    void margstamp_Click();
    void beginChoice();
    bool save(const QString& what);

    MatrixParts parts_;
    PrintMatrix matrix_;
};

}  // namespace quorvin
