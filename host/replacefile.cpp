// Replacing a file in one step.
// Not here: anything else.
#include "host/replacefile.h"

#include <QCoreApplication>
#include <QSaveFile>

namespace {

/// A write that a full disk cuts short gives its reason only when the rest is tried.
bool writeAll(QSaveFile &target, const QByteArray &content)
{
    qint64 written = 0;
    while (written < content.size()) {
        const qint64 more = target.write(content.constData() + written, content.size() - written);
        if (more <= 0)
            return false;
        written += more;
    }
    return true;
}

}  // namespace

bool replaceFile(const QString &file, const QByteArray &content, QString &error)
{
    QSaveFile target(file);
    // commit() overlooks a failure to write what was still buffered, so nothing may be.
    const bool replaced = target.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        && writeAll(target, content) && target.commit();
    if (!replaced)
        error = QCoreApplication::translate("ReplaceFile", "%1 cannot be written: %2")
                    .arg(file, target.errorString());
    return replaced;
}
