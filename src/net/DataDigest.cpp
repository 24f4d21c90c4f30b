#include "net/DataDigest.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QtEndian>
#include <algorithm>
#include <map>

namespace net {

namespace {
// What the match draws, plays or collides with; the credits and the icons are no part of it.
const QStringList kSuffixes = {QStringLiteral("bmp"), QStringLiteral("png"), QStringLiteral("wav"),
                               QStringLiteral("au"), QStringLiteral("mid")};

std::uint64_t hashOf(const QString& path) {
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    // An unreadable file hashes as an empty one: it still differs from a readable one.
    if (file.open(QIODevice::ReadOnly)) hash.addData(&file);
    return qFromBigEndian<quint64>(hash.result().constData());
}
}  // namespace

std::vector<FileDigest> digestData(const core::DataFolder& folder) {
    std::vector<FileDigest> files;
    const QDir root(folder.root());
    QDirIterator it(folder.root(), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString relative = root.relativeFilePath(path);
        if (!kSuffixes.contains(it.fileInfo().suffix().toLower()) ||
            relative.startsWith(QLatin1String("icons/")))
            continue;
        files.push_back({relative, hashOf(path)});
    }
    std::sort(files.begin(), files.end(),
              [](const FileDigest& a, const FileDigest& b) { return a.path < b.path; });
    return files;
}

QString dataDifference(const std::vector<FileDigest>& host, const std::vector<FileDigest>& joiner) {
    std::map<QString, std::uint64_t> theirs;
    for (const FileDigest& f : joiner) theirs.emplace(f.path, f.hash);
    for (const FileDigest& f : host) {
        const auto it = theirs.find(f.path);
        if (it == theirs.end())
            return QStringLiteral("%1 is missing on the joining computer").arg(f.path);
        if (it->second != f.hash) return QStringLiteral("%1 differs").arg(f.path);
        theirs.erase(it);
    }
    if (!theirs.empty())
        return QStringLiteral("%1 is missing on the host").arg(theirs.begin()->first);
    return {};
}

}  // namespace net
