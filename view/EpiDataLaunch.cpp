#include "view/EpiDataLaunch.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include "base/RuntimeError.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace quorvin {

namespace {

constexpr const char* kProgramVariable = "QUORVIN_EPIDATA";

/// EpiData's installer puts it here on an Italian Windows.
QString epiDataProgram()
{
    const QString other = qEnvironmentVariable(kProgramVariable);
    return other.isEmpty() ? QStringLiteral("C:\\Programmi\\EpiData\\EpiData.exe") : other;
}

QString nativeText(std::filesystem::path name)
{
    // Qt's names have slashes on every system.
    name.make_preferred();
#ifdef Q_OS_WIN
    return QString::fromStdWString(name.native());
#else
    return QFile::decodeName(name.c_str());
#endif
}

}  // namespace

void launchEpiData(const std::filesystem::path& dataFile)
{
    QProcess process;
    process.setProgram(epiDataProgram());
#ifdef Q_OS_WIN
    // EpiData takes the rest of its command line as the file name, so that no quotes may stand around it.
    process.setNativeArguments(nativeText(dataFile));
    process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* arguments) {
        arguments->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
        arguments->startupInfo->wShowWindow = SW_SHOWMINIMIZED;
    });
#else
    process.setArguments({nativeText(dataFile)});
#endif
    if (process.startDetached()) return;
    const bool there = QFileInfo::exists(process.program());
    throw RuntimeError(there ? ErrorNumber::accessError : ErrorNumber::fileNotFound);
}

}  // namespace quorvin
