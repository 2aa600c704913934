#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QRegularExpression>
#include <QSlider>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <deque>
#include <iostream>
#include <iterator>
#include <random>

#include "base/Text.h"
#include "tests/app/WindowRules.h"
#include "tests/search/SlowSearch.h"
#include "tests/support/WindowTest.h"
#include "view/AnsiText.h"

namespace quorvin {
namespace {

using test::WindowRules;

/// A REC file taken apart by hand: whole in memory, byte by byte.
struct PlainRec {
    std::string bytes;
    std::vector<std::size_t> lengths = {0};  ///< of the fields, from 1
    std::size_t dataStart = 0;
    std::size_t recordBytes = 0;

    explicit PlainRec(std::string all) : bytes(std::move(all))
    {
        std::size_t columns = 0;
        const auto skipLine = [&] { dataStart = bytes.find("\r\n", dataStart) + 2; };
        skipLine();
        for (int left = std::stoi(bytes); left > 0; --left) {
            lengths.push_back(std::stoul(bytes.substr(dataStart + 37, 3)));
            columns += lengths.back();
            skipLine();
        }
        std::size_t end = dataStart;
        for (std::size_t line = 0; line < (columns + 77) / 78; ++line)
            end = bytes.find("\r\n", end) + 2;
        recordBytes = end - dataStart;
    }

    std::size_t count() const { return (bytes.size() - dataStart) / recordBytes; }

    /// Values of the fields, from 1, and in slot 0 the mark.
    std::vector<std::string> record(std::size_t n) const
    {
        std::string text;
        std::vector<std::string> values(1);
        const std::size_t end = dataStart + n * recordBytes;
        for (std::size_t at = end - recordBytes; at < end; at = bytes.find("\r\n", at) + 2) {
            const std::size_t length = bytes.find("\r\n", at) - at;
            text += bytes.substr(at, std::min<std::size_t>(length, 78));
            values[0] = bytes[at + length - 1];
        }
        std::size_t from = 0;
        for (std::size_t i = 1; i < lengths.size(); from += lengths[i++])
            values.push_back(from < text.size() ? text.substr(from, lengths[i]) : std::string());
        return values;
    }
};

QStringList qtMessages;

void takeQtMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    // The display that is none says what it cannot do.
    if (type == QtDebugMsg || type == QtInfoMsg || text.startsWith(QLatin1String("This plugin does not"))) return;
    qtMessages += text;
}

int setting(const char* name, int usual)
{
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : usual;
}

constexpr const char* kTexts[] = {"",      "a",     "ROS",        " ",  "  ", ">5 <90", "<=", "1", "2",
                                  "12",    "-1",    "0",          "3x", "é€", "*(2)*",  "%1", "M", "/",
                                  "\"{\\", "Mario", "12/03/2004", ".",  "99999999999999999999"};
constexpr Qt::Key kKeys[] = {
    Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Up,       Qt::Key_Down,
    Qt::Key_Left,   Qt::Key_Right,  Qt::Key_PageUp, Qt::Key_Home,    Qt::Key_PageDown, Qt::Key_End,
    Qt::Key_Delete, Qt::Key_Space,  Qt::Key_A,      Qt::Key_B,       Qt::Key_C,        Qt::Key_F,
    Qt::Key_O,      Qt::Key_P,      Qt::Key_S,      Qt::Key_V,       Qt::Key_X,        Qt::Key_Z,
    Qt::Key_0,      Qt::Key_1,      Qt::Key_F1,     Qt::Key_F2,      Qt::Key_F10,      Qt::Key_Backspace};
constexpr Qt::KeyboardModifier kModifiers[] = {Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
                                               Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};

/// A user who does anything at all, in a fixed order for each seed. QUORVIN_STRESS_SEED, _SEEDS and _EVENTS
/// replay one seed, or let it go on for long.
class StressTest : public test::WindowTest {
protected:
    StressTest()
    {
        const std::string good = test::rec({{}, {}}).record({"a", "b"}).bytes();
        for (const char* name : {"infert.rec", "oswego.rec", "wnv.rec"})
            add(name, test::bytesOf(std::filesystem::path(TEST_DATA) / name));
        add("pazienti.rec", test::bytesOf(std::filesystem::path(TEST_SAMPLES) / "pazienti.rec"));
        add("molti.rec", manyRecords());
        folder_.write("vuoto.rec", "");
        folder_.write("rotto.rec", good.substr(0, 80));
        folder_.write("rumore.rec", "7 1\r\n" + std::string(3000, '\xFF'));
        folder_.write("esiste.rec", good);
        // Beside this one no settings can be written.
        std::filesystem::create_directory(folder_.path() / "wnv.mtr");
        qputenv("QUORVIN_EPIDATA", QByteArray::fromStdString((folder_.path() / "nessuno").string()));
        previous_ = qInstallMessageHandler(takeQtMessage);
        QObject::connect(&watchdog_, &QTimer::timeout, [this] { endLoops(); });
        watchdog_.start(10);
    }

    ~StressTest() override
    {
        form_.reset();
        qInstallMessageHandler(previous_);
    }

    static std::string manyRecords()
    {
        test::RecBuilder builder(std::vector<test::FieldSpec>(24, {.length = 4}));
        for (int i = 0; i < 6000; ++i)
            builder.record({std::to_string(i), "a" + std::to_string(i % 700), "", "x y"}, i % 9 ? '!' : '?');
        return builder.bytes();
    }

    void add(const std::string& name, const std::string& bytes)
    {
        folder_.write(name, bytes);
        files_.emplace(name, PlainRec(bytes));
    }

    // Chance

    int below(std::size_t n) { return static_cast<int>(random_() % std::max<std::size_t>(n, 1)); }
    bool chance(std::size_t oneIn) { return below(oneIn) == 0; }
    template<class Range>
    auto& oneOf(Range& range)
    {
        return *std::next(std::begin(range), below(std::size(range)));
    }

    QString anyFile()
    {
        const char* const names[] = {"pazienti.rec", "oswego.rec", "infert.rec", "wnv.rec",    "molti.rec",
                                     "pazienti.rec", "vuoto.rec",  "rotto.rec",  "rumore.rec", "manca.rec"};
        return path(oneOf(names));
    }

    QString path(const std::string& name) const
    {
        return QString::fromStdString((folder_.path() / name).string());
    }

    void prepareAnswers()
    {
        QString targets[] = {path(openName().toStdString()), path("./" + openName().toStdString()),
                                   path("esiste.rec"), path("nuovo.rec"), path("manca/x.rec"), QString()};
        dialogs_.messages.clear();
        dialogs_.fileToOpen = chance(6) ? QString() : anyFile();
        dialogs_.yesAnswers = chance(2) ? below(4) : 0;
        dialogs_.typed = QString::fromUtf8(oneOf(kTexts));
        dialogs_.filesToSave = {oneOf(targets), oneOf(targets), oneOf(targets)};
        dialogs_.pdf = oneOf(targets).replace(QLatin1String(".rec"), QLatin1String(".pdf"));
        dialogs_.font = chance(2) ? std::optional(QFont(QStringLiteral("Courier new"), 8 + below(6))) : std::nullopt;
        dialogs_.colour = chance(2) ? std::optional(QColor(Qt::blue)) : std::nullopt;
    }

    // What the user does

    QWidget* anyControl()
    {
        QList<QWidget*> controls = form_->findChildren<QWidget*>();
        controls.removeIf([](QWidget* w) { return w->visibleRegion().isEmpty() || !w->isEnabled() || w->isWindow(); });
        QWidget* chosen = controls.isEmpty() ? form_.get() : oneOf(controls);
        note(chosen->objectName().isEmpty() ? QLatin1String(chosen->metaObject()->className())
                                            : chosen->objectName());
        return chosen;
    }

    /// A place of the window where the control shows.
    QPoint placeIn(const QWidget& control)
    {
        const QRect seen = control.visibleRegion().boundingRect();
        const auto along = [this](int length) { return below(static_cast<std::size_t>(length)); };
        return control.mapTo(form_.get(), seen.topLeft() + QPoint(along(seen.width()), along(seen.height())));
    }

    void clickAnywhere()
    {
        const Qt::MouseButton button = chance(6) ? Qt::RightButton : Qt::LeftButton;
        const QPoint place = placeIn(*anyControl());
        if (chance(12)) {
            QTest::mouseDClick(form_->windowHandle(), button, oneOf(kModifiers), place);
        } else {
            QTest::mouseClick(form_->windowHandle(), button, oneOf(kModifiers), place);
        }
    }

    void clickButtonOrBox()
    {
        QList<QWidget*> controls = form_->findChildren<QWidget*>(QRegularExpression(
            QStringLiteral("^(Command.*|Text\\d.*|Check\\d|enlarge|List\\d|bold|qt_spinbox_lineedit)$")));
        controls.removeIf([](QWidget* w) { return w->visibleRegion().isEmpty() || !w->isEnabled(); });
        if (controls.isEmpty()) return;
        QWidget* chosen = oneOf(controls);
        note(chosen->objectName());
        QTest::mouseClick(form_->windowHandle(), Qt::LeftButton, Qt::NoModifier, placeIn(*chosen));
    }

    void drag()
    {
        const QPoint from = placeIn(*anyControl());
        const QPoint to = placeIn(*anyControl());
        QTest::mousePress(form_->windowHandle(), Qt::LeftButton, Qt::NoModifier, from);
        QTest::mouseMove(form_->windowHandle(), (from + to) / 2);
        if (chance(10)) QTest::qWait(60);
        QTest::mouseRelease(form_->windowHandle(), Qt::LeftButton, Qt::NoModifier, to);
    }

    void pressKey()
    {
        const Qt::Key key = oneOf(kKeys);
        const Qt::KeyboardModifier modifier = oneOf(kModifiers);
        note(QKeySequence(key | modifier).toString(QKeySequence::PortableText));
        QTest::keyClick(form_->windowHandle(), key, modifier);
    }

    void chooseItem()
    {
        const QStringList names = rules_->items();
        QString name = oneOf(names);
        // The program's end now and then only, and the modes more often.
        if (name == QLatin1String("esci") && !chance(10)) name = QStringLiteral("elencorekord");
        QAction& action = rules_->item(name);
        note(name);
        if (action.menu() || (action.isEnabled() && !rules_->isReachable(name))) return;
        const bool enabled = action.isEnabled();
        const QStringList before = tickedItems();
        action.trigger();
        if (!enabled && tickedItems() != before) fail(name + QStringLiteral(" works, though it is disabled"));
    }

    QStringList tickedItems() const
    {
        QStringList ticked = rules_->items();
        ticked.removeIf([this](const QString& name) { return !rules_->item(name).isChecked(); });
        return ticked;
    }

    void openAnother()
    {
        note(dialogs_.fileToOpen);
        choose("aprifile");
    }

    void turnWheel()
    {
        QWidget* control = anyControl();
        const QPointF place = control->rect().center();
        QWheelEvent event(place, control->mapToGlobal(place), {}, QPoint(0, chance(2) ? 120 : -240),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(control, &event);
    }

    void moveSlider()
    {
        const QList<QAbstractSlider*> sliders = form_->findChildren<QAbstractSlider*>();
        QAbstractSlider* slider = oneOf(sliders);
        if (!slider->isVisible() || slider->maximum() <= slider->minimum()) return;
        const auto steps = static_cast<std::size_t>(slider->maximum()) - static_cast<std::size_t>(slider->minimum());
        slider->setValue(slider->minimum() + below(steps + 1));
    }

    void resizeWindow() { form_->resize(500 + below(1100), 300 + below(900)); }

    void typeText()
    {
        QList<QLineEdit*> boxes = form_->findChildren<QLineEdit*>();
        boxes.removeIf([](QLineEdit* box) { return !box->isVisible() || !box->isEnabled() || box->isReadOnly(); });
        if (boxes.isEmpty()) return;
        QLineEdit* box = oneOf(boxes);
        const QString text = QString::fromUtf8(oneOf(kTexts));
        note(box->objectName() + QLatin1Char('=') + text);
        box->setFocus();
        box->selectAll();
        box->insert(text);
        if (chance(3)) QTest::keyClick(form_->windowHandle(), Qt::Key_Return);
    }

    void pause() { QTest::qWait(below(30)); }

    void holdButton()
    {
        auto& button = control(chance(2) ? "Command1" : "Command2");
        if (!button.isVisible() || !button.isEnabled()) return;
        QTest::mousePress(&button, Qt::LeftButton);
        QTest::qWait(60);
        if (!chance(3)) QTest::mouseRelease(&button, Qt::LeftButton);
    }

    void clickHit()
    {
        for (const char* name : {"List1", "List2"}) {
            auto& list = control<QListView>(name);
            const int rows = list.model()->rowCount();
            if (!list.isVisible() || rows == 0) continue;
            const QModelIndex line = list.model()->index(below(static_cast<std::size_t>(rows)), 0);
            list.scrollTo(line);
            note(line.data().toString());
            QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, list.visualRect(line).center());
        }
    }

    void closeWindow() { form_->close(); }

    /// Others have taken the file away for a moment.
    void withoutFile()
    {
        const auto name = folder_.path() / openName().toStdString();
        if (openName().isEmpty() || !std::filesystem::exists(name)) return;
        std::filesystem::rename(name, name.string() + ".via");
        gone_ = true;
        pressKey();
        chooseItem();
        QApplication::processEvents();
        std::filesystem::rename(name.string() + ".via", name);
        if (control("Command1").isVisible()) click("Command1");
    }

    /// A whole search from the beginning, held against a plain one.
    void searchFields();
    void searchAndGoOn()
    {
        beginSearch();
        if (chance(2)) pressKey();
        if (chance(2)) chooseItem();
    }
    bool beginSearch();

    // What must hold

    QString openName()
    {
        const QString title = form_->windowTitle();
        return title.contains(QLatin1String(" - ")) ? title.section(QLatin1String(" - "), 0, 0) : QString();
    }
    std::string settings()
    {
        const auto file = (folder_.path() / openName().toStdString()).replace_extension(".mtr");
        return std::filesystem::is_regular_file(file) ? test::bytesOf(file) : std::string();
    }
    const PlainRec* openRec()
    {
        const auto found = files_.find(openName().toStdString());
        return found == files_.end() ? nullptr : &found->second;
    }
    bool isSearching() { return caption("Label16") == QLatin1String("  ...ricerca in corso"); }

    void check();
    void checkRecord(const PlainRec& rec);
    void checkBoxes(const PlainRec& rec);
    void checkFiles();

    void note(const QString& what) { trail_.back() += QLatin1Char(' ') + what; }
    void fail(const QString& what) { failures_ += what; }
    void endLoops();
    void startForm();
    void run(unsigned seed, int events);

    std::mt19937 random_;
    std::map<std::string, PlainRec> files_;
    std::unique_ptr<WindowRules> rules_;
    std::deque<QString> trail_;
    QStringList failures_;
    QStringList triggered_;  ///< items chosen, by whatever way
    QString number_;         ///< Label14 before the event
    std::string settings_;   ///< the .mtr file before it
    bool searched_ = false;
    bool gone_ = false;
    test::SlowSearch query_;
    QTimer watchdog_;
    QtMessageHandler previous_ = nullptr;
    qint64 slowest_ = 0;

    struct Deed {
        const char* name;
        int weight;
        void (StressTest::*act)();
    };
    static constexpr std::size_t kOpening = 0;
    static constexpr Deed kDeeds[] = {
        {"open", 2, &StressTest::openAnother},
        {"click", 20, &StressTest::clickAnywhere},    {"button", 14, &StressTest::clickButtonOrBox},
        {"drag", 3, &StressTest::drag},               {"key", 22, &StressTest::pressKey},
        {"menu", 22, &StressTest::chooseItem},
        {"wheel", 3, &StressTest::turnWheel},         {"slider", 3, &StressTest::moveSlider},
        {"resize", 2, &StressTest::resizeWindow},     {"type", 8, &StressTest::typeText},
        {"search", 6, &StressTest::searchFields},     {"search on", 4, &StressTest::searchAndGoOn},
        {"hit", 6, &StressTest::clickHit},            {"pause", 1, &StressTest::pause},
        {"hold", 1, &StressTest::holdButton},         {"without file", 1, &StressTest::withoutFile},
        {"close", 1, &StressTest::closeWindow},
    };
};

bool StressTest::beginSearch()
{
    const PlainRec* rec = openRec();
    if (!rec || isSearching() || (rules_->isTicked("stamp1") || rules_->isTicked("impmat") || rules_->isTicked("impostadoc"))) return false;
    searched_ = true;
    if (!chance(3) && !rules_->isTicked("elencorekord")) choose("elencorekord");
    click("Command3");
    query_ = {};
    query_.eliminapuntegg = rules_->isTicked("eliminapuntegg");
    while (!rules_->isTicked(qPrintable(QStringLiteral("ric(%1)").arg(query_.mode = 1 + below(8))))) {
    }
    for (int left = 1 + below(3); left > 0; --left) {
        const int field = 1 + below(rec->lengths.size() - 1);
        const std::string box = "Text2(" + std::to_string(field) + ")";
        if (rec->lengths[static_cast<std::size_t>(field)] == 0) continue;
        const auto record = rec->record(1 + static_cast<std::size_t>(below(rec->count())));
        const QString value = fromAnsi(record[static_cast<std::size_t>(field)]).trimmed();
        QString text = chance(3) ? QString::fromUtf8(oneOf(kTexts)) : value.left(1 + below(8));
        if (text.isEmpty()) text = QLatin1Char(' ');
        click(box.c_str());
        control<QLineEdit>(box.c_str()).setText(text);
        query_.selection.push_back(field);
        note(QString::fromStdString(box) + QLatin1Char('=') + text);
    }
    if (query_.selection.empty()) return false;
    for (const int field : query_.selection)
        query_.texts.push_back(toAnsi(value(field)));
    if (rules_->isTicked("unirek")) query_.joined = query_.selection.size();
    const int last = query_.selection.back();
    QTest::keyClick(&control(qPrintable(QStringLiteral("Text2(%1)").arg(last))), Qt::Key_Return);
    return true;
}

void StressTest::searchFields()
{
    if (!beginSearch()) return;
    QElapsedTimer time;
    for (time.start(); isSearching() && time.elapsed() < 5000;)
        QApplication::processEvents();
    if (isSearching()) fail(QStringLiteral("the search does not end"));
    const PlainRec& rec = *openRec();
    const QStringList boxes = dialogs_.messages;
    const bool stopped = boxes.contains(QStringLiteral("continuo?")) || !boxes.filter(QStringLiteral("!Err")).isEmpty();
    if (stopped || rec.count() > 1000 || rules_->isTicked("ricparz")) return;
    std::vector<std::size_t> expected;
    for (std::size_t n = 1; n <= rec.count(); ++n) {
        const auto record = rec.record(n);
        if (rules_->isTicked("norec") && record[0] == "?") continue;
        if (test::isHit(query_, record)) expected.push_back(n);
    }
    if (val(toAnsi(caption("Label3"))) != static_cast<double>(expected.size()))
        fail(QStringLiteral("hits %1, a plain search finds %2").arg(caption("Label3")).arg(expected.size()));
    if (!rules_->isTicked("elencorekord") || rules_->isTicked("sort")) return;
    const auto& lines = *control<QListView>("List1").model();
    for (int i = 0; i < lines.rowCount() && i < static_cast<int>(expected.size()); ++i) {
        const auto line = toAnsi(lines.index(i, 0).data().toString());
        if (val(line.substr(0, line.find('.'))) != static_cast<double>(expected[static_cast<std::size_t>(i)]))
            fail(QStringLiteral("line %1 is no hit").arg(i));
    }
}

void StressTest::check()
{
    failures_ += rules_->broken();
    failures_ += std::exchange(qtMessages, {});
    if (QApplication::activeModalWidget()) fail(QStringLiteral("a box stays open"));
    if (QThread::currentThread()->loopLevel() != 0) fail(QStringLiteral("an event loop goes on"));
    const bool open = !openName().isEmpty();
    if (openName() == QLatin1String("vuoto.rec") || openName() == QLatin1String("manca.rec")) fail(QStringLiteral("open, though it cannot be"));
    if (control("Command1").isEnabled() != open) fail(QStringLiteral("Command1 does not follow the file"));
    if (const PlainRec* rec = openRec()) {
        checkRecord(*rec);
        checkBoxes(*rec);
    }
    for (const char* name : {"List1", "List2"}) {
        const int rows = control<QListView>(name).model()->rowCount();
        // Printing records takes the lines off and leaves the count.
        if (isSearching() || !rules_->isTicked("elencorekord") || rules_->isTicked("stamp1")) break;
        if (val(toAnsi(caption("Label3"))) != rows)
            fail(QStringLiteral("%1 hits in Label3, %2 lines").arg(caption("Label3")).arg(rows));
    }
    checkFiles();
}

void StressTest::checkRecord(const PlainRec& rec)
{
    const auto count = QString::number(rec.count());
    if (caption("Label9") != QLatin1Char(' ') + count + QLatin1Char(' ') && !gone_)
        fail(QStringLiteral("Label9 reads %1, the file has %2").arg(caption("Label9"), count));
    const QString number = caption("Label14");
    if (number == QLatin1String("Rekord n.")) return;
    const double n = val(toAnsi(number));
    if (n < 1 || n > static_cast<double>(rec.count())) {
        fail(QStringLiteral("no such record: ") + number);
    } else if (number != number_ && !searched_ && !gone_) {
        const auto record = rec.record(static_cast<std::size_t>(n));
        for (int i = 1; i < static_cast<int>(rec.lengths.size()); ++i) {
            const QString stored = fromAnsi(record[static_cast<std::size_t>(i)]);
            const QString shown = rules_->isTicked("impostMaiusc") ? stored.toUpper() : stored;
            if (value(i) != shown)
                fail(QStringLiteral("record %1, field %2: '%3', not '%4'").arg(number).arg(i).arg(value(i), shown));
        }
        if ((background("Command3") == QColor(255, 255, 0)) != (record[0] == "?"))
            fail(QStringLiteral("signal of a deleted record"));
    }
}

void StressTest::checkBoxes(const PlainRec& rec)
{
    const bool records = rules_->isTicked("stamp1");
    if (rules_->isTicked("impmat") || isSearching()) return;
    for (int i = 1; i < static_cast<int>(rec.lengths.size()); ++i) {
        const auto& box = control(qPrintable(QStringLiteral("Text2(%1)").arg(i)));
        if (box.isEnabledTo(box.parentWidget()) == records)
            fail(box.objectName() + QStringLiteral(" is wrongly enabled or disabled"));
        if (box.isHidden() != (rec.lengths[static_cast<std::size_t>(i)] == 0))
            fail(box.objectName() + QStringLiteral(" is wrongly shown or hidden"));
    }
}

void StressTest::checkFiles()
{
    for (const auto& [name, rec] : files_) {
        if ((name == openName().toStdString() || chance(50)) && test::bytesOf(folder_.path() / name) != rec.bytes)
            fail(QString::fromStdString(name) + QStringLiteral(" has changed"));
    }
    const std::string now = settings();
    const auto writes = {"intestazione", "margstamp", "impmat", "impostadoc", "documento", "aprifile", "esci"};
    const bool mayWrite = std::any_of(writes.begin(), writes.end(), [this](const char* item) {
        return triggered_.contains(QLatin1String(item));
    });
    if (now != settings_ && !mayWrite) fail(QStringLiteral("the settings have changed"));
    if (now == settings_ || now.empty()) return;
    static const QRegularExpression form(
        QStringLiteral("\\A(?: \\d+\\r\\n)*[^\\r\\n]*\\r\\n \\d+\\r\\n\"[^\"]*\"\\r\\n\\z"));
    if (!form.match(QString::fromLatin1(QByteArray::fromStdString(now))).hasMatch())
        fail(QStringLiteral("the settings cannot be read again"));
}

/// What waits inside an event: the menus of Qt's own controls may, boxes may not.
void StressTest::endLoops()
{
    if (QThread::currentThread()->loopLevel() == 0) return;
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    } else if (QWidget* modal = QApplication::activeModalWidget()) {
        fail(QStringLiteral("waits for an answer that nobody can give"));
        modal->close();
    }
}

void StressTest::startForm()
{
    form_ = std::make_unique<Formstart>(dialogs_);
    form_->resize(1024, 740);
    form_->show();
    form_->activateWindow();
    rules_ = std::make_unique<WindowRules>(*form_);
    for (const QString& name : rules_->items())
        QObject::connect(&rules_->item(name), &QAction::triggered, [this, name] { triggered_ += name; });
}

void StressTest::run(unsigned seed, int events)
{
    random_.seed(seed);
    startForm();
    std::vector<const Deed*> deeds;
    for (const Deed& deed : kDeeds)
        deeds.insert(deeds.end(), static_cast<std::size_t>(deed.weight), &deed);
    for (int event = 1; event <= events && failures_.isEmpty(); ++event) {
        if (!form_->isVisible()) startForm();
        const Deed& deed = openName().isEmpty() && chance(2) ? kDeeds[kOpening] : *oneOf(deeds);
        trail_.push_back(QStringLiteral("%1 %2:").arg(event).arg(QLatin1String(deed.name)));
        if (trail_.size() > 30) trail_.pop_front();
        prepareAnswers();
        triggered_.clear();
        searched_ = isSearching();
        gone_ = false;
        number_ = caption("Label14");
        settings_ = settings();
        QElapsedTimer time;
        time.start();
        try {
            (this->*deed.act)();
            QApplication::processEvents();
        } catch (const std::exception& error) {
            fail(QStringLiteral("escaped: ") + QLatin1String(error.what()));
        }
        searched_ = searched_ || dialogs_.messages.contains(QStringLiteral("continuo?"));
        if (time.elapsed() > slowest_) slowest_ = time.elapsed();
        if (form_->isVisible()) check();
    }
    const qsizetype objects = form_->findChildren<QObject*>().size();
    if (objects > 4000) fail(QStringLiteral("%1 objects in the window").arg(objects));
    EXPECT_TRUE(failures_.isEmpty()) << "seed " << seed << "\n"
                                     << qPrintable(failures_.join(QLatin1Char('\n'))) << "\nafter\n"
                                     << qPrintable(QStringList(trail_.begin(), trail_.end()).join(QLatin1Char('\n')));
}

TEST_F(StressTest, WhateverTheUserDoes)
{
    const int first = setting("QUORVIN_STRESS_SEED", 1);
    const int seeds = setting("QUORVIN_STRESS_SEEDS", qEnvironmentVariableIsSet("QUORVIN_STRESS_SEED") ? 1 : 2);
    const int events = setting("QUORVIN_STRESS_EVENTS", 10000);
    for (int seed = first; seed < first + seeds && !HasFailure(); ++seed) {
        QElapsedTimer time;
        time.start();
        run(static_cast<unsigned>(seed), events);
        std::cout << "seed " << seed << ": " << time.elapsed() << " ms, slowest event " << slowest_ << " ms, "
                  << form_->findChildren<QObject*>().size() << " objects\n";
    }
}

}  // namespace
}  // namespace quorvin
