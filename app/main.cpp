/// The window program: quorvin [FILE].

#include <QApplication>
#include <QCommandLineParser>
#include <QLibraryInfo>
#include <QLocale>
#include <QScreen>
#include <QTextStream>
#include <QTimer>
#include <QTranslator>

#include "app/Formstart.h"
#include "app/QtDialogs.h"

namespace {

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

/// Qt's own dialogs in Italian.
void loadTranslation(QTranslator& translator)
{
    if (translator.load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)) ||
        translator.load(QStringLiteral("qtbase_it"),
                        QCoreApplication::applicationDirPath() + QStringLiteral("/translations"))) {
        QCoreApplication::installTranslator(&translator);
    }
}

/// Saves a picture of the window as soon as it stands, and ends the program.
void pictureAndQuit(quorvin::Formstart& form, const QString& picture)
{
    QTimer::singleShot(0, &form, [&form, picture] {
        const bool saved = form.grab().save(picture);
        if (!saved) QTextStream(stderr) << QStringLiteral("impossibile scrivere ") << picture << Qt::endl;
        QCoreApplication::exit(saved ? 0 : 1);
    });
}

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quorvin"));
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    QApplication::setApplicationVersion(QStringLiteral(QUORVIN_VERSION));
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

    quorvin::QtDialogs dialogs;
    quorvin::Formstart form(dialogs);
    dialogs.setWindow(&form);
    form.resize(parser.isSet(picture) ? kPictureSize : firstSize());
    form.show();
    if (!parser.positionalArguments().isEmpty()) form.openFile(parser.positionalArguments().constFirst());
    if (parser.isSet(record)) form.goToRecord(parser.value(record));
    if (parser.isSet(picture)) pictureAndQuit(form, parser.value(picture));
    return QApplication::exec();
}
