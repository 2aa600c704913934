/// The program's one window.
#pragma once

#include <QMainWindow>
#include <QPointer>

#include "app/MenuTree.h"
#include "rec/RecFile.h"
#include "view/Selections.h"

class QLabel;

namespace quorvin {

class Dialogs;
class FormCanvas;
class Navigator;
class PreferencesFrame;
class RecordView;
class RuntimeError;
class SearchPanel;
class SearchStatus;
class TextFrame;

/// Owns one object of each subsystem and keeps what crosses them; everything else is the business of the part
/// concerned.
class Formstart : public QMainWindow {
    Q_OBJECT

public:
    /// `dialogs` must outlive the window.
    explicit Formstart(Dialogs& dialogs);
    ~Formstart() override;

    /// Opens a REC file by name, as the menu does after its dialog.
    void openFile(const QString& name);
    /// Shows a record as if its number had been typed.
    void goToRecord(const QString& number);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildForm();
    void connectMenus();
    void connectParts();
    void connectSearch();
    void placeSearchPanel();
    TextFrame* addTextFrame(const QString& menu, TextFrame* frame, const QRectF& place);

    void Form_Load();
    void layOutFields();
    void resetta();
    void azzeravar();
    void cancella();

    void aprifile_Click();
    void preferenze_Click();
    void impostMaiusc_Click();
    void compEpidat_Click();
    void adatta600_Click();
    void esci_Click();
    void EpiData_Click();
    void note_Click();
    void limiti_Click();
    void versione_Click();
    void Check1_Click();
    void Check3_Click();
    void Command3_Click();
    void Text2_Click(int index);

    void toggleFrame(const QString& menu, QWidget* frame);
    void closeTopFrame();
    void setCompatible(bool compatible);
    void showState();
    void showHint(const QString& text);
    void showError(const char* prefix, const RuntimeError& error);

    Dialogs& dialogs_;
    RecFile recFile_;
    Selections selections_;
    FieldList PrintMatrix_;
    MenuTree menuTree_;
    FormCanvas* canvas_ = nullptr;
    RecordView* recordView_ = nullptr;
    Navigator* navigator_ = nullptr;
    SearchStatus* searchStatus_ = nullptr;
    SearchPanel* searchPanel_ = nullptr;
    QLabel* Label7 = nullptr;
    TextFrame* Frame5 = nullptr;  ///< limits
    TextFrame* Frame6 = nullptr;  ///< version
    TextFrame* Frame7 = nullptr;  ///< guide
    PreferencesFrame* Frame10 = nullptr;
    QPointer<QWidget> focusBeforeFrame_;
};

}  // namespace quorvin
