// ImageTracker's look on a screen with two pixels to each logical one.
// Not here: the order and the rules of painting (tst_imagetracker_skin.cpp).
#include "controls/imagetracker.h"

#include "painting.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QColor handleColor(200, 0, 0);
const QColor onColor(0, 200, 0);
const QColor leftColor(10, 10, 10);
const QColor centerColor(20, 20, 20);
const QColor rightColor(30, 30, 30);
const QColor coarse(Qt::cyan);

void fillTwice(QImage &image, const QRect &logical, const QColor &color)
{
    fill(image, QRect(logical.topLeft() * 2, logical.size() * 2), color);
}

}  // namespace

class tst_ImageTrackerHighDensity : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void takesTheDenseImages();
    void keepsLogicalCoordinates();
    void takesTheCoarseImageWhereNoDenseOneIs();
    void takesTheCoarseImageWhereTheDenseOneIsUnreadable();
    void findsTheDenseImageOfANameWithoutDot();
    void findsTheDenseImageOfANameWithTwoDots();
    void paintsProgressInLogicalPixels();

private:
    bool write(const char *name, const QSize &size, const QColor &color) const
    {
        return writeFlat(file(name), size, color);
    }
    QString file(const char *name) const { return folder->filePath(QLatin1String(name)); }
    QImage slider(const QColor &handle) const;

    QScopedPointer<QTemporaryDir> folder;
    QScopedPointer<ImageTracker> tracker;
};

void tst_ImageTrackerHighDensity::init()
{
    QCOMPARE(qApp->devicePixelRatio(), 2.0);
    folder.reset(new QTemporaryDir);
    QVERIFY(write("s.png", {15, 15}, coarse) && write("s@2x.png", {30, 30}, handleColor));
    QVERIFY(write("s_on.png", {15, 15}, coarse) && write("s_on@2x.png", {30, 30}, onColor));
    QVERIFY(write("s_bl.png", {10, 8}, coarse) && write("s_bl@2x.png", {20, 16}, leftColor));
    QVERIFY(write("s_bc.png", {10, 8}, coarse) && write("s_bc@2x.png", {20, 16}, centerColor));
    QVERIFY(write("s_br.png", {10, 8}, coarse) && write("s_br@2x.png", {20, 16}, rightColor));

    tracker.reset(new ImageTracker);
    tracker->resize(240, 15);
    tracker->setRange(0, 1000);
    tracker->setImagePrefix(file("s.png"));
    tracker->setValue(500);
    tracker->show();
}

QImage tst_ImageTrackerHighDensity::slider(const QColor &handle) const
{
    QImage image = canvas({480, 30});
    fillTwice(image, {0, 3, 10, 8}, leftColor);
    fillTwice(image, {229, 3, 10, 8}, rightColor);
    fillTwice(image, {10, 3, 220, 8}, centerColor);
    fillTwice(image, {112, 0, 15, 15}, handle);
    return image;
}

void tst_ImageTrackerHighDensity::takesTheDenseImages()
{
    QCOMPARE(painted(*tracker), slider(handleColor));
    tracker->setState(ImageTracker::On);
    QCOMPARE(painted(*tracker), slider(onColor));
}

void tst_ImageTrackerHighDensity::keepsLogicalCoordinates()
{
    QCOMPARE(tracker->sizeHint(), QSize(30, 15));
    QCOMPARE(tracker->checkValue(0), 7);
    QCOMPARE(tracker->checkValue(240), 233);
    QTest::mousePress(tracker.data(), Qt::LeftButton, {}, {126, 14});
    QMouseEvent move(QEvent::MouseMove, QPoint(136, 14), tracker->mapToGlobal(QPoint(136, 14)),
                     Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(tracker.data(), &move);
    QCOMPARE(tracker->getValue(), 122 * 1000 / 225);
    QTest::mousePress(tracker.data(), Qt::LeftButton, {}, {150, 14});
    QCOMPARE(tracker->getValue(), 143 * 1000 / 225);
}

void tst_ImageTrackerHighDensity::takesTheCoarseImageWhereNoDenseOneIs()
{
    QVERIFY(QFile::remove(file("s@2x.png")));
    tracker->setSkin(file("s.png"));
    QCOMPARE(painted(*tracker), slider(coarse));
}

void tst_ImageTrackerHighDensity::takesTheCoarseImageWhereTheDenseOneIsUnreadable()
{
    QFile broken(file("s@2x.png"));
    QVERIFY(broken.open(QIODevice::WriteOnly | QIODevice::Truncate) && broken.write("x") == 1);
    broken.close();
    tracker->setSkin(file("s.png"));
    QCOMPARE(painted(*tracker), slider(coarse));
}

void tst_ImageTrackerHighDensity::findsTheDenseImageOfANameWithoutDot()
{
    QVERIFY(QFile::rename(file("s.png"), file("s")));
    QVERIFY(QFile::rename(file("s@2x.png"), file("s@2x")));
    tracker->setSkin(file("s"));
    QCOMPARE(painted(*tracker), slider(handleColor));
}

void tst_ImageTrackerHighDensity::findsTheDenseImageOfANameWithTwoDots()
{
    QVERIFY(write("s.v2.png", {15, 15}, coarse) && write("s.v2@2x.png", {30, 30}, handleColor));
    tracker->setSkin(file("s.v2.png"));
    QImage expected = canvas({480, 30});
    fillTwice(expected, {112, 0, 15, 15}, handleColor);
    QCOMPARE(painted(*tracker), expected);
}

void tst_ImageTrackerHighDensity::paintsProgressInLogicalPixels()
{
    const QColor progressLeft(110, 110, 0);
    const QColor progressCenter(120, 120, 0);
    const QColor progressRight(130, 130, 0);
    QVERIFY(write("s_pl@2x.png", {20, 16}, progressLeft));
    QVERIFY(write("s_pc@2x.png", {20, 16}, progressCenter));
    QVERIFY(write("s_pr.png", {10, 8}, progressRight));
    tracker->setSkin(file("s.png"));
    QImage expected = slider(handleColor);
    fillTwice(expected, {0, 3, 10, 8}, progressLeft);
    fillTwice(expected, {109, 3, 10, 8}, progressRight);
    fillTwice(expected, {10, 3, 99, 8}, progressCenter);
    fillTwice(expected, {112, 0, 15, 15}, handleColor);
    QCOMPARE(painted(*tracker), expected);
}

int main(int argc, char **argv)
{
    qputenv("QT_SCALE_FACTOR", "2");
    QApplication application(argc, argv);
    tst_ImageTrackerHighDensity test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_imagetracker_highdensity.moc"
