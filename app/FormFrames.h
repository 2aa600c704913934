/// The frames that menu items show and hide over the form: guide, limits, version, preferences.
#pragma once

#include <QObject>
#include <QPointer>

class QRectF;

namespace quorvin {

class Dialogs;
class FormCanvas;
class GuideFrame;
class MenuTree;
class PreferencesFrame;
class TextFrame;
class TitledFrame;

/// Owns Frame5, Frame6, Frame7 and Frame10. A frame is shown while its item is ticked; closing it unticks the
/// item. The focus goes back to where it was before.
class FormFrames : public QObject {
    Q_OBJECT

public:
    /// `menu`, `canvas` and `dialogs` must outlive the frames' use.
    FormFrames(MenuTree& menu, FormCanvas& canvas, Dialogs& dialogs);

    PreferencesFrame* const Frame10;

    void preferenze_Click();
    /// Closes the frame that stands in front of all others; false when there is none.
    bool closeTop();

private:
    void add(const QString& menu, TitledFrame* frame, const QRectF& place);
    void note_Click();
    void limiti_Click();
    void versione_Click();
    void toggle(const QString& menu, QWidget* frame);

    MenuTree& menu_;
    FormCanvas& canvas_;
    TextFrame* Frame5;  ///< limits
    TextFrame* Frame6;  ///< version
    GuideFrame* Frame7;
    QPointer<QWidget> focusBefore_;
};

}  // namespace quorvin
