// The skin on a new player: icons for each state, slider images and ranges, modes, the style sheet.
// Not here: the images themselves (tst_resources), how the controls paint them.
#include "painting.h"
#include "widgetfixture.h"

#include <QFile>
#include <QPainter>
#include <QPushButton>
#include <QTest>
#include <QTranslator>

int qInitResources_Varlume();
int qCleanupResources_Varlume();

namespace {

struct ButtonRow
{
    IconButton *Ui_PlayWidget_Impl::*button;
    const char *images;
};

const ButtonRow buttonRows[] = {
    {&Ui_PlayWidget_Impl::btnVolumeLeft, "volume_left"},
    {&Ui_PlayWidget_Impl::btnVolumeRight, "volume_right"},
    {&Ui_PlayWidget_Impl::btnPriorFile, "prior_file"},
    {&Ui_PlayWidget_Impl::btnPriorPart, "prior_part"},
    {&Ui_PlayWidget_Impl::btnPlay, "play"},
    {&Ui_PlayWidget_Impl::btnNextPart, "next_part"},
    {&Ui_PlayWidget_Impl::btnNextFile, "next_file"},
    {&Ui_PlayWidget_Impl::btnCapture, "capture"},
    {&Ui_PlayWidget_Impl::btnCaptureRight, "capture_right"},
};

QImage skinImage(const QString &name)
{
    return QImage(":/skin/" + name + ".png");
}

// An image of the skin as it looks where nothing else is painted.
QImage alone(const QImage &image, QPoint at = {}, QSize size = {})
{
    QImage result = canvas(size.isValid() ? size : image.size());
    QPainter(&result).drawImage(at, image);
    return result;
}

QImage modePixels(const QIcon &icon, const QSize &size, QIcon::Mode mode)
{
    return icon.pixmap(size, mode, QIcon::Off)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage skinPixels(const QString &name)
{
    return skinImage(name).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QByteArray styleSheetFile()
{
    QFile file(":/qss/Varlume.qss");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class Shouting : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *, const char *, int) const override
    {
        return QStringLiteral("SHOUT");
    }
};

// While it lives no image and no style sheet can be found.
class NoBundle
{
public:
    NoBundle() { qCleanupResources_Varlume(); }
    ~NoBundle() { qInitResources_Varlume(); }
    Q_DISABLE_COPY(NoBundle)
};

}  // namespace

class tst_Skin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }
    void givesEachButtonItsImages_data();
    void givesEachButtonItsImages();
    void showsOnlyIcons();
    void keepsBothIconsOfThePlayButton_data();
    void keepsBothIconsOfThePlayButton();
    void skinsTheSliders_data();
    void skinsTheSliders();
    void paintsTheSlidersInTheirImages();
    void fillsTheListOfModes_data();
    void fillsTheListOfModes();
    void listsSevenModesAndSelectsOff();
    void leavesModesUntranslated();
    void marksOkAndCancelForTheStyleSheet();
    void hidesTheSnapshotButtons();
    void appliesTheRulesBeforeThePushButtons();
    void paintsTheBackgrounds();
    void stretchesTheMiddleOfTheFrameOnly();
    void leavesThePlatformLook_data();
    void leavesThePlatformLook();
    void loadsTheMusicPicture();
    void bearsAMissingBundle();
};

void tst_Skin::givesEachButtonItsImages_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("down");
    QTest::addColumn<bool>("hovered");
    for (size_t row = 0; row < std::size(buttonRows); ++row) {
        const char *name = buttonRows[row].images;
        const int index = static_cast<int>(row);
        QTest::addRow("%s", name) << index << "" << true << false << false;
        QTest::addRow("%s hovered", name) << index << "_on" << true << false << true;
        QTest::addRow("%s pressed", name) << index << "_down" << true << true << true;
        QTest::addRow("%s disabled", name) << index << "_disable" << false << false << true;
    }
}

void tst_Skin::givesEachButtonItsImages()
{
    QFETCH(int, row);
    QFETCH(QString, suffix);
    QFETCH(bool, enabled);
    QFETCH(bool, down);
    QFETCH(bool, hovered);
    PlayWidget_Impl player;
    player.ui.panPlayControl->show();
    IconButton *button = player.ui.*buttonRows[row].button;
    button->setEnabled(enabled);
    button->setDown(down);
    button->setAttribute(Qt::WA_UnderMouse, hovered);
    const QImage image = skinImage(buttonRows[row].images + suffix);
    QVERIFY(!image.isNull());
    button->resize(image.size());
    QCOMPARE(painted(*button), alone(image));
}

void tst_Skin::showsOnlyIcons()
{
    const PlayWidget_Impl player;
    for (const ButtonRow &row : buttonRows)
        QCOMPARE((player.ui.*row.button)->toolButtonStyle(), Qt::ToolButtonIconOnly);
}

void tst_Skin::keepsBothIconsOfThePlayButton_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("mode");
    QTest::newRow("hovered") << "_on" << int(QIcon::Active);
    QTest::newRow("pressed") << "_down" << int(QIcon::Selected);
    QTest::newRow("disabled") << "_disable" << int(QIcon::Disabled);
    QTest::newRow("normal") << "" << int(QIcon::Normal);
}

void tst_Skin::keepsBothIconsOfThePlayButton()
{
    QFETCH(QString, suffix);
    QFETCH(int, mode);
    const PlayWidget_Impl player;
    const auto pixels = [mode](const QIcon &icon) {
        return modePixels(icon, {24, 24}, static_cast<QIcon::Mode>(mode));
    };
    QCOMPARE(pixels(player.playIcon), skinPixels("play" + suffix));
    QCOMPARE(pixels(player.pauseIcon), skinPixels("pause" + suffix));
    QVERIFY(skinPixels("play" + suffix) != skinPixels("pause" + suffix));
    QCOMPARE(player.ui.btnPlay->icon().cacheKey(), player.playIcon.cacheKey());
}

void tst_Skin::skinsTheSliders_data()
{
    QTest::addColumn<bool>("volume");
    QTest::addColumn<QString>("images");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::newRow("volume") << true << "volumeslider" << 200 << 100;
    QTest::newRow("position") << false << "playslider" << 1000 << 0;
}

void tst_Skin::skinsTheSliders()
{
    QFETCH(bool, volume);
    QFETCH(QString, images);
    QFETCH(int, maximum);
    QFETCH(int, value);
    const PlayWidget_Impl player;
    const ImageTracker *slider = volume ? player.ui.volumeTracker : player.ui.playTracker;
    QCOMPARE(slider->minValue, 0);
    QCOMPARE(slider->maxValue, maximum);
    QCOMPARE(slider->getValue(), value);
    QCOMPARE(slider->state, ImageTracker::Normal);
    QVERIFY(!slider->showProgressBar);
    QCOMPARE(slider->handleImage, skinImage(images));
    QCOMPARE(slider->handleOnImage, skinImage(images + "_on"));
    QCOMPARE(slider->handleDisableImage, skinImage(images + "_disable"));
    QCOMPARE(slider->bgLeft, skinImage(images + "_bl"));
    QCOMPARE(slider->bgCenter, skinImage(images + "_bc"));
    QCOMPARE(slider->bgRight, skinImage(images + "_br"));
    QCOMPARE(slider->progressLeft, skinImage(images + "_pl"));
    QCOMPARE(slider->progressCenter, skinImage(images + "_pc"));
    QCOMPARE(slider->progressRight, skinImage(images + "_pr"));
    QVERIFY(!slider->handleImage.isNull());
}

// The volume's handle stands in the middle of its 70 pixels, the position's at the left end.
void tst_Skin::paintsTheSlidersInTheirImages()
{
    PlayWidget_Impl player;
    player.ui.panPlayControl->show();
    const QImage volume = painted(*player.ui.volumeTracker);
    QCOMPARE(volume.size(), QSize(70, 10));
    player.ui.volumeTracker->setValue(0);
    QVERIFY(painted(*player.ui.volumeTracker) != volume);
    player.ui.volumeTracker->setValue(100);
    QCOMPARE(painted(*player.ui.volumeTracker), volume);
    QCOMPARE(player.ui.volumeTracker->handlePos, QPoint(35, 0));
    QCOMPARE(player.ui.playTracker->handlePos, QPoint(7, 0));
}

void tst_Skin::fillsTheListOfModes_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("icon");
    QTest::newRow("off") << 0 << "Turn off 3D" << 11 << "mode_turnoff";
    QTest::newRow("red/cyan") << 1 << "Red/Cyan" << 4 << "mode_redcyan";
    QTest::newRow("red/green") << 2 << "Red/Green" << 1 << "mode_redgreen";
    QTest::newRow("red/blue") << 3 << "Red/Blue" << 2 << "mode_redblue";
    QTest::newRow("blue/yellow") << 4 << "Blue/Yellow" << 6 << "mode_yellowblue";
    QTest::newRow("interleaved") << 5 << "Interleaved" << 8 << "mode_interlaced";
    QTest::newRow("side by side") << 6 << "Slide By Slide" << 9 << "mode_sidebyside";
}

void tst_Skin::fillsTheListOfModes()
{
    QFETCH(int, index);
    QFETCH(QString, text);
    QFETCH(int, mode);
    QFETCH(QString, icon);
    const PlayWidget_Impl player;
    const QComboBox *modes = player.ui.cbx3DMode;
    QCOMPARE(modes->itemText(index), text);
    QCOMPARE(modes->itemData(index, Qt::UserRole).userType(), int(QMetaType::Int));
    QCOMPARE(modes->itemData(index, Qt::UserRole).toInt(), mode);
    QCOMPARE(modes->itemIcon(index).availableSizes(), QList<QSize>{QSize(16, 16)});
    QCOMPARE(modePixels(modes->itemIcon(index), {16, 16}, QIcon::Normal), skinPixels(icon));
}

void tst_Skin::listsSevenModesAndSelectsOff()
{
    const PlayWidget_Impl player;
    QCOMPARE(player.ui.cbx3DMode->count(), 7);
    QCOMPARE(player.ui.cbx3DMode->currentIndex(), 0);
}

void tst_Skin::leavesModesUntranslated()
{
    Shouting translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const PlayWidget_Impl player;
    QCOMPARE(player.ui.chxApplyToAll->text(), "SHOUT");
    QCOMPARE(player.ui.cbx3DMode->itemText(0), "Turn off 3D");
    QCOMPARE(player.ui.cbx3DMode->itemText(6), "Slide By Slide");
}

void tst_Skin::marksOkAndCancelForTheStyleSheet()
{
    const PlayWidget_Impl player;
    for (const QWidget *widget : player.findChildren<QWidget *>()) {
        const QVariant mark = widget->property("useStyleSheet");
        const bool marked = widget->parent() == player.ui.buttonBox;
        QCOMPARE(mark.userType(), int(marked ? QMetaType::QString : QMetaType::UnknownType));
        QCOMPARE(mark.toString(), marked ? "true" : "");
    }
    QCOMPARE(player.ui.buttonBox->buttons().size(), 2);
}

void tst_Skin::hidesTheSnapshotButtons()
{
    PlayWidget_Impl player;
    player.ui.panPlayControl->show();
    player.show();
    for (const ButtonRow &row : buttonRows) {
        const bool snapshot = QByteArray(row.images).startsWith("capture");
        QCOMPARE((player.ui.*row.button)->isVisible(), !snapshot);
    }
}

void tst_Skin::appliesTheRulesBeforeThePushButtons()
{
    const PlayWidget_Impl player;
    const QByteArray whole = styleSheetFile();
    QCOMPARE(whole.size(), 3344);
    const QByteArray rules = player.styleSheet().toLatin1();
    QVERIFY(whole.startsWith(rules + "QPushButton[useStyleSheet"));
    QVERIFY(!rules.contains("QPushButton"));
    QVERIFY(rules.startsWith("QWidget#panClient {\r\n"));
    QCOMPARE(rules.count("{"), 2);
    QVERIFY(rules.contains("\r\nQWidget#panPlayControl {\r\n"));
    for (const QWidget *widget : player.findChildren<QWidget *>())
        QCOMPARE(widget->styleSheet(), QString());
}

void tst_Skin::paintsTheBackgrounds()
{
    PlayWidget_Impl player;
    player.ui.panPlayControl->show();
    player.show();
    QCOMPARE(player.ui.panClient->size(), QSize(702, 585));
    QCOMPARE(painted(*player.ui.panClient), alone(skinImage("background")));
    QCOMPARE(painted(*player.ui.panPlayControl), alone(skinImage("playcontrol")));
}

void tst_Skin::stretchesTheMiddleOfTheFrameOnly()
{
    PlayWidget_Impl player;
    player.resize(802, 685);
    player.show();
    const QImage large = painted(*player.ui.panClient);
    const QImage usual = alone(skinImage("background"));
    QCOMPARE(large.size(), QSize(802, 685));
    QCOMPARE(large.copy(0, 0, 62, 62), usual.copy(0, 0, 62, 62));
    QCOMPARE(large.copy(802 - 62, 0, 62, 62), usual.copy(702 - 62, 0, 62, 62));
    QCOMPARE(large.copy(0, 685 - 62, 62, 62), usual.copy(0, 585 - 62, 62, 62));
    QCOMPARE(large.copy(802 - 62, 685 - 62, 62, 62), usual.copy(702 - 62, 585 - 62, 62, 62));
    QVERIFY(usual.copy(0, 0, 62, 62) != canvas({62, 62}));
}

void tst_Skin::leavesThePlatformLook_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"cbx3DMode", "edt3DPos", "chxApplyToAll", "effectTracker", "Ok"})
        QTest::newRow(name) << name;
}

// The same tree without a style sheet looks the same: the rules of the file that would paint these
// controls are not applied.
void tst_Skin::leavesThePlatformLook()
{
    QFETCH(QString, name);
    const auto look = [&name](const QString &rules) {
        PlayWidget_Impl player;
        player.show();
        player.setStyleSheet(rules);
        player.ui.cbx3DMode->setCurrentIndex(1);
        QWidget *control = name == "Ok" ? player.ui.buttonBox->button(QDialogButtonBox::Ok)
                                        : player.findChild<QWidget *>(name);
        control->setAttribute(Qt::WA_UnderMouse, false);
        return painted(*control);
    };
    const QImage skinned = look(PlayWidget_Impl().styleSheet());
    QCOMPARE(skinned, look(QString()));
    QVERIFY(skinned != look(styleSheetFile()));
}

void tst_Skin::loadsTheMusicPicture()
{
    const PlayWidget_Impl player;
    QCOMPARE(*player.musicPicture, skinImage("music"));
    QCOMPARE(player.musicPicture->size(), QSize(211, 177));
}

void tst_Skin::bearsAMissingBundle()
{
    const NoBundle none;
    PlayWidget_Impl player;
    QCOMPARE(player.styleSheet(), QString());
    QVERIFY(player.musicPicture->isNull());
    QVERIFY(player.ui.playTracker->handleImage.isNull());
    QVERIFY(player.ui.btnPlay->icon().pixmap(24, 24).isNull());
    QVERIFY(player.ui.cbx3DMode->itemIcon(1).pixmap(16, 16).isNull());
    QCOMPARE(player.ui.cbx3DMode->itemText(1), "Red/Cyan");
    QCOMPARE(player.ui.volumeTracker->getValue(), 100);
    QVERIFY(player.errorList().isEmpty());
}

QTEST_MAIN(tst_Skin)
#include "tst_skin.moc"
