/// Drives the real window as a user would: by the names of its controls, with clicks and keys.
#pragma once

#include <gtest/gtest.h>

#include <QStringList>
#include <functional>
#include <memory>

#include "app/Formstart.h"
#include "tests/support/RecBuilder.h"
#include "tests/support/TempFolder.h"
#include "view/Dialogs.h"

class QAction;

namespace quorvin::test {

/// Answers from a script and remembers what was asked.
class ScriptedDialogs : public Dialogs {
public:
    void message(BoxIcon icon, const QString& text) override;
    bool question(BoxIcon icon, const QString& text, const QString& title) override;
    QString openFile(const QString& filter, const QString& folder) override;
    QString saveFile(const QString& filter, const QString& name) override;
    QString inputBox(const QString& prompt, const QString& text) override;
    std::optional<QFont> chooseFont(const QString& title, const QFont& font) override;
    std::optional<QColor> chooseColour(const QColor& colour) override;
    bool setUpPrinter(QPrinter& printer) override;
    bool openOutside(const QString& file) override;

    BoxIcon icon = BoxIcon::information;  ///< of the last box
    QStringList messages;                 ///< texts of the boxes, "!" before critical ones
    int yesAnswers = 0;                   ///< questions answered with Yes; all others with No
    std::function<void()> whileAsking = [] {};
    QString fileToOpen;  ///< empty: cancel
    QString askedFilter;
    QStringList filesToSave;  ///< answers in turn; then cancel
    QStringList askedNames;   ///< names offered
    QString typed;            ///< answer to input boxes; empty: cancel
    std::optional<QFont> font;
    QFont askedFont;  ///< offered
    std::optional<QColor> colour;
    QString pdf;  ///< file that the printer's dialog chooses; empty: cancel
    QStringList openedOutside;
    bool canOpen = true;  ///< whether a program for them is found
};

class WindowTest : public testing::Test {
protected:
    WindowTest();

    /// Writes the file and opens it through the menu.
    void open(const RecBuilder& rec);
    void openFile(const std::filesystem::path& name);

    template<class T = QWidget>
    T& control(const char* name)
    {
        auto* found = form_->findChild<T*>(QString::fromLatin1(name));
        if (!found) throw std::runtime_error(std::string("no control ") + name);
        return *found;
    }
    /// Menu item, or the entry of a menu.
    QAction& item(const char* name);
    /// Triggers a menu item as a click on it does.
    void choose(const char* name) const;
    void click(const char* name, Qt::MouseButton button = Qt::LeftButton);
    /// Has the program under test start a stub instead of EpiData, and whether it ran.
    static void useEpiDataStub();
    bool epiDataStarted() const { return std::filesystem::exists(file().string() + ".started"); }
    void type(const char* name, const QString& text);
    /// Puts the texts into the boxes, choosing their fields by a click, and presses Enter in the last.
    void search(const std::vector<std::pair<int, const char*>>& criteria);
    /// Presses Enter in a box and waits for the search's end.
    void enter(const char* box);

    QString caption(const char* label);
    QString value(int field);
    std::filesystem::path file() const { return folder_.path() / "prova.rec"; }
    static QString clipboard();
    QColor background(const char* name);
    /// Colour of the form where nothing stands.
    QColor formColour();

    TempFolder folder_;
    ScriptedDialogs dialogs_;
    std::unique_ptr<Formstart> form_;
};

}  // namespace quorvin::test
