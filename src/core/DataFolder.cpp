#include "core/DataFolder.h"

#include <QDir>
#include <QFileInfo>

namespace core {

DataFolder DataFolder::forProgram(const QString& programFolder) {
    const auto hasData = [](const QString& folder) {
        return QFileInfo(folder + QStringLiteral("/characters")).isDir();
    };
    if (hasData(programFolder)) return DataFolder(programFolder);
    const QString installed = QDir::cleanPath(programFolder + QStringLiteral("/../share/grumbo2"));
    return DataFolder(hasData(installed) ? installed : programFolder);
}

}  // namespace core
