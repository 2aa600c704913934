/// New REC files as the user handles them: the three modes, and the choice of the file when a search starts.
#pragma once

#include <QObject>

#include "output/RecExport.h"

namespace quorvin {

class Dialogs;
class MenuState;
class PrintMatrix;
class SearchPanel;
class SearchStatus;

/// The parts of the window that writing REC files works with; all must outlive the panel.
struct ExportParts {
    const RecFile& recFile;
    const PrintMatrix& matrix;
    MenuState& menu;
    SearchPanel& search;
    SearchStatus& status;
    Dialogs& dialogs;
};

class ExportPanel : public QObject {
    Q_OBJECT

public:
    ExportPanel(const ExportParts& parts, QObject* form);

private:
    void creamat1_Click();
    void creamat2_Click();
    void creamatutto_Click();
    void toggle(const QString& mode);

    bool prepare(const SearchQuery& query);
    bool filemat1(const SearchQuery& query);
    bool creafile1(const SearchQuery& query);
    bool creafiletutto(const SearchQuery& query);
    void chooseFile(std::vector<int> WriteFieldList, void (ExportPanel::*modeClick)());
    QString askForName();
    bool contrsave(const QString& name);
    void sayWritten();

    ExportParts parts_;
    RecExport export_;
};

}  // namespace quorvin
