#include "app/Records.h"

#include <QDir>
#include <QSaveFile>
#include <QStandardPaths>
#include <cstdio>

#include "core/DataFile.h"

namespace app {

namespace {
const char* const kPattern = "match-*.txt";
}

QString RecordStore::usualFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/replays");
}

QString RecordStore::keep(const game::Record& record, const QDateTime& when) const {
    // Named by the time, so that the folder lists them in order; two in the same millisecond
    // take turns.
    const QString stem = QStringLiteral("%1/match-%2")
                             .arg(folder_, when.toString(QStringLiteral("yyyyMMdd-HHmmss-zzz")));
    QString path = stem + QStringLiteral(".txt");
    for (int n = 2; QFileInfo::exists(path); ++n) path = stem + QStringLiteral("-%1.txt").arg(n);
    QSaveFile file(path);
    const QByteArray text = game::writeRecord(record);
    QString why;
    if (!QDir().mkpath(folder_)) why = QStringLiteral("the folder cannot be made");
    else if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        why = file.errorString();
    if (!why.isEmpty()) {
        std::fprintf(stderr, "grumbo2: the match was not recorded in %s: %s\n",
                     qPrintable(QDir::toNativeSeparators(folder_)), qPrintable(why));
        return {};
    }
    forgetOldest();
    return path;
}

void RecordStore::forgetOldest() const {
    QDir dir(folder_);
    const QStringList records =
        dir.entryList({QLatin1String(kPattern)}, QDir::Files, QDir::Name | QDir::Reversed);
    for (qsizetype i = kKept; i < records.size(); ++i) dir.remove(records[i]);
}

game::ReadRecord readRecordFile(const QString& path) {
    core::FileError error;
    const auto bytes = core::readDataFile(path, game::kLargestRecord, &error);
    game::ReadRecord read;
    if (!bytes) read.error = error.missing ? QStringLiteral("there is no such file") : error.reason;
    else read = game::readRecord(*bytes);
    if (!read.record) read.error = QStringLiteral("\"%1\": %2").arg(path, read.error);
    return read;
}

}  // namespace app
