/// The program's one window.
#pragma once

#include <QMainWindow>
#include <memory>

#include "app/MenuTree.h"
#include "rec/RecFile.h"
#include "view/Selections.h"

class QLabel;

namespace quorvin {

class Dialogs;
class DocumentPanel;
class FormCanvas;
class FormFrames;
class FormPlaces;
class MatrixPanel;
class Navigator;
class OutputPanel;
class PreferencesPanel;
class RecordView;
class RuntimeError;
class SearchPanel;
class SearchStatus;
class StatPanel;

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
    template<class Panel>
    void connectPanel(Panel& panel);
    void connectSearch();
    void connectOutput();
    void connectDocument();
    void connectStatistics();

    void Form_Load();
    void layOutFields();
    void resetta();
    void azzeravar();
    void cancella();

    void aprifile_Click();
    void preferenze_Click();
    void esci_Click();
    void EpiData_Click();
    void Command3_Click();
    void Text2_Click(int index);

    bool isBusy() const;
    void abandon();
    void fitScreen(bool low);
    void showState();
    void showHint(const QString& text);
    void showError(const char* prefix, const RuntimeError& error);

    Dialogs& dialogs_;
    RecFile recFile_;
    Selections selections_;
    MenuTree menuTree_;
    FormCanvas* canvas_ = nullptr;
    RecordView* recordView_ = nullptr;
    Navigator* navigator_ = nullptr;
    SearchStatus* searchStatus_ = nullptr;
    SearchPanel* searchPanel_ = nullptr;
    MatrixPanel* matrixPanel_ = nullptr;
    OutputPanel* outputPanel_ = nullptr;
    DocumentPanel* documentPanel_ = nullptr;
    StatPanel* statPanel_ = nullptr;
    std::unique_ptr<FormPlaces> places_;
    FormFrames* frames_ = nullptr;
    PreferencesPanel* preferences_ = nullptr;
    QLabel* Label7 = nullptr;
    bool endsAtOnce_ = false;  ///< without questions
};

}  // namespace quorvin
