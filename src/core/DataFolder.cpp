#include "core/DataFolder.h"

#include <QDir>
#include <QFileInfo>

namespace core {

DataFolder DataFolder::forProgram(const QString& programFolder) {
    for (const char* relative : {".", "../share/grumbo2", "../share/games/grumbo2"}) {
        const QString folder = QDir::cleanPath(programFolder + QLatin1Char('/') + relative);
        if (QFileInfo(folder + QStringLiteral("/characters")).isDir()) return DataFolder(folder);
    }
    return DataFolder(programFolder);
}

}  // namespace core
