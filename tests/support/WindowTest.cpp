#include "tests/support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPrinter>
#include <QTest>

namespace quorvin::test {

void ScriptedDialogs::message(BoxIcon shown, const QString& text)
{
    icon = shown;
    messages.append((icon == BoxIcon::critical ? QStringLiteral("!") : QString()) + text);
}

bool ScriptedDialogs::question(BoxIcon shown, const QString& text, const QString& title)
{
    message(shown, title + text);
    whileAsking();
    return yesAnswers-- > 0;
}

QString ScriptedDialogs::openFile(const QString& filter, const QString&)
{
    askedFilter = filter;
    return fileToOpen;
}

QString ScriptedDialogs::saveFile(const QString&, const QString& name)
{
    askedNames.append(name);
    return filesToSave.isEmpty() ? QString() : filesToSave.takeFirst();
}

QString ScriptedDialogs::inputBox(const QString& prompt, const QString&)
{
    messages.append(prompt);
    whileAsking();
    return typed;
}

std::optional<QFont> ScriptedDialogs::chooseFont(const QString& title, const QFont& present)
{
    messages.append(title);
    askedFont = present;
    return font;
}

std::optional<QColor> ScriptedDialogs::chooseColour(const QColor&)
{
    return colour;
}

bool ScriptedDialogs::setUpPrinter(QPrinter& printer)
{
    if (pdf.isEmpty()) return false;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdf);
    return true;
}

bool ScriptedDialogs::openOutside(const QString& file)
{
    openedOutside.append(file);
    return canOpen;
}

WindowTest::WindowTest() : form_(std::make_unique<Formstart>(dialogs_))
{
    form_->resize(1024, 740);
    form_->show();
    form_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get()));
    QApplication::processEvents();
}

void WindowTest::open(const RecBuilder& rec)
{
    openFile(folder_.write("prova.rec", rec.bytes()));
}

void WindowTest::openFile(const std::filesystem::path& name)
{
    dialogs_.fileToOpen = QFileInfo(name).filePath();
    choose("aprifile");
}

QAction& WindowTest::item(const char* name)
{
    if (auto* menu = form_->findChild<QMenu*>(QString::fromLatin1(name))) return *menu->menuAction();
    return control<QAction>(name);
}

void WindowTest::choose(const char* name) const
{
    form_->findChild<QAction*>(QString::fromLatin1(name))->trigger();
    QApplication::processEvents();
}

void WindowTest::click(const char* name, Qt::MouseButton button)
{
    QWidget& widget = control(name);
    // A check box takes clicks on its mark and words only.
    const QPoint mark(8, widget.height() / 2);
    QTest::mouseClick(&widget, button, Qt::NoModifier, widget.inherits("QCheckBox") ? mark : QPoint());
}

void WindowTest::useEpiDataStub()
{
    qputenv("QUORVIN_EPIDATA", EPIDATA_STUB);
}

void WindowTest::type(const char* name, const QString& text)
{
    auto& box = control<QLineEdit>(name);
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, text);
}

void WindowTest::search(const std::vector<std::pair<int, const char*>>& criteria)
{
    std::string box;
    for (const auto& [field, typed] : criteria) {
        box = "Text2(" + std::to_string(field) + ")";
        click(box.c_str());
        type(box.c_str(), QString::fromLatin1(typed));
    }
    enter(box.c_str());
}

void WindowTest::enter(const char* box)
{
    QTest::keyClick(&control(box), Qt::Key_Return);
    const QString running = QStringLiteral("  ...ricerca in corso");
    const auto ended = [&] { return caption("Label16") != running; };
    // Most are over sooner than the first look of a wait.
    for (int i = 0; i < 10 && !ended(); ++i)
        QApplication::processEvents();
    EXPECT_TRUE(QTest::qWaitFor(ended));
}

QString WindowTest::caption(const char* label)
{
    return control<QLabel>(label).text();
}

QString WindowTest::value(int field)
{
    return control<QLineEdit>(qPrintable(QStringLiteral("Text2(%1)").arg(field))).text();
}

QString WindowTest::clipboard()
{
    return QApplication::clipboard()->text();
}

QColor WindowTest::background(const char* name)
{
    const QWidget& widget = control(name);
    return widget.palette().color(widget.inherits("QLineEdit") ? QPalette::Base : QPalette::Button);
}

QColor WindowTest::formColour()
{
    const QImage picture = control("Form").grab().toImage();
    return picture.pixelColor(picture.width() / 2, picture.height() - 5);
}

}  // namespace quorvin::test
