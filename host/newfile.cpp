// Creating, naming and taking away a file.
// Not here: writing to it.
#include "host/newfile.h"

#include <QFileInfo>

#include <unistd.h>

/// `path` itself for 1, then "film (2).mkv" and so on.
static QString numbered(const QString &path, int number)
{
    if (number == 1)
        return path;
    const QFileInfo info(path);
    return QStringLiteral("%1/%2 (%3).%4")
        .arg(info.path(), info.completeBaseName(), QString::number(number), info.suffix());
}

NewFile::NewFile(const QString &wanted)
    : m_wanted(wanted)
{ }

NewFile::~NewFile()
{
    if (m_file.isOpen())
        m_file.remove();
}

bool NewFile::open()
{
    for (int number = 1; number < 1000; ++number) {
        m_file.setFileName(numbered(m_wanted, number) + QStringLiteral(".part"));
        if (m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
            return true;
        if (!m_file.exists())
            return false;
    }
    return false;
}

QString NewFile::commit()
{
    // A full disk may come to light only now.
    if (fsync(m_file.handle()) != 0)
        return {};
    const QString part = m_file.fileName();
    for (int number = 1; number < 1000; ++number) {
        const QString name = numbered(m_wanted, number);
        if (QFile::rename(part, name)) {  // never over an existing file
            m_file.close();
            return name;
        }
        if (!QFileInfo::exists(name))
            return {};
    }
    return {};
}
