#include "core/DataFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QLocale>
#include <QSet>
#include <cerrno>
#include <cstdio>

namespace core {

namespace {

std::nullopt_t refuse(FileError* error, bool missing, const QString& reason) {
    if (error) *error = FileError{missing, reason};
    return std::nullopt;
}

QString whatItIs(mode_t mode) {
    if (S_ISDIR(mode)) return QStringLiteral("it is a folder, not a file");
    if (S_ISFIFO(mode)) return QStringLiteral("it is a named pipe, not a file");
    if (S_ISCHR(mode) || S_ISBLK(mode)) return QStringLiteral("it is a device, not a file");
    return QStringLiteral("it is not a plain file");
}

QString tooLarge(qint64 largest) {
    return QStringLiteral("it is larger than the %1 such a file may have")
        .arg(QLocale::c().formattedDataSize(largest, 0, QLocale::DataSizeTraditionalFormat));
}

class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return fd_; }

private:
    int fd_;
};

}  // namespace

std::optional<QByteArray> readDataFile(const QString& path, qint64 largest, FileError* error) {
    const QByteArray name = QFile::encodeName(path);
    struct stat st {};
    // Looked at before it is opened: opening a pipe or a device may wait or do something.
    if (::stat(name.constData(), &st) != 0)
        return refuse(error, errno == ENOENT || errno == ENOTDIR,
                      QStringLiteral("it cannot be looked at"));
    if (!S_ISREG(st.st_mode)) return refuse(error, false, whatItIs(st.st_mode));
    if (st.st_size > largest) return refuse(error, false, tooLarge(largest));
    // Something else may stand there by now: it is opened without waiting and looked at again.
    const Descriptor fd(::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (fd.get() < 0) return refuse(error, false, QStringLiteral("the file cannot be opened"));
    if (::fstat(fd.get(), &st) != 0 || !S_ISREG(st.st_mode))
        return refuse(error, false, whatItIs(st.st_mode));
    // A file that grows while it is read stops being read one chunk past its limit.
    QByteArray bytes;
    char chunk[1 << 16];
    for (;;) {
        const ssize_t n = ::read(fd.get(), chunk, sizeof chunk);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return refuse(error, false, QStringLiteral("the file cannot be read"));
        if (n == 0) break;
        bytes.append(chunk, n);
        if (bytes.size() > largest) return refuse(error, false, tooLarge(largest));
    }
    return bytes;
}

std::optional<QByteArray> readDataFileOrWarn(const QString& path, qint64 largest) {
    FileError why;
    std::optional<QByteArray> bytes = readDataFile(path, largest, &why);
    if (!bytes && !why.missing) warnOnce(path, why.reason);
    return bytes;
}

void warnOnce(const QString& path, const QString& reason) {
    static QSet<QString> warned;
    if (warned.contains(path)) return;
    warned.insert(path);
    std::fprintf(stderr, "grumbo2: \"%s\" is not used: %s\n", qPrintable(path), qPrintable(reason));
}

}  // namespace core
