// ImageTracker's look at the density of an ordinary screen, pixel by pixel.
// Not here: dense screens (tst_imagetracker_highdensity.cpp).
#include "controls/imagetracker.h"

#include "painting.h"

#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

namespace {

const QColor handleColor(200, 0, 0);
const QColor onColor(0, 200, 0);
const QColor disableColor(0, 0, 200);
const QColor bgLeftColor(10, 10, 10);
const QColor bgCenterColor(20, 20, 20);
const QColor bgRightColor(30, 30, 30);
const QColor progressLeftColor(110, 110, 0);
const QColor progressCenterColor(120, 120, 0);
const QColor progressRightColor(130, 130, 0);

struct Sizes
{
    QSize handle{15, 15};
    QSize bgLeft{10, 8};
    QSize bgCenter{10, 8};
    QSize bgRight{10, 8};
    QSize progress{10, 8};
};
const Sizes volumeSizes{{10, 10}, {5, 6}, {5, 6}, {5, 6}, {10, 8}};

bool writePieces(const QString &base, const Sizes &sizes = {})
{
    const QSize &bar = sizes.progress;
    return writeFlat(base + "_bl.png", sizes.bgLeft, bgLeftColor)
        && writeFlat(base + "_bc.png", sizes.bgCenter, bgCenterColor)
        && writeFlat(base + "_br.png", sizes.bgRight, bgRightColor)
        && writeFlat(base + "_pl.png", bar, progressLeftColor)
        && writeFlat(base + "_pc.png", bar, progressCenterColor)
        && writeFlat(base + "_pr.png", bar, progressRightColor)
        && writeFlat(base + "_on.png", sizes.handle, onColor)
        && writeFlat(base + "_disable.png", sizes.handle, disableColor);
}

bool writeSkin(const QString &base, const Sizes &sizes = {})
{
    return writeFlat(base + ".png", sizes.handle, handleColor) && writePieces(base, sizes);
}

void setUp(ImageTracker &tracker, const QString &skin, const QSize &size)
{
    tracker.setImagePrefix(skin);
    tracker.resize(size);
    tracker.setRange(0, 1000);
    tracker.setValue(0);
    tracker.setShowProgressBar(false);
    tracker.show();
}

// Puts the handle's centre into that column, as a press on the groove does.
void setCentre(ImageTracker &tracker, int column)
{
    tracker.setValue(column < 120 ? 1000 : 0);  // out of the press's way
    QMouseEvent press(QEvent::MouseButtonPress, QPoint(column, 0), QPoint(column, 0),
                      Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&tracker, &press);
}

QImage playGroove()
{
    QImage image = canvas({240, 15});
    fill(image, {0, 3, 10, 8}, bgLeftColor);
    fill(image, {229, 3, 10, 8}, bgRightColor);
    fill(image, {10, 3, 220, 8}, bgCenterColor);
    return image;
}

int messages = 0;
void countMessage(QtMsgType, const QMessageLogContext &, const QString &)
{
    ++messages;
}

}  // namespace

class tst_ImageTrackerSkin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void paintsNothingWithoutImages();
    void paintsTheGroove();
    void paintsTheHandleOverAll();
    void stretchesTheWholeMiddle();
    void centresTheGrooveByItsLeftPiece();
    void truncatesTowardZero();
    void paintsANarrowGroove();
    void paintsAVolumeSlider();

    void paintsProgressUpToTheHandle_data();
    void paintsProgressUpToTheHandle();
    void measuresProgressWithTheGroovesPieces();
    void centresEachProgressPieceByItself();
    void leavesOutProgressOfNegativeWidth();
    void paintsProgressUpToAHandleFarOutside();
    void leavesOutMissingProgressPieces_data();
    void leavesOutMissingProgressPieces();
    void leavesOutMissingGroovePieces();

    void showsTheHandleOfTheState_data();
    void showsTheHandleOfTheState();
    void hasNoImageOfItsOwnForAPress();
    void paintsWithoutReadingFiles();
    void showsTheDisabledHandle();

    void derivesFileNames_data();
    void derivesFileNames();
    void replacesEveryImage();
    void reportsNothingForMissingFiles();
    void ignoresDenseImages();

    void setImagePrefixMovesTheHandle();
    void setSkinKeepsTheHandle();
    void sizeHintAddsUpTheGroove();

private:
    QString base() const { return folder->filePath("slider"); }
    QString skin() const { return base() + ".png"; }

    QScopedPointer<QTemporaryDir> folder;
};

void tst_ImageTrackerSkin::init()
{
    folder.reset(new QTemporaryDir);
    QVERIFY(writeSkin(base()));
}

void tst_ImageTrackerSkin::paintsNothingWithoutImages()
{
    ImageTracker tracker;
    tracker.resize(240, 15);
    QCOMPARE(painted(tracker), canvas({240, 15}));
    setUp(tracker, folder->filePath("nothing.png"), {240, 15});
    tracker.setShowProgressBar(true);
    setCentre(tracker, 120);
    QCOMPARE(painted(tracker), canvas({240, 15}));
}

void tst_ImageTrackerSkin::paintsTheGroove()
{
    QVERIFY(QFile::remove(skin()));
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    QCOMPARE(painted(tracker), playGroove());
    QCOMPARE(whereIs(painted(tracker), bgCenterColor), QRect(10, 3, 220, 8));
    QCOMPARE(whereIs(painted(tracker), bgRightColor), QRect(230, 3, 9, 8));
    QCOMPARE(painted(tracker).pixelColor(239, 7), unpainted);
}

void tst_ImageTrackerSkin::paintsTheHandleOverAll()
{
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    tracker.setShowProgressBar(true);
    tracker.setValue(500);
    QImage expected = playGroove();
    fill(expected, {0, 3, 10, 8}, progressLeftColor);
    fill(expected, {10, 3, 99, 8}, progressCenterColor);
    fill(expected, {109, 3, 10, 8}, progressRightColor);
    fill(expected, {112, 0, 15, 15}, handleColor);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::stretchesTheWholeMiddle()
{
    QImage halves = canvas({10, 8}, bgCenterColor);
    fill(halves, {5, 0, 5, 8}, Qt::cyan);
    QVERIFY(halves.save(base() + "_bc.png"));
    QVERIFY(QFile::remove(skin()));
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    QImage expected = playGroove();
    fill(expected, {120, 3, 110, 8}, Qt::cyan);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::centresTheGrooveByItsLeftPiece()
{
    QVERIFY(writeSkin(base(), {{15, 15}, {10, 5}, {10, 9}, {6, 2}, {10, 8}}));
    QVERIFY(QFile::remove(skin()));
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    QImage expected = canvas({240, 15});
    fill(expected, {0, 5, 10, 5}, bgLeftColor);
    fill(expected, {233, 5, 6, 2}, bgRightColor);
    fill(expected, {10, 5, 224, 9}, bgCenterColor);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::truncatesTowardZero()
{
    QImage striped = canvas({15, 15}, handleColor);
    fill(striped, {0, 0, 15, 2}, Qt::cyan);
    QVERIFY(striped.save(skin()));
    QImage groove = canvas({10, 15}, bgLeftColor);
    fill(groove, {0, 0, 10, 2}, Qt::yellow);
    QVERIFY(groove.save(base() + "_bl.png"));
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 12});  // (12 - 15) / 2 is -1
    tracker.setValue(1000);
    QCOMPARE(whereIs(painted(tracker), Qt::cyan), QRect(225, 0, 15, 1));
    QCOMPARE(whereIs(painted(tracker), Qt::yellow), QRect(0, 0, 10, 1));
}

void tst_ImageTrackerSkin::paintsANarrowGroove()
{
    QVERIFY(QFile::remove(skin()));
    ImageTracker tracker;
    setUp(tracker, skin(), {15, 15});
    QImage expected = canvas({15, 15});
    fill(expected, {0, 3, 10, 8}, bgLeftColor);
    fill(expected, {4, 3, 10, 8}, bgRightColor);
    QCOMPARE(painted(tracker), expected);
    tracker.resize(20, 15);  // a middle of width 0
    expected = canvas({20, 15});
    fill(expected, {0, 3, 10, 8}, bgLeftColor);
    fill(expected, {9, 3, 10, 8}, bgRightColor);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::paintsAVolumeSlider()
{
    QVERIFY(writeSkin(base(), volumeSizes));
    ImageTracker tracker;
    setUp(tracker, skin(), {70, 10});
    tracker.setValue(1000);
    QImage expected = canvas({70, 10});
    fill(expected, {0, 2, 5, 6}, bgLeftColor);
    fill(expected, {64, 2, 5, 6}, bgRightColor);
    fill(expected, {5, 2, 60, 6}, bgCenterColor);
    fill(expected, {60, 0, 10, 10}, handleColor);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::paintsProgressUpToTheHandle_data()
{
    QTest::addColumn<int>("centre");
    QTest::addColumn<QRect>("right");
    QTest::addColumn<QRect>("middle");
    QTest::newRow("7") << 7 << QRect() << QRect();
    QTest::newRow("10") << 10 << QRect() << QRect();
    QTest::newRow("11") << 11 << QRect(1, 3, 10, 8) << QRect();
    QTest::newRow("20") << 20 << QRect(10, 3, 10, 8) << QRect();
    QTest::newRow("21") << 21 << QRect(11, 3, 10, 8) << QRect(10, 3, 1, 8);
    QTest::newRow("120") << 120 << QRect(110, 3, 10, 8) << QRect(10, 3, 100, 8);
    QTest::newRow("233") << 233 << QRect(223, 3, 10, 8) << QRect(10, 3, 213, 8);
}

void tst_ImageTrackerSkin::paintsProgressUpToTheHandle()
{
    QFETCH(int, centre);
    QFETCH(QRect, right);
    QFETCH(QRect, middle);
    QVERIFY(QFile::remove(base() + "_on.png"));  // the handle would hide the bar's end
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    setCentre(tracker, centre);
    tracker.setState(ImageTracker::On);
    QCOMPARE(painted(tracker), playGroove());

    tracker.setShowProgressBar(true);
    QImage expected = playGroove();
    fill(expected, {0, 3, 10, 8}, progressLeftColor);
    fill(expected, right, progressRightColor);
    fill(expected, middle, progressCenterColor);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::measuresProgressWithTheGroovesPieces()
{
    QVERIFY(writeSkin(base(), volumeSizes));
    QVERIFY(QFile::remove(base() + "_on.png"));
    ImageTracker tracker;
    setUp(tracker, skin(), {70, 10});
    tracker.setShowProgressBar(true);
    setCentre(tracker, 21);
    tracker.setState(ImageTracker::On);
    QImage expected = canvas({70, 10});
    fill(expected, {64, 2, 5, 6}, bgRightColor);
    fill(expected, {5, 2, 60, 6}, bgCenterColor);
    fill(expected, {0, 1, 10, 8}, progressLeftColor);
    fill(expected, {11, 1, 10, 8}, progressRightColor);
    fill(expected, {5, 1, 11, 8}, progressCenterColor);  // over both ends
    QCOMPARE(painted(tracker), expected);

    setCentre(tracker, 20);  // but whether it is shown is measured with the progress pieces
    tracker.setState(ImageTracker::On);
    QCOMPARE(whereIs(painted(tracker), progressCenterColor), QRect());
}

void tst_ImageTrackerSkin::centresEachProgressPieceByItself()
{
    QVERIFY(writeFlat(base() + "_pl.png", {10, 4}, progressLeftColor));
    QVERIFY(writeFlat(base() + "_pc.png", {3, 2}, progressCenterColor));
    QVERIFY(writeFlat(base() + "_pr.png", {10, 9}, progressRightColor));
    QVERIFY(QFile::remove(base() + "_on.png"));
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    tracker.setShowProgressBar(true);
    setCentre(tracker, 40);
    tracker.setState(ImageTracker::On);
    QImage expected = playGroove();
    fill(expected, {0, 5, 10, 4}, progressLeftColor);
    fill(expected, {30, 3, 10, 9}, progressRightColor);
    fill(expected, {10, 6, 20, 2}, progressCenterColor);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::leavesOutProgressOfNegativeWidth()
{
    QVERIFY(writeSkin(base(), {{4, 15}, {20, 8}, {10, 8}, {20, 8}, {2, 8}}));
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    tracker.setShowProgressBar(true);
    for (int centre : {30, 40}) {
        setCentre(tracker, centre);
        QCOMPARE(whereIs(painted(tracker), progressCenterColor), QRect());
    }
    setCentre(tracker, 43);
    QCOMPARE(whereIs(painted(tracker), progressCenterColor), QRect(20, 3, 3, 8));
}

void tst_ImageTrackerSkin::paintsProgressUpToAHandleFarOutside()
{
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    tracker.setShowProgressBar(true);
    tracker.setRange(std::numeric_limits<int>::max() - 1, std::numeric_limits<int>::max());
    tracker.setValue(std::numeric_limits<int>::max());
    QImage expected = playGroove();
    fill(expected, {0, 3, 10, 8}, progressLeftColor);
    fill(expected, {10, 3, 230, 8}, progressCenterColor);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::leavesOutMissingProgressPieces_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QRect>("left");
    QTest::addColumn<QRect>("right");
    QTest::addColumn<QRect>("middle");
    const QRect left(0, 3, 10, 8);
    const QRect right(30, 3, 10, 8);
    const QRect middle(10, 3, 20, 8);
    QTest::newRow("left") << "_pl.png" << QRect() << right << middle;
    QTest::newRow("right") << "_pr.png" << left << QRect() << middle;
    QTest::newRow("middle") << "_pc.png" << left << right << QRect();
}

void tst_ImageTrackerSkin::leavesOutMissingProgressPieces()
{
    QFETCH(QString, suffix);
    QFETCH(QRect, left);
    QFETCH(QRect, right);
    QFETCH(QRect, middle);
    QVERIFY(QFile::remove(base() + suffix));
    QVERIFY(QFile::remove(base() + "_on.png"));
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    tracker.setShowProgressBar(true);
    setCentre(tracker, 40);
    tracker.setState(ImageTracker::On);
    QImage expected = playGroove();
    fill(expected, left, progressLeftColor);
    fill(expected, right, progressRightColor);
    fill(expected, middle, progressCenterColor);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::leavesOutMissingGroovePieces()
{
    QVERIFY(QFile::remove(skin()));
    ImageTracker tracker;

    QVERIFY(QFile::remove(base() + "_bc.png"));
    setUp(tracker, skin(), {240, 15});
    QImage expected = canvas({240, 15});
    fill(expected, {0, 3, 10, 8}, bgLeftColor);
    fill(expected, {229, 3, 10, 8}, bgRightColor);
    QCOMPARE(painted(tracker), expected);

    QVERIFY(writeSkin(base()) && QFile::remove(skin()) && QFile::remove(base() + "_br.png"));
    setUp(tracker, skin(), {240, 15});
    expected = canvas({240, 15});
    fill(expected, {0, 3, 10, 8}, bgLeftColor);
    fill(expected, {10, 3, 230, 8}, bgCenterColor);
    QCOMPARE(painted(tracker), expected);

    // Without the left piece its height, by which all are centred, is 0.
    QVERIFY(writeSkin(base()) && QFile::remove(skin()) && QFile::remove(base() + "_bl.png"));
    setUp(tracker, skin(), {240, 15});
    expected = canvas({240, 15});
    fill(expected, {229, 7, 10, 8}, bgRightColor);
    fill(expected, {0, 7, 230, 8}, bgCenterColor);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::showsTheHandleOfTheState_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QColor>("color");
    QTest::newRow("Normal") << int(ImageTracker::Normal) << handleColor;
    QTest::newRow("On") << int(ImageTracker::On) << onColor;
    QTest::newRow("Down") << int(ImageTracker::Down) << onColor;
    QTest::newRow("Disable") << int(ImageTracker::Disable) << handleColor;
    QTest::newRow("unknown") << 4 << handleColor;
    QTest::newRow("unknown, negative") << -1 << handleColor;
}

void tst_ImageTrackerSkin::showsTheHandleOfTheState()
{
    QFETCH(int, state);
    QFETCH(QColor, color);
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    tracker.setState(static_cast<ImageTracker::State>(state));
    QImage expected = playGroove();
    fill(expected, {0, 0, 15, 15}, color);
    QCOMPARE(painted(tracker), expected);

    tracker.setEnabled(false);
    fill(expected, {0, 0, 15, 15}, disableColor);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::hasNoImageOfItsOwnForAPress()
{
    QVERIFY(writeFlat(base() + "_down.png", {15, 15}, Qt::cyan));
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    tracker.setState(ImageTracker::Down);
    QCOMPARE(whereIs(painted(tracker), onColor), QRect(0, 0, 15, 15));
    QVERIFY(whereIs(painted(tracker), Qt::cyan).isNull());
}

void tst_ImageTrackerSkin::paintsWithoutReadingFiles()
{
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    QVERIFY(folder->remove());
    QImage expected = playGroove();
    const QColor colors[] = {handleColor, onColor, onColor};
    for (int state = ImageTracker::Normal; state <= ImageTracker::Down; ++state) {
        tracker.setState(static_cast<ImageTracker::State>(state));
        fill(expected, {0, 0, 15, 15}, colors[state]);
        QCOMPARE(painted(tracker), expected);
    }
    tracker.setEnabled(false);
    fill(expected, {0, 0, 15, 15}, disableColor);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::showsTheDisabledHandle()
{
    QWidget parent;
    ImageTracker tracker(&parent);
    setUp(tracker, skin(), {240, 15});
    QCOMPARE(whereIs(painted(tracker), handleColor), QRect(0, 0, 15, 15));
    parent.setEnabled(false);
    QCOMPARE(whereIs(painted(tracker), disableColor), QRect(0, 0, 15, 15));
    QCOMPARE(whereIs(painted(tracker), handleColor), QRect());
    parent.setEnabled(true);
    QCOMPARE(whereIs(painted(tracker), handleColor), QRect(0, 0, 15, 15));
}

void tst_ImageTrackerSkin::derivesFileNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("base");
    QTest::newRow("png") << "skin.png"
                         << "skin";
    QTest::newRow("other extension") << "skin.bmp"
                                     << "skin";
    QTest::newRow("upper case") << "Skin.BMP"
                                << "Skin";
    QTest::newRow("two dots") << "skin.v2.png"
                              << "skin.v2";
    QTest::newRow("dot at the end") << "skin."
                                    << "skin";
    QTest::newRow("no dot") << "skin"
                            << "skin";
}

void tst_ImageTrackerSkin::derivesFileNames()
{
    QFETCH(QString, name);
    QFETCH(QString, base);
    const bool isBmp = name.endsWith("bmp", Qt::CaseInsensitive);
    const QString fileName = folder->filePath(name);
    QVERIFY(canvas({15, 15}, handleColor).save(fileName, isBmp ? "BMP" : "PNG"));
    QVERIFY(writePieces(folder->filePath(base)));

    ImageTracker tracker;
    setUp(tracker, fileName, {240, 15});
    tracker.setShowProgressBar(true);
    tracker.setValue(500);
    const QImage image = painted(tracker);
    const QList<QColor> colors = {handleColor,       bgCenterColor,       bgRightColor,
                                  progressLeftColor, progressCenterColor, progressRightColor};
    for (const QColor &color : colors)
        QVERIFY2(!whereIs(image, color).isNull(), qPrintable(color.name()));
    tracker.setShowProgressBar(false);
    QVERIFY(!whereIs(painted(tracker), bgLeftColor).isNull());
    tracker.setState(ImageTracker::On);
    QVERIFY(!whereIs(painted(tracker), onColor).isNull());
    tracker.setEnabled(false);
    QVERIFY(!whereIs(painted(tracker), disableColor).isNull());
}

void tst_ImageTrackerSkin::replacesEveryImage()
{
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    tracker.setShowProgressBar(true);
    tracker.setImagePrefix(folder->filePath("missing.png"));
    for (ImageTracker::State state : {ImageTracker::Normal, ImageTracker::On}) {
        tracker.setState(state);
        QCOMPARE(painted(tracker), canvas({240, 15}));
    }
    tracker.setEnabled(false);
    QCOMPARE(painted(tracker), canvas({240, 15}));
    QCOMPARE(tracker.sizeHint(), QSize(0, 0));
    QCOMPARE(tracker.checkValue(-1), 0);
}

void tst_ImageTrackerSkin::reportsNothingForMissingFiles()
{
    QFile noImage(folder->filePath("text.png"));
    QVERIFY(noImage.open(QIODevice::WriteOnly) && noImage.write("no image") == 8);
    noImage.close();
    ImageTracker tracker;
    tracker.resize(240, 15);

    messages = 0;
    const QtMessageHandler before = qInstallMessageHandler(countMessage);
    for (const QString &name : {QString(), noImage.fileName(), folder->filePath("missing.png")}) {
        tracker.setImagePrefix(name);
        tracker.setSkin(name);
        painted(tracker);
    }
    qInstallMessageHandler(before);
    QCOMPARE(messages, 0);
}

void tst_ImageTrackerSkin::ignoresDenseImages()
{
    QVERIFY(writeFlat(base() + "@2x.png", {30, 30}, Qt::cyan));
    QVERIFY(writeFlat(base() + "_bl@2x.png", {20, 16}, Qt::cyan));
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 15});
    QImage expected = playGroove();
    fill(expected, {0, 0, 15, 15}, handleColor);
    QCOMPARE(painted(tracker), expected);
}

void tst_ImageTrackerSkin::setImagePrefixMovesTheHandle()
{
    ImageTracker tracker;
    setUp(tracker, {}, {240, 25});
    tracker.setValue(500);
    tracker.setImagePrefix(skin());
    QCOMPARE(tracker.getValue(), 500);
    QCOMPARE(whereIs(painted(tracker), handleColor), QRect(15 - 7, 0, 15, 15));
    tracker.setValue(500);
    QCOMPARE(whereIs(painted(tracker), handleColor), QRect(112, 5, 15, 15));
}

void tst_ImageTrackerSkin::setSkinKeepsTheHandle()
{
    ImageTracker tracker;
    setUp(tracker, skin(), {240, 25});
    tracker.setValue(500);
    const QString large = folder->filePath("large");
    QVERIFY(writeSkin(large, {{21, 21}, {10, 8}, {10, 8}, {10, 8}, {10, 8}}));
    tracker.setSkin(large + ".png");
    QCOMPARE(whereIs(painted(tracker), handleColor), QRect(119 - 10, 5, 21, 20));
    QCOMPARE(tracker.checkValue(0), 10);
}

void tst_ImageTrackerSkin::sizeHintAddsUpTheGroove()
{
    ImageTracker tracker;
    QCOMPARE(tracker.sizeHint(), QSize(0, 0));
    tracker.setImagePrefix(skin());
    QCOMPARE(tracker.sizeHint(), QSize(30, 15));
    QVERIFY(writeSkin(base(), volumeSizes));
    tracker.setSkin(skin());
    QCOMPARE(tracker.sizeHint(), QSize(15, 10));
    QVERIFY(writeSkin(base(), {{3, 4}, {1, 9}, {20, 9}, {300, 9}, {9, 9}}));
    tracker.setSkin(skin());
    QCOMPARE(tracker.sizeHint(), QSize(321, 4));
}

QTEST_MAIN(tst_ImageTrackerSkin)
#include "tst_imagetracker_skin.moc"
