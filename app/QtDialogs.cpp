#include "app/QtDialogs.h"

#include <QFileDialog>
#include <QMessageBox>

#include "app/Messages.h"

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

bool QtDialogs::question(BoxIcon icon, const QString& text)
{
    QMessageBox box(iconOf(icon), QLatin1String(messages::kProgram), text, QMessageBox::Yes | QMessageBox::No,
                    window_);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::Yes);
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

}  // namespace quorvin
