/// The window program: quorvin [FILE].

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QScreen>
#include <QTextStream>
#include <QTimer>
#include <QTranslator>

#include "app/Formstart.h"
#include "app/QtDialogs.h"
#include "app/TerminalDialogs.h"
#include "base/CommandLine.h"

namespace {

constexpr int kFailed = 2;

/// Size of a saved picture, whatever the screen.
constexpr QSize kPictureSize(1024, 740);

/// First size of the window: most of the screen, but not more than reads well.
QSize firstSize()
{
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    constexpr QSize kFrame(10, 40);
    return (screen * 9 / 10)
        .boundedTo(QSize(1400, 900))
        .expandedTo(QSize(1000, 680))
        .boundedTo(screen - kFrame);
}

/// Ends the program when the system asks for it; a file being written is given up then.
void endWhenAsked(QObject* parent)
{
    constexpr int kMilliseconds = 200;
    quorvin::noteEndings();
    auto* timer = new QTimer(parent);
    QObject::connect(timer, &QTimer::timeout, parent, [] {
        if (quorvin::isToEnd()) QCoreApplication::exit(kFailed);
    });
    timer->start(kMilliseconds);
}

/// Qt's own dialogs in Italian.
void loadTranslation(QTranslator& translator)
{
    if (translator.load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)) ||
        translator.load(QStringLiteral("qtbase_it"),
                        QCoreApplication::applicationDirPath() + QStringLiteral("/translations"))) {
        QCoreApplication::installTranslator(&translator);
    }
}

/// Saves a picture of the window as soon as it stands, and ends the program; it fails when a box would have
/// come up.
void pictureAndQuit(quorvin::Formstart& form, const quorvin::TerminalDialogs& dialogs, const QString& picture)
{
    QTimer::singleShot(0, &form, [&form, &dialogs, picture] {
        if (dialogs.spoken()) {
            QCoreApplication::exit(kFailed);
            return;
        }
        const bool saved = form.grab().save(picture);
        if (!saved) QTextStream(stderr) << QStringLiteral("impossibile scrivere ") << picture << Qt::endl;
        QCoreApplication::exit(saved ? 0 : kFailed);
    });
}

}  // namespace

int main(int argc, char** argv)
{
    quorvin::surviveSizeLimits();
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quorvin"));
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    QApplication::setApplicationVersion(QStringLiteral(QUORVIN_VERSION));
    // Installed beside the desktop entry of that name; on Windows the program file itself brings the icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("quorvin"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("quorvin")));
    // The colours of boxes and labels carry meaning here; this style shows them alike on every system.
    QApplication::setStyle(QStringLiteral("Fusion"));
    QTranslator translator;
    loadTranslation(translator);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Ricerca, stampa e statistica sui file di EpiData."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption record(QStringLiteral("rekord"), QStringLiteral("Mostra questo rekord."),
                                    QStringLiteral("N"));
    const QCommandLineOption picture(QStringLiteral("immagine"),
                                     QStringLiteral("Salva un'immagine della finestra e termina."),
                                     QStringLiteral("FILE"));
    parser.addOptions({record, picture});
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("File .rec da aprire."),
                                 QStringLiteral("[file]"));
    parser.process(application);

    quorvin::QtDialogs boxes;
    quorvin::TerminalDialogs terminal;
    const bool unattended = parser.isSet(picture);
    quorvin::Formstart form(unattended ? static_cast<quorvin::Dialogs&>(terminal) : boxes);
    boxes.setWindow(&form);
    form.resize(unattended ? kPictureSize : firstSize());
    form.show();
    // With the window in its place, where a box about the file belongs too.
    QTimer::singleShot(0, &form, [&form, &parser, &record] {
        if (!parser.positionalArguments().isEmpty()) form.openFile(parser.positionalArguments().constFirst());
        if (parser.isSet(record)) form.goToRecord(parser.value(record));
    });
    endWhenAsked(&form);
    if (unattended) pictureAndQuit(form, terminal, parser.value(picture));
    return QApplication::exec();
}
