// replaceFile(): new contents for a file, or the old ones as they were.
// Not here: what the contents are.
#pragma once

#include <QByteArray>
#include <QString>

/// Writes beside the file and puts the result in its place when all of it is written. False, with
/// the old file untouched and `error` naming it and the reason, when that fails.
bool replaceFile(const QString &file, const QByteArray &content, QString &error);
