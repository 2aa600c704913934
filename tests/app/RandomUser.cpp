#include "tests/app/RandomUser.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QMimeData>
#include <QThread>
#include <QTimer>

namespace quorvin::test {

namespace {

constexpr const char* kTexts[] = {"",
                                  "a",
                                  "ROS",
                                  " ",
                                  "  ",
                                  ">5 <90",
                                  "<=",
                                  "1",
                                  "2",
                                  "12",
                                  "-1",
                                  "0",
                                  "3x",
                                  "é€",
                                  "*(2)*",
                                  "%1",
                                  "M",
                                  "/",
                                  "\"{\\",
                                  "Mario",
                                  "12/03/2004",
                                  ".",
                                  "99999999999999999999"};
constexpr const char* kFiles[] = {"pazienti.rec", "oswego.rec", "infert.rec", "wnv.rec",    "molti.rec",
                                  "pazienti.rec", "vuoto.rec",  "rotto.rec",  "rumore.rec", "manca.rec"};
constexpr std::size_t kTrail = 30;

std::string manyRecords()
{
    RecBuilder builder(std::vector<FieldSpec>(24, {.length = 4}));
    for (int i = 0; i < 6000; ++i)
        builder.record({std::to_string(i), "a" + std::to_string(i % 700), "", "x y"}, i % 9 ? '!' : '?');
    return builder.bytes();
}

}  // namespace

RandomUser::RandomUser()
{
    makeFiles();
    qputenv("QUORVIN_EPIDATA", path(QStringLiteral("nessuno")).toUtf8());
}

void RandomUser::makeFiles()
{
    const auto add = [this](const std::string& name, const std::string& bytes) {
        folder_.write(name, bytes);
        files_.emplace(name, PlainRec(bytes));
    };
    for (const char* name : {"infert.rec", "oswego.rec", "wnv.rec"})
        add(name, bytesOf(std::filesystem::path(TEST_DATA) / name));
    add("pazienti.rec", bytesOf(std::filesystem::path(TEST_SAMPLES) / "pazienti.rec"));
    add("molti.rec", manyRecords());
    const std::string good = rec({{}, {}}).record({"a", "b"}).bytes();
    folder_.write("vuoto.rec", "");
    folder_.write("rotto.rec", good.substr(0, 80));
    folder_.write("rumore.rec", "7 1\r\n" + std::string(3000, '\xFF'));
    folder_.write("esiste.rec", good);
    // Beside this one no settings can be written.
    std::filesystem::create_directory(folder_.path() / "wnv.mtr");
}

QString RandomUser::path(const QString& name) const
{
    return QString::fromStdString(folder_.path().string()) + QLatin1Char('/') + name;
}

const PlainRec* RandomUser::openRec() const
{
    const auto found = files_.find(openName().toStdString());
    return found == files_.end() ? nullptr : &found->second;
}

std::string RandomUser::settings() const
{
    const auto file = (folder_.path() / openName().toStdString()).replace_extension(".mtr");
    return std::filesystem::is_regular_file(file) ? bytesOf(file) : std::string();
}

// The course of events

void RandomUser::startForm()
{
    form_ = std::make_unique<Formstart>(dialogs_);
    form_->resize(1024, 740);
    form_->show();
    form_->activateWindow();
    rules_ = std::make_unique<WindowRules>(*form_);
    objectsBefore_ = form_->findChildren<QObject*>().size();
    for (const QString& name : rules_->items())
        QObject::connect(&rules_->item(name), &QAction::triggered, [this, name] { triggered_ += name; });
}

void RandomUser::run(unsigned seed, int events)
{
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, endLoop);
    watch.start(10);
    random_.seed(seed);
    trail_ = {QStringLiteral("seed %1").arg(seed)};
    startForm();
    std::vector<const Deed*> likely;
    for (const Deed& deed : deeds())
        likely.insert(likely.end(), static_cast<std::size_t>(deed.weight), &deed);
    for (int event = 1; event <= events && failures_.isEmpty(); ++event) {
        if (!form_->isVisible()) startForm();
        const Deed& deed = openName().isEmpty() && chance(2) ? deeds()[0] : *oneOf(likely);
        trail_.push_back(QStringLiteral("%1 %2:").arg(event).arg(QLatin1String(deed.name)));
        if (trail_.size() > kTrail) trail_.erase(trail_.begin() + 1);
        try {
            act(deed);
        } catch (const std::exception& error) {
            fail(QStringLiteral("escaped: ") + QLatin1String(error.what()));
        }
        if (form_->isVisible()) check();
    }
    // Controls of fields, which are kept, and what Qt makes when it is first needed.
    constexpr qsizetype kMostNew = 120;
    const qsizetype added = form_->findChildren<QObject*>().size() - objectsBefore_;
    if (added > kMostNew) fail(QStringLiteral("%1 objects more than at first").arg(added));
}

void RandomUser::act(const Deed& deed)
{
    prepareAnswers();
    triggered_.clear();
    fileBefore_ = openName();
    settingsBefore_ = settings();
    numberBefore_ = caption("Label14");
    searched_ = isSearching();
    fileWasGone_ = false;
    QElapsedTimer time;
    time.start();
    if (!deed.withMenus) closeMenus();
    (this->*deed.act)();
    QApplication::processEvents();
    slowest_ = std::max(slowest_, time.elapsed());
    searched_ = searched_ || dialogs_.messages.contains(QStringLiteral("continuo?"));
}

std::string RandomUser::report() const
{
    const QStringList trail(trail_.begin(), trail_.end());
    return (failures_.join(QLatin1Char('\n')) + QStringLiteral("\nafter\n") + trail.join(QLatin1Char('\n')))
        .toStdString();
}

void RandomUser::prepareAnswers()
{
    QString targets[] = {path(openName()),
                         path(QStringLiteral("./") + openName()),
                         path(QStringLiteral("esiste.rec")),
                         path(QStringLiteral("nuovo.rec")),
                         path(QStringLiteral("manca/x.rec")),
                         QString()};
    dialogs_.messages.clear();
    dialogs_.fileToOpen = chance(6) ? QString() : path(QLatin1String(oneOf(kFiles)));
    dialogs_.yesAnswers = chance(2) ? below(4) : 0;
    dialogs_.typed = anyText();
    dialogs_.filesToSave = {oneOf(targets), oneOf(targets), oneOf(targets)};
    dialogs_.pdf = oneOf(targets).replace(QLatin1String(".rec"), QLatin1String(".pdf"));
    if (chance(8)) QApplication::clipboard()->setMimeData(new QMimeData);
    dialogs_.font.reset();
    dialogs_.colour.reset();
    if (chance(2)) dialogs_.font = QFont(QStringLiteral("Courier new"), 8 + below(6));
    if (chance(2)) dialogs_.colour = QColor(Qt::blue);
}

/// The menus of Qt's own controls wait for their end in loops of their own.
void RandomUser::endLoop()
{
    if (QThread::currentThread()->loopLevel() != 0) closeMenus();
}

void RandomUser::closeMenus()
{
    while (QWidget* menu = QApplication::activePopupWidget())
        menu->close();
}

QString RandomUser::anyText()
{
    return QString::fromUtf8(oneOf(kTexts));
}

}  // namespace quorvin::test
