// Snapshots: the menu, the folder, size and type, and the name that a snapshot would get.
// Not here: taking one. The name is composed and dropped; no picture is grabbed and no file written.
#include "playwidget/playwidget_impl.h"

#include <QAction>
#include <QCoreApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QUrl>

namespace {

constexpr int mediaInfoRecordSize = 64;  // bytes

QString formatOf(PlayWidget_Impl::ImageType type)
{
    switch (type) {
    case PlayWidget_Impl::ImageTypeJPEG:
        return QStringLiteral("JPEG");
    case PlayWidget_Impl::ImageTypeBMP:
        return QStringLiteral("BMP");
    default:
        return QStringLiteral("PNG");
    }
}

}  // namespace

void PlayWidget_Impl::createSnapShotMenu()
{
    snapShotFolder = QCoreApplication::applicationDirPath();
    snapShotPopup = new QMenu(this);
    snapShotAction = new QAction(QStringLiteral("Snapshot"), snapShotPopup);
    openSnapShotDirAction = new QAction(QStringLiteral("Open Snapshot Folder"), snapShotPopup);
    changeSnapShotDirAction = new QAction(QStringLiteral("Change Snapshot Folder"), snapShotPopup);
    snapShotPopup->addActions({snapShotAction, openSnapShotDirAction, changeSnapShotDirAction});
}

const QString &PlayWidget_Impl::snapShotDir() const
{
    return snapShotFolder;
}

void PlayWidget_Impl::setSnapShotDir(const QString &dir)
{
    snapShotFolder = dir;
}

const QSize &PlayWidget_Impl::snapShotSize() const
{
    return snapShotImageSize;
}

void PlayWidget_Impl::setSnapShotSize(const QSize &size)
{
    snapShotImageSize = size;
}

PlayWidget_Impl::ImageType PlayWidget_Impl::snapShotImageType() const
{
    return snapShotType;
}

void PlayWidget_Impl::setSnapShotImageType(ImageType type)
{
    snapShotType = type;
}

void PlayWidget_Impl::sanpShotMenu()
{
    const QPoint corner = ui.panPlayControl->mapToGlobal(ui.btnCaptureRight->pos());
    snapShotPopup->popup(corner + QPoint(ui.btnCaptureRight->width(), 0));
}

void PlayWidget_Impl::openSnapShotDir()
{
    // An absolute folder brings a slash of its own: four in a row, which file browsers take.
    if (QDir(snapShotFolder).exists())
        QDesktopServices::openUrl(QUrl(QStringLiteral("file:///") + snapShotFolder));
}

void PlayWidget_Impl::changeSnapShotDir()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, QString(), snapShotFolder,
                                                             QFileDialog::ShowDirsOnly);
    if (!chosen.isEmpty())
        snapShotFolder = chosen;
}

void PlayWidget_Impl::snapShotVideo()
{
    if (playState != Playing)
        return;
    if (snapShotImageSize.width() <= 0 || snapShotImageSize.height() <= 0) {
        void *records = nullptr;
        const int count = KestGetMediaInfo(engine, currentFileId, &records);
        if (count > 0 && records)
            records = static_cast<char *>(records) + qint64(count) * mediaInfoRecordSize;
    }
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMddhhmmsszzz"));
    const QString path = QStringLiteral("%1/%2%3.%4")
                             .arg(snapShotFolder, QFileInfo(currentFileName).baseName(), time,
                                  formatOf(snapShotType));
    (void)QDir::toNativeSeparators(path);
}
