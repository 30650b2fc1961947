// Creating, naming and taking away a file.
// Not here: writing to it.
#include "host/newfile.h"

#include <QFileInfo>

#include <cstdlib>
#include <mutex>
#include <set>

#include <unistd.h>

namespace {

/// What is being written, in any thread. Qt leaves the program by exit() when the display goes away,
/// and nobody comes back to take it away.
struct Unfinished
{
    std::mutex lock;
    std::set<QByteArray> paths;
};

Unfinished &unfinished();

void removeUnfinished()
{
    Unfinished &all = unfinished();
    const std::lock_guard<std::mutex> locked(all.lock);
    for (const QByteArray &path : all.paths)
        (void)unlink(path.constData());
}

Unfinished &unfinished()
{
    static auto *const all = [] {
        (void)std::atexit(removeUnfinished);
        return new Unfinished;  // threads may outlive what is static
    }();
    return *all;
}

void keepInMind(const QString &path)
{
    const std::lock_guard<std::mutex> locked(unfinished().lock);
    unfinished().paths.insert(QFile::encodeName(path));
}

void forget(const QString &path)
{
    const std::lock_guard<std::mutex> locked(unfinished().lock);
    unfinished().paths.erase(QFile::encodeName(path));
}

/// `path` itself for 1, then "film (2).mkv" and so on.
QString numbered(const QString &path, int number)
{
    if (number == 1)
        return path;
    const QFileInfo info(path);
    return QStringLiteral("%1/%2 (%3).%4")
        .arg(info.path(), info.completeBaseName(), QString::number(number), info.suffix());
}

}  // namespace

NewFile::NewFile(const QString &wanted)
    : m_wanted(wanted)
{ }

NewFile::~NewFile()
{
    if (m_file.isOpen())
        m_file.remove();
    forget(m_file.fileName());
}

bool NewFile::open()
{
    for (int number = 1; number < 1000; ++number) {
        m_file.setFileName(numbered(m_wanted, number) + QStringLiteral(".part"));
        if (m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
            keepInMind(m_file.fileName());
            return true;
        }
        if (!m_file.exists())
            break;
    }
    m_error = m_file.errorString();
    return false;
}

QString NewFile::commit()
{
    // A full disk may come to light only now.
    if (fsync(m_file.handle()) != 0) {
        m_error = qt_error_string();
        return {};
    }
    QFile part(m_file.fileName());
    for (int number = 1; number < 1000; ++number) {
        const QString name = numbered(m_wanted, number);
        if (part.rename(name)) {  // never over an existing file
            m_file.close();
            forget(m_file.fileName());
            return name;
        }
        if (!QFileInfo::exists(name))
            break;
    }
    m_error = part.errorString();
    return {};
}
