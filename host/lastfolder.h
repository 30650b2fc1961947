// lastFolder(): where the user opened or saved something last.
// Not here: any other memory; the window's place is in previewdialog.cpp.
#pragma once

#include <QDir>
#include <QFileInfo>
#include <QSettings>

inline QString lastFolder()
{
    return QSettings().value(QStringLiteral("lastFolder"), QDir::homePath()).toString();
}

inline void rememberFolderOf(const QString &file)
{
    QSettings().setValue(QStringLiteral("lastFolder"), QFileInfo(file).absolutePath());
}
