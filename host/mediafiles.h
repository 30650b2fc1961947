// Which files are meant: by a folder, by something dropped or pasted.
// Not here: whether they can be played.
#pragma once

#include <QStringList>

class QMimeData;

/// The films and sound files that a folder holds, known by their suffixes, as a person counts:
/// "part 2" before "part 10". Folders below it are not looked into.
QStringList mediaFilesIn(const QString &folder);

/// The absolute paths of what is named: a folder is replaced by its media files, or named in
/// `empty` when it has none; everything else stays, whether or not it exists.
QStringList expandFolders(const QStringList &paths, QStringList *empty);

/// The files of a drop or of the clipboard: URLs of files, or text with a path or such a URL in
/// each line. Other URLs and lines that are no absolute path are left out.
QStringList filesIn(const QMimeData &data);
