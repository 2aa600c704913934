#include "tests/app/RandomUser.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QRegularExpression>
#include <QSlider>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "view/AnsiText.h"

namespace quorvin::test {

namespace {

constexpr Qt::Key kKeys[] = {
    Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Up,       Qt::Key_Down,
    Qt::Key_Left,   Qt::Key_Right,  Qt::Key_PageUp, Qt::Key_Home,    Qt::Key_PageDown, Qt::Key_End,
    Qt::Key_Delete, Qt::Key_Space,  Qt::Key_A,      Qt::Key_B,       Qt::Key_C,        Qt::Key_F,
    Qt::Key_O,      Qt::Key_P,      Qt::Key_S,      Qt::Key_V,       Qt::Key_X,        Qt::Key_Z,
    Qt::Key_0,      Qt::Key_1,      Qt::Key_F1,     Qt::Key_F2,      Qt::Key_F10,      Qt::Key_Backspace};
constexpr Qt::KeyboardModifier kModifiers[] = {Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
                                               Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
constexpr const char* kInputs = "Command\\d|Text\\d.*|Textcomunic|Check\\d|enlarge|List\\d|font.*|bold";

}  // namespace

std::span<const RandomUser::Deed> RandomUser::deeds()
{
    static constexpr Deed kDeeds[] = {
        {"open", 2, &RandomUser::openAnother, false},
        {"click", 20, &RandomUser::click, true},
        {"click", 14, &RandomUser::clickInput, true},
        {"drag", 3, &RandomUser::drag, true},
        {"key", 22, &RandomUser::pressKey, true},
        {"item", 22, &RandomUser::chooseItem, false},
        {"wheel", 3, &RandomUser::turnWheel, false},
        {"slider", 3, &RandomUser::moveSlider, false},
        {"resize", 2, &RandomUser::resizeWindow, false},
        {"type", 8, &RandomUser::typeText, false},
        {"paste", 2, &RandomUser::paste, false},
        {"search", 6, &RandomUser::search, false},
        {"search and go on", 4, &RandomUser::searchAndGoOn, false},
        {"hit", 6, &RandomUser::clickHit, false},
        {"pause", 1, &RandomUser::pause, true},
        {"hold", 1, &RandomUser::holdButton, false},
        {"without file", 1, &RandomUser::workWithoutFile, false},
        {"close", 1, &RandomUser::closeWindow, false},
    };
    return kDeeds;
}

void RandomUser::openAnother()
{
    note(dialogs_.fileToOpen);
    choose("aprifile");
}

/// One that shows and takes input, with a name of this pattern if one is given.
QWidget* RandomUser::anyControl(const char* names)
{
    const QRegularExpression pattern(QRegularExpression::anchoredPattern(QLatin1String(names)));
    QList<QWidget*> controls =
        *names ? form_->findChildren<QWidget*>(pattern) : form_->findChildren<QWidget*>();
    controls.removeIf(
        [](QWidget* c) { return c->visibleRegion().isEmpty() || !c->isEnabled() || c->isWindow(); });
    QWidget* control = controls.isEmpty() ? form_.get() : oneOf(controls);
    const QString name = control->objectName();
    note(name.isEmpty() ? QLatin1String(control->metaObject()->className()) : name);
    return control;
}

/// A place of the window where the control shows.
QPoint RandomUser::placeIn(const QWidget& control)
{
    const QRect seen = control.visibleRegion().boundingRect();
    const auto along = [this](int length) { return below(static_cast<std::size_t>(length)); };
    return control.mapTo(form_.get(), seen.topLeft() + QPoint(along(seen.width()), along(seen.height())));
}

void RandomUser::click()
{
    const Qt::MouseButton button = chance(6) ? Qt::RightButton : Qt::LeftButton;
    const QPoint place = placeIn(*anyControl());
    const auto press =
        chance(12)
            ? qOverload<QWindow*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int>(QTest::mouseDClick)
            : qOverload<QWindow*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int>(QTest::mouseClick);
    press(form_->windowHandle(), button, oneOf(kModifiers), place, -1);
}

void RandomUser::clickInput()
{
    const QPoint place = placeIn(*anyControl(kInputs));
    QTest::mouseClick(form_->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
}

void RandomUser::drag()
{
    const QPoint from = placeIn(*anyControl());
    const QPoint to = placeIn(*anyControl());
    QTest::mousePress(form_->windowHandle(), Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(form_->windowHandle(), (from + to) / 2);
    QTest::mouseRelease(form_->windowHandle(), Qt::LeftButton, Qt::NoModifier, to);
}

void RandomUser::pressKey()
{
    const QKeyCombination keys(oneOf(kModifiers), oneOf(kKeys));
    note(QKeySequence(keys).toString(QKeySequence::PortableText));
    QTest::keyClick(form_->windowHandle(), keys.key(), keys.keyboardModifiers());
}

void RandomUser::chooseItem()
{
    closeMenus();
    const QStringList names = rules_->items();
    QString name = oneOf(names);
    // Mostly one that can be chosen.
    for (int tries = 0; tries < 4 && !rules_->isReachable(name); ++tries)
        name = oneOf(names);
    QAction& action = rules_->item(name);
    note(name);
    if (action.menu() || (action.isEnabled() && !rules_->isReachable(name))) return;
    // A window is to live long enough to get into every state.
    if (name == QLatin1String("esci") && !chance(10)) return;
    const bool enabled = action.isEnabled();
    const QStringList before = tickedItems();
    action.trigger();
    if (!enabled && tickedItems() != before) fail(name + QStringLiteral(" works, though it is disabled"));
}

QStringList RandomUser::tickedItems() const
{
    QStringList ticked = rules_->items();
    ticked.removeIf([this](const QString& name) { return !rules_->item(name).isChecked(); });
    return ticked;
}

void RandomUser::turnWheel()
{
    QWidget* control = anyControl();
    const QPointF place = control->rect().center();
    QWheelEvent event(place, control->mapToGlobal(place), {}, QPoint(0, chance(2) ? 120 : -240), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(control, &event);
}

void RandomUser::moveSlider()
{
    const auto sliders = form_->findChildren<QAbstractSlider*>();
    QAbstractSlider* slider = oneOf(sliders);
    const int steps = slider->maximum() - slider->minimum();
    if (slider->isVisible()) slider->setValue(slider->minimum() + below(static_cast<std::size_t>(steps) + 1));
}

void RandomUser::resizeWindow()
{
    form_->resize(500 + below(1100), 300 + below(900));
}

void RandomUser::typeText()
{
    auto* box = qobject_cast<QLineEdit*>(anyControl("Text\\d.*|qt_spinbox_lineedit"));
    if (!box) return;
    const PlainRec* rec = openRec();
    const QString text = rec && chance(8) ? QString::number(rec->count() + 1) : anyText();
    note(text);
    box->setFocus();
    box->selectAll();
    box->insert(text);
    if (chance(3)) QTest::keyClick(form_->windowHandle(), Qt::Key_Return);
}

void RandomUser::paste()
{
    anyControl("Text.*")->setFocus();
    QTest::keyClick(form_->windowHandle(), Qt::Key_V, Qt::ControlModifier);
}

/// Chooses fields anew, types what may be found there, and presses Enter.
bool RandomUser::beginSearch()
{
    const PlainRec* rec = openRec();
    if (!rec || isSearching()) return false;
    if (rules_->isAnyTicked(QStringLiteral("stamp1 impmat impostadoc").split(QLatin1Char(' ')))) return false;
    searched_ = true;
    if (!rules_->isTicked("elencorekord") && !chance(3)) choose("elencorekord");
    // Also by a button that an enlarged table has taken out of sight.
    WindowTest::click("Command3");
    query_ = {};
    query_.eliminapuntegg = rules_->isTicked("eliminapuntegg");
    for (query_.mode = 1; !rules_->isTicked(qPrintable(QStringLiteral("ric(%1)").arg(query_.mode)));)
        ++query_.mode;
    std::string box;
    for (int left = 1 + below(3); left > 0; --left) {
        const auto field = 1 + static_cast<std::size_t>(below(rec->lengths.size() - 1));
        if (rec->lengths[field] == 0) continue;
        const auto record = rec->record(1 + static_cast<std::size_t>(below(rec->count())));
        const QString stored = fromAnsi(record[field]).trimmed().left(1 + below(8));
        const QString text = chance(3) || stored.isEmpty() ? anyText() : stored;
        box = "Text2(" + std::to_string(field) + ")";
        note(QString::fromStdString(box) + text);
        WindowTest::click(box.c_str());
        control<QLineEdit>(box.c_str()).setText(text.isEmpty() ? QStringLiteral(" ") : text);
        query_.selection.push_back(static_cast<int>(field));
    }
    for (const int field : query_.selection)
        query_.texts.push_back(toAnsi(value(field)));
    if (rules_->isTicked("unirek")) query_.joined = query_.selection.size();
    if (!box.empty()) QTest::keyClick(&control(box.c_str()), Qt::Key_Return);
    return !box.empty();
}

void RandomUser::search()
{
    if (!beginSearch()) return;
    constexpr qint64 kPatience = 20000;
    QElapsedTimer time;
    for (time.start(); isSearching() && time.elapsed() < kPatience;)
        QApplication::processEvents();
    if (isSearching()) fail(QStringLiteral("the search does not end"));
    checkHits();
}

void RandomUser::searchAndGoOn()
{
    beginSearch();
    searched_ = true;
    if (chance(2)) pressKey();
    if (chance(2)) chooseItem();
}

void RandomUser::clickHit()
{
    for (const char* name : {"List1", "List2"}) {
        auto& list = control<QListView>(name);
        const int rows = list.model()->rowCount();
        if (!list.isVisible() || rows == 0) continue;
        const QModelIndex line = list.model()->index(below(static_cast<std::size_t>(rows)), 0);
        note(line.data().toString());
        list.scrollTo(line);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, list.visualRect(line).center());
    }
}

void RandomUser::pause()
{
    QTest::qWait(below(20));
}

/// Long enough for a step or two; sometimes the button is let go somewhere else.
void RandomUser::holdButton()
{
    QWidget& button = control(chance(2) ? "Command1" : "Command2");
    if (!button.isVisible() || !button.isEnabled() || !chance(3)) return;
    QTest::mousePress(&button, Qt::LeftButton);
    QTest::qWait(60);
    if (!chance(3)) QTest::mouseRelease(&button, Qt::LeftButton);
}

/// Others have taken the file away for a moment.
void RandomUser::workWithoutFile()
{
    const auto file = folder_.path() / openName().toStdString();
    if (openName().isEmpty() || !std::filesystem::exists(file)) return;
    fileWasGone_ = true;
    std::filesystem::rename(file, file.string() + ".via");
    pressKey();
    chooseItem();
    QApplication::processEvents();
    std::filesystem::rename(file.string() + ".via", file);
}

void RandomUser::closeWindow()
{
    if (chance(20)) form_->close();
}

}  // namespace quorvin::test
