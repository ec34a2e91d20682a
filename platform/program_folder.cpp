#include "platform/program_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace orbisgrid {

namespace {

QString withoutTrailingSeparators(QString path) {
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return path;
}

} // namespace

QString programFolder() {
    const QString named = QFile::decodeName(qgetenv("ORBISGRID_PROGRAM_FOLDER"));
    if (!named.isEmpty())
        return withoutTrailingSeparators(QDir::current().absoluteFilePath(named));
    const QString folder = executableFolder();
    return folder.isEmpty() ? QDir::currentPath() : folder;
}

QString executableFolder() {
    // Not by argv[0], which the caller chooses, and not by QCoreApplication, which the command line
    // does without.
    const QString executable = QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
    return executable.isEmpty() ? QString() : QFileInfo(executable).path();
}

} // namespace orbisgrid
