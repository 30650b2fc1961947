// Snapshots: the settings, the menu and its place, the folder, and what a snapshot asks for.
// Not here: whether the snapshot buttons are shown (tst_skin).
#include "widgetfixture.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QPointer>
#include <QTemporaryDir>
#include <QUrl>

#include <functional>

namespace {

using Impl = PlayWidget_Impl;

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
}

// Receives the addresses that would open in the desktop's file browser.
class FileBrowser : public QObject
{
    Q_OBJECT

public:
    FileBrowser() { QDesktopServices::setUrlHandler("file", this, "open"); }
    ~FileBrowser() override { QDesktopServices::unsetUrlHandler("file"); }

    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl &url) { opened += url; }
};

// Opens the player's folder dialog and does `answer` in it, from within its event loop.
void chooseFolder(Player &player, const std::function<void(QFileDialog &)> &answer)
{
    bool asked = false;
    QTimer::singleShot(0, &player.impl, [&] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        asked = true;
        answer(*dialog);
    });
    player.impl.changeSnapShotDirAction->trigger();
    QVERIFY(asked);
}

// Where the working folder of the process is, for the life-time.
class WorkingFolder
{
public:
    explicit WorkingFolder(const QString &folder) { QDir::setCurrent(folder); }
    ~WorkingFolder() { QDir::setCurrent(m_before); }
    Q_DISABLE_COPY(WorkingFolder)

private:
    QString m_before = QDir::currentPath();
};

}  // namespace

class tst_Snapshots : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init() { failOnAnyWarning(); }
    void startsInTheApplicationsFolder();
    void numbersTheImageTypes();
    void keepsSettingsAsGiven();
    void listsThreeActions();
    void endsTheMenuWithThePlayer();
    void opensTheMenuBesideTheButton();
    void opensTheFolder();
    void opensAFolderByTheNameItHas_data();
    void opensAFolderByTheNameItHas();
    void opensNothingWhereNoFolderIs();
    void takesTheWorkingFolderForAnEmptyName();
    void asksForAFolder();
    void takesTheChosenFolder();
    void keepsTheFolderOnCancel();
    void playsOnWhileTheDialogIsOpen();
    void asksForTheMediaInformation_data();
    void asksForTheMediaInformation();
    void asksAboutTheSelectedFile();
    void snapsOnlyWhilePlaying();
    void snapsFromButtonAndMenu();
    void recordsNoFailure_data();
    void recordsNoFailure();
    void writesNoFile_data();
    void writesNoFile();
    void makesNoFolder();
};

void tst_Snapshots::startsInTheApplicationsFolder()
{
    const Impl impl;
    QCOMPARE(impl.snapShotDir(), QCoreApplication::applicationDirPath());
    QCOMPARE(impl.snapShotSize().width(), 0);
    QCOMPARE(impl.snapShotSize().height(), 0);
    QCOMPARE(impl.snapShotImageType(), Impl::ImageTypePNG);
}

void tst_Snapshots::numbersTheImageTypes()
{
    QCOMPARE(int(Impl::ImageTypePNG), 0);
    QCOMPARE(int(Impl::ImageTypeJPEG), 1);
    QCOMPARE(int(Impl::ImageTypeBMP), 2);
}

void tst_Snapshots::keepsSettingsAsGiven()
{
    Impl impl;
    for (const QString &folder :
         {QString("/no/such/../folder//"), QString("C:\\snaps"), QString(" "), QString()}) {
        impl.setSnapShotDir(folder);
        QCOMPARE(impl.snapShotDir(), folder);
    }
    for (const QSize &size : {QSize(640, 360), QSize(-5, 0), QSize()}) {
        impl.setSnapShotSize(size);
        QCOMPARE(impl.snapShotSize(), size);
    }
    for (int type : {1, 2, 0, 7}) {
        impl.setSnapShotImageType(static_cast<Impl::ImageType>(type));
        QCOMPARE(int(impl.snapShotImageType()), type);
    }
    // References to what the player keeps, not copies.
    QCOMPARE(&impl.snapShotDir(), &impl.snapShotFolder);
    QCOMPARE(&impl.snapShotSize(), &impl.snapShotImageSize);
}

void tst_Snapshots::listsThreeActions()
{
    const Impl impl;
    const QList<QAction *> actions = impl.snapShotPopup->actions();
    QCOMPARE(actions,
             QList<QAction *>(
                 {impl.snapShotAction, impl.openSnapShotDirAction, impl.changeSnapShotDirAction}));
    const char *const texts[] = {"Snapshot", "Open Snapshot Folder", "Change Snapshot Folder"};
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(actions[i]->text(), texts[i]);
        QCOMPARE(actions[i]->parent(), impl.snapShotPopup);
    }
    QCOMPARE(impl.snapShotPopup->parentWidget(), &impl);
}

void tst_Snapshots::endsTheMenuWithThePlayer()
{
    auto impl = std::make_unique<Impl>();
    const QPointer<QMenu> menu = impl->snapShotPopup;
    const QPointer<QAction> action = impl->openSnapShotDirAction;
    impl.reset();
    QVERIFY(menu.isNull());
    QVERIFY(action.isNull());
}

// Its corner is the button's upper right one; nothing in it is marked.
void tst_Snapshots::opensTheMenuBesideTheButton()
{
    Player player;
    player.ui.panPlayControl->show();
    player.ui.btnCaptureRight->show();
    player.widget->resize(player.widget->actualSize());
    player.widget->move(20, 10);
    QFont small;  // the menu has room on the screen, whatever the platform's font
    small.setPixelSize(8);
    player.impl.snapShotPopup->setFont(small);
    player.widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(player.widget.get()));
    QVERIFY(player.ui.btnCaptureRight->x() > 0);
    player.ui.btnCaptureRight->click();
    QVERIFY(player.impl.snapShotPopup->isVisible());
    QCOMPARE(player.impl.snapShotPopup->pos(),
             player.ui.btnCaptureRight->mapToGlobal(QPoint(9, 0)));
    QCOMPARE(player.impl.snapShotPopup->activeAction(), nullptr);
    player.impl.snapShotPopup->close();
    QCOMPARE(player.calls(), QStringList());
}

void tst_Snapshots::opensTheFolder()
{
    const QTemporaryDir folder;
    FileBrowser browser;
    Player player;
    player.impl.setSnapShotDir(folder.path());
    player.impl.openSnapShotDirAction->trigger();
    QCOMPARE(browser.opened, QList<QUrl>{QUrl("file:///" + folder.path())});
    QVERIFY(folder.path().startsWith('/'));
    QCOMPARE(browser.opened[0].toString(), "file:///" + folder.path());
    QCOMPARE(browser.opened[0].path(), '/' + folder.path());
    QCOMPARE(player.calls(), QStringList());
}

void tst_Snapshots::opensAFolderByTheNameItHas_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("spaces") << "my snaps";
    QTest::newRow("not Latin") << QString::fromUtf8("\u5199\u771f");
}

void tst_Snapshots::opensAFolderByTheNameItHas()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(name));
    FileBrowser browser;
    Player player;
    player.impl.setSnapShotDir(folder.filePath(name));
    player.impl.openSnapShotDir();
    QCOMPARE(browser.opened.size(), 1);
    QCOMPARE(browser.opened[0].path(QUrl::FullyDecoded), '/' + folder.filePath(name));
}

void tst_Snapshots::opensNothingWhereNoFolderIs()
{
    const QTemporaryDir folder;
    FileBrowser browser;
    Player player;
    player.impl.setSnapShotDir(folder.filePath("gone"));
    player.impl.openSnapShotDir();
    QCOMPARE(browser.opened, QList<QUrl>());
    QVERIFY(player.impl.errorList().isEmpty());
    QVERIFY(filesIn(folder.path()).isEmpty());
}

void tst_Snapshots::takesTheWorkingFolderForAnEmptyName()
{
    FileBrowser browser;
    Player player;
    player.impl.setSnapShotDir(QString());
    player.impl.openSnapShotDir();
    QCOMPARE(browser.opened, QList<QUrl>{QUrl("file:///")});

    // A relative name goes by the working folder too, and into the address as it stands.
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir("snaps"));
    const WorkingFolder there(folder.path());
    player.impl.setSnapShotDir("snaps");
    player.impl.openSnapShotDir();
    QCOMPARE(browser.opened.last().toString(), "file:///snaps");
}

void tst_Snapshots::asksForAFolder()
{
    const QTemporaryDir folder;
    Player player;
    player.impl.setSnapShotDir(folder.path());
    QFileDialog plain;
    plain.setFileMode(QFileDialog::Directory);
    chooseFolder(player, [&](QFileDialog &dialog) {
        QCOMPARE(dialog.directory().path(), folder.path());
        QVERIFY(dialog.testOption(QFileDialog::ShowDirsOnly));
        QVERIFY(!dialog.testOption(QFileDialog::DontResolveSymlinks));
        QCOMPARE(dialog.windowTitle(), plain.windowTitle());
        QCOMPARE(dialog.parentWidget(), &player.impl);
        dialog.reject();
    });
}

void tst_Snapshots::takesTheChosenFolder()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir("other"));
    Player player;
    player.impl.setSnapShotDir(folder.path());
    chooseFolder(player, [&](QFileDialog &dialog) {
        dialog.selectFile(folder.filePath("other"));
        static_cast<QDialog &>(dialog).accept();
    });
    QCOMPARE(player.impl.snapShotDir(), folder.filePath("other"));
}

void tst_Snapshots::keepsTheFolderOnCancel()
{
    const QTemporaryDir folder;
    Player player;
    player.impl.setSnapShotDir(folder.path());
    chooseFolder(player, [&](QFileDialog &dialog) {
        dialog.setDirectory("/");
        dialog.reject();
    });
    QCOMPARE(player.impl.snapShotDir(), folder.path());
}

// The dialog turns an event loop of its own: the engine's reports still arrive.
void tst_Snapshots::playsOnWhileTheDialogIsOpen()
{
    Player player;
    player.play();
    chooseFolder(player, [&](QFileDialog &dialog) {
        player.report(0, 1234);
        Player::tick(player.impl.playUpdateTimer);
        QCOMPARE(player.ui.lblElapsedTime->text(), "00:00:01");
        dialog.reject();
    });
    QCOMPARE(player.impl.playState, int(Impl::Playing));
}

void tst_Snapshots::asksForTheMediaInformation_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QStringList>("calls");
    const QStringList asks("KestGetMediaInfo(10)");
    QTest::newRow("none given") << QSize(0, 0) << asks;
    QTest::newRow("invalid") << QSize() << asks;
    QTest::newRow("no width") << QSize(0, 360) << asks;
    QTest::newRow("no height") << QSize(640, 0) << asks;
    QTest::newRow("negative") << QSize(640, -1) << asks;
    QTest::newRow("given") << QSize(640, 360) << QStringList();
    QTest::newRow("smallest") << QSize(1, 1) << QStringList();
}

void tst_Snapshots::asksForTheMediaInformation()
{
    QFETCH(QSize, size);
    QFETCH(QStringList, calls);
    Player player;
    player.play();
    player.impl.setSnapShotSize(size);
    player.impl.snapShotVideo();
    QCOMPARE(player.calls(), calls);
    QCOMPARE(player.impl.snapShotSize(), size);
    QCOMPARE(player.engine.lastEngine(), FakeKest::handle());
}

void tst_Snapshots::asksAboutTheSelectedFile()
{
    Player player;
    player.play(0);
    player.play(2);
    player.impl.snapShotVideo();
    QCOMPARE(player.calls(), QStringList("KestGetMediaInfo(30)"));
}

void tst_Snapshots::snapsOnlyWhilePlaying()
{
    Player player;
    player.impl.snapShotVideo();
    QCOMPARE(player.calls(), QStringList());
    player.play();
    player.pause();
    player.impl.snapShotVideo();
    QCOMPARE(player.calls(), QStringList());
    player.impl.stopVideo(false);
    player.calls();
    player.impl.snapShotVideo();
    QCOMPARE(player.calls(), QStringList());
}

void tst_Snapshots::snapsFromButtonAndMenu()
{
    Player player;
    player.play();
    player.ui.btnCapture->click();
    QCOMPARE(player.calls(), QStringList("KestGetMediaInfo(10)"));
    player.impl.snapShotAction->trigger();
    QCOMPARE(player.calls(), QStringList("KestGetMediaInfo(10)"));
}

void tst_Snapshots::recordsNoFailure_data()
{
    QTest::addColumn<int>("count");
    for (int count : {-1, 0, 1, 3, INT_MAX, INT_MIN})
        QTest::addRow("%d", count) << count;
}

void tst_Snapshots::recordsNoFailure()
{
    QFETCH(int, count);
    Player player;
    player.play();
    player.engine.setResult("KestGetMediaInfo", count);
    player.impl.snapShotVideo();
    QCOMPARE(player.calls(), QStringList("KestGetMediaInfo(10)"));
    QVERIFY(player.impl.errorList().isEmpty());
}

void tst_Snapshots::writesNoFile_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<int>("type");
    QTest::newRow("dots") << "/m/Holiday.part1.mkv" << 1;
    QTest::newRow("no extension") << "film" << 2;
    QTest::newRow("none") << "" << 0;
    QTest::newRow("looks like a place holder") << "/m/%1%2.avi" << 9;
}

void tst_Snapshots::writesNoFile()
{
    QFETCH(QString, fileName);
    QFETCH(int, type);
    const QTemporaryDir folder;
    Player player(0);
    player.widget->addPlayItem(10, fileName, false, Kest3DTurnOff, 0);
    player.play();
    player.impl.setSnapShotDir(folder.path());
    player.impl.setSnapShotImageType(static_cast<Impl::ImageType>(type));
    player.impl.snapShotVideo();
    QCOMPARE(player.calls(), QStringList("KestGetMediaInfo(10)"));
    QVERIFY(filesIn(folder.path()).isEmpty());
}

void tst_Snapshots::makesNoFolder()
{
    const QTemporaryDir folder;
    Player player;
    player.play();
    player.impl.setSnapShotDir(folder.filePath("none/yet"));
    player.impl.snapShotVideo();
    QCOMPARE(player.calls(), QStringList("KestGetMediaInfo(10)"));
    QVERIFY(filesIn(folder.path()).isEmpty());
}

QTEST_MAIN(tst_Snapshots)
#include "tst_snapshots.moc"
