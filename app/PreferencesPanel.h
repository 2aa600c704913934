/// The options of the open file, and of how the window shows it.
#pragma once

#include <QObject>

namespace quorvin {

class Dialogs;
class FormCanvas;
class MenuState;
class PreferencesFrame;
class PrintMatrix;
class RecFile;
class RecordView;

/// The parts of the window that preferences work on; all must outlive the panel.
struct PreferencesParts {
    RecFile& recFile;
    const PrintMatrix& matrix;
    RecordView& recordView;
    FormCanvas& canvas;
    MenuState& menu;
    Dialogs& dialogs;
    PreferencesFrame& Frame10;
};

class PreferencesPanel : public QObject {
    Q_OBJECT

public:
    PreferencesPanel(const PreferencesParts& parts, QObject* form);

    /// "compatibilità EpiData".
    void setCompatible(bool compatible);

public slots:
    /// Colours of form, labels and boxes: those of a mode that is on, else the file's or the usual ones.
    void Check1_Click();

signals:
    /// The form shall fit a screen of low resolution, or need not any more.
    void adatta600Changed(bool low);

private:
    void Check3_Click();
    void impostMaiusc_Click();
    void compEpidat_Click();
    void adatta600_Click();

    PreferencesParts parts_;
};

}  // namespace quorvin
