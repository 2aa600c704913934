#include "output/ExportPanel.h"

#include <QDir>
#include <QFileInfo>
#include <utility>

#include "output/OverwriteQuestion.h"
#include "output/PrintMatrix.h"
#include "search/SearchPanel.h"
#include "search/SearchStatus.h"
#include "view/Dialogs.h"
#include "view/MenuState.h"
#include "view/Messages.h"
#include "view/Utf8.h"

namespace quorvin {

namespace {

const QString kCreamat1 = QStringLiteral("creamat1");
const QString kCreamat2 = QStringLiteral("creamat2");
const QString kCreamatutto = QStringLiteral("creamatutto");

}  // namespace

ExportPanel::ExportPanel(const ExportParts& parts, QObject* form) :
    QObject(form),
    parts_(parts),
    export_(parts.recFile)
{
    parts_.menu.onClicks<ExportPanel>(*this, {{kCreamat1, &ExportPanel::creamat1_Click},
                                              {kCreamat2, &ExportPanel::creamat2_Click},
                                              {kCreamatutto, &ExportPanel::creamatutto_Click}});
    export_.beforeSearch = [this](const SearchQuery& query) { return prepare(query); };
    parts_.search.addConsumer(export_);
    connect(&parts_.search, &SearchPanel::stateShown, this, &ExportPanel::sayWritten);
}

void ExportPanel::creamat1_Click()
{
    toggle(kCreamat1);
}

void ExportPanel::creamat2_Click()
{
    toggle(kCreamat2);
}

void ExportPanel::creamatutto_Click()
{
    toggle(kCreamatutto);
}

void ExportPanel::toggle(const QString& mode)
{
    parts_.menu.setMode(mode, !parts_.menu.isTicked(mode));
}

/// Before each search: chooses the file if a mode is on. False when there shall be no search.
bool ExportPanel::prepare(const SearchQuery& query)
{
    export_.prepare({});
    const std::pair<const QString&, bool (ExportPanel::*)(const SearchQuery&)> modes[] = {
        {kCreamat1, &ExportPanel::filemat1},
        {kCreamat2, &ExportPanel::creafile1},
        {kCreamatutto, &ExportPanel::creafiletutto},
    };
    for (const auto& [mode, choose] : modes) {
        if (parts_.menu.isTicked(mode)) return (this->*choose)(query);
    }
    return true;
}

bool ExportPanel::filemat1(const SearchQuery&)
{
    if (parts_.matrix.entries.empty()) {
        parts_.dialogs.message(BoxIcon::critical, fromUtf8Text(messages::kNoFields));
        return false;
    }
    chooseFile(parts_.matrix.entries.numbers(), &ExportPanel::creamat1_Click);
    return true;
}

bool ExportPanel::creafile1(const SearchQuery& query)
{
    chooseFile(query.selection.numbers(), &ExportPanel::creamat2_Click);
    return true;
}

bool ExportPanel::creafiletutto(const SearchQuery&)
{
    chooseFile(parts_.recFile.fields().allFields(), &ExportPanel::creamatutto_Click);
    return true;
}

/// Asks for the file and has the search write it; without one the mode ends, and the search writes nothing.
void ExportPanel::chooseFile(std::vector<int> WriteFieldList, void (ExportPanel::*modeClick)())
{
    const QString name = askForName();
    if (name.isEmpty() || !contrsave(name)) {
        (this->*modeClick)();
        return;
    }
    const bool compEpidat = parts_.menu.isTicked(QStringLiteral("compEpidat"));
    export_.prepare(RecExport::Target{QFileInfo(name).filesystemAbsoluteFilePath(), std::move(WriteFieldList),
                                      greatestLength(compEpidat)});
}

/// Name of the file, never the open one; empty when the user cancels.
QString ExportPanel::askForName()
{
    const QFileInfo stem(parts_.recFile.RecFileStem());
    QString name = stem.absoluteFilePath() + QStringLiteral(".Sel.rec");
    for (;;) {
        name = parts_.dialogs.saveFile(fromUtf8Text(messages::kOpenFilter), name);
        if (name.isEmpty()) return {};
        const auto path = QFileInfo(name).filesystemAbsoluteFilePath();
        if (!isSameFile(path, parts_.recFile.dataFileName())) return name;
        parts_.dialogs.message(BoxIcon::critical, fromUtf8Text(messages::kIsSource));
        name = stem.absolutePath() + QLatin1Char('/');
    }
}

bool ExportPanel::contrsave(const QString& name)
{
    return !QFileInfo::exists(name) || askToOverwrite(parts_.dialogs, name);
}

void ExportPanel::sayWritten()
{
    const auto written = export_.takeWritten();
    if (!written) return;
    parts_.status.showNotice(QStringLiteral("%1: rekord scritti %2")
                                 .arg(QFileInfo(written->name).fileName())
                                 .arg(written->records));
}

}  // namespace quorvin
