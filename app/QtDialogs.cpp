#include "app/QtDialogs.h"

#include <QColorDialog>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QFontInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QStandardPaths>
#include <QUrl>

#include "view/Messages.h"

namespace quorvin {

namespace {

QMessageBox::Icon iconOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::exclamation:
        return QMessageBox::Warning;
    case BoxIcon::question:
        return QMessageBox::Question;
    case BoxIcon::critical:
        return QMessageBox::Critical;
    case BoxIcon::information:
        break;
    }
    return QMessageBox::Information;
}

/// Room for a line of some 60 characters; pixels.
constexpr int kInputWidth = 480;

/// Has the user name a file to write, first that of `name`; empty when the user cancels.
QString nameToWrite(QFileDialog& dialog, const QString& name)
{
    const QFileInfo info(name);
    dialog.setDirectory(info.absolutePath());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (!info.fileName().isEmpty()) dialog.selectFile(info.fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().constFirst();
}

#ifdef Q_OS_WIN
/// Has the user name a PDF file to print to; false when the user cancels.
bool setUpPdf(QPrinter& printer, QWidget* window)
{
    QFileDialog dialog(window, QStringLiteral("stampa in un file PDF"));
    dialog.setNameFilters({QStringLiteral("PDF (*.pdf)")});
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString before = printer.outputFileName();
    const QString name =
        nameToWrite(dialog, before.isEmpty() ? documents + QStringLiteral("/stampa.pdf") : before);
    if (name.isEmpty()) return false;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(name);
    return true;
}
#endif

}  // namespace

QStringList nameFilters(const QString& filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1] == QLatin1String("*.*") ? QStringLiteral("*") : parts[i + 1];
        filters.append(parts[i].trimmed() + QLatin1String(" (") + pattern + QLatin1Char(')'));
    }
    return filters;
}

void QtDialogs::message(BoxIcon icon, const QString& text)
{
    QMessageBox box(iconOf(icon), QLatin1String(messages::kProgram), text, QMessageBox::Ok, window_);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool QtDialogs::question(BoxIcon icon, const QString& text, const QString& title)
{
    QMessageBox box(iconOf(icon), title.isEmpty() ? QLatin1String(messages::kProgram) : title, text,
                    QMessageBox::Yes | QMessageBox::No, window_);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(icon == BoxIcon::exclamation ? QMessageBox::No : QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

QString QtDialogs::openFile(const QString& filter, const QString& folder)
{
    QFileDialog dialog(window_, QStringLiteral("apri file"), folder);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(filter));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().constFirst();
}

QString QtDialogs::saveFile(const QString& filter, const QString& name)
{
    QFileDialog dialog(window_, QStringLiteral("salva il nuovo file"));
    // Whoever asks for the name has a question of its own about a file that is there.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilters(nameFilters(filter));
    dialog.setDefaultSuffix(QStringLiteral("rec"));
    return nameToWrite(dialog, name);
}

QString QtDialogs::inputBox(const QString& prompt, const QString& text)
{
    QInputDialog dialog(window_);
    dialog.setWindowTitle(QLatin1String(messages::kProgram));
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.setLabelText(prompt);
    dialog.setTextValue(text);
    // Prompts hold what the user has typed before; it is no markup.
    if (auto* label = dialog.findChild<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    dialog.resize(kInputWidth, 0);
    return dialog.exec() == QDialog::Accepted ? dialog.textValue() : QString();
}

std::optional<QFont> QtDialogs::chooseFont(const QString& title, const QFont& font)
{
    // The dialog knows fonts by the names that they have on this system.
    QFont present(font);
    present.setFamily(QFontInfo(font).family());
    present.setStyleName(QFontInfo(font).styleName());
    QFontDialog dialog(present, window_);
    dialog.setWindowTitle(title);
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.selectedFont();
}

std::optional<QColor> QtDialogs::chooseColour(const QColor& colour)
{
    QColorDialog dialog(colour, window_);
    dialog.setWindowTitle(QStringLiteral("colore del testo"));
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.selectedColor();
}

bool QtDialogs::setUpPrinter(QPrinter& printer)
{
#ifdef Q_OS_WIN
    // The system's dialog knows printers only, one that writes PDF among them; without any it does not open.
    if (QPrinterInfo::availablePrinterNames().isEmpty()) return setUpPdf(printer, window_);
    // From the file of a time without printers back to one of them.
    if (printer.outputFormat() == QPrinter::PdfFormat) printer.setOutputFileName({});
#endif
    QPrintDialog dialog(&printer, window_);
    dialog.setWindowTitle(QStringLiteral("imposta stampante"));
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    // Where the dialog is Qt's own, its button promises to print.
    if (const auto* buttons = dialog.findChild<QDialogButtonBox*>()) {
        for (QAbstractButton* button : buttons->buttons()) {
            if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
                button->setText(QStringLiteral("OK"));
        }
    }
    return dialog.exec() == QDialog::Accepted;
}

bool QtDialogs::openOutside(const QString& file)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}

}  // namespace quorvin
