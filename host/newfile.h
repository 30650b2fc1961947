// NewFile: a file that is there in full at the end, or not at all, and that replaces none.
// Not here: what is in it.
#pragma once

#include <QFile>

class NewFile
{
public:
    /// Writes to `wanted` with ".part" at its end until it is committed.
    explicit NewFile(const QString &wanted);
    ~NewFile();
    Q_DISABLE_COPY(NewFile)

    bool open();
    QFile &file() { return m_file; }

    /// Gives the file its name, or the next that is free: "film (2).mkv". Empty on failure.
    QString commit();

    /// What went wrong.
    QString error() const { return m_error; }

private:
    const QString m_wanted;
    QFile m_file;
    QString m_error;
};
