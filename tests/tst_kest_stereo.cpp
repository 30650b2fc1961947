// The engine with stereo films: each eye's own picture in each mode, for every way to pack two.
// Not here: how two pictures become one (tst_stereocomposer.cpp), what tags mean
// (tst_stereolayout.cpp).
#include "clips.h"
#include "engine/mpv/stereocomposer.h"
#include "enginestage.h"

#include <QPainter>

#include <random>

namespace {

constexpr QRgb black = 0xff000000;
constexpr QRgb red = 0xffff0000;
constexpr QRgb blue = 0xff0000ff;

/// What has one colour, which is never black: a pixel, or a block of some in a row or a column.
enum class Pattern { Pixels, Wide, High };

constexpr int blockLength = 16;

QImage pattern(QSize size, Pattern pattern, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<QRgb> colours(size_t(size.width() * size.height()));
    for (QRgb &colour : colours)
        colour = (random() & 0xffffff) | 0xff010101;
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const int column = pattern == Pattern::Wide ? x / blockLength : x;
            const int row = pattern == Pattern::High ? y / blockLength : y;
            picture.setPixel(x, y, colours[size_t(row * size.width() + column)]);
        }
    }
    return picture;
}

QImage plain(QSize size, QRgb colour)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

/// A picture of 160 x 90 that is black but where blocks that are stretched to twice their length meet:
/// the pixel on either side is a mixture.
QImage seams(Pattern pattern)
{
    QImage picture = plain({160, 90}, black);
    QPainter painter(&picture);
    for (int at = 2 * blockLength; at < 160; at += 2 * blockLength) {
        if (pattern == Pattern::Wide)
            painter.fillRect(at - 1, 0, 2, 90, Qt::white);
        else if (pattern == Pattern::High)
            painter.fillRect(0, at - 1, 160, 2, Qt::white);
    }
    return picture;
}

/// Whether two pictures are the same in each channel where `spared` is black.
bool agree(const QImage &one, const QImage &other, const QImage &spared)
{
    if (one.size() != other.size())
        return false;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb difference = one.pixel(x, y) ^ other.pixel(x, y);
            const QRgb seam = spared.pixel(x, y);
            if ((qRed(difference) && !qRed(seam)) || (qGreen(difference) && !qGreen(seam))
                || (qBlue(difference) && !qBlue(seam)))
                return false;
        }
    }
    return true;
}

QImage besideEachOther(const QImage &left, const QImage &right)
{
    QImage frame(left.width() * 2, left.height(), QImage::Format_RGB32);
    QPainter painter(&frame);
    painter.drawImage(0, 0, left);
    painter.drawImage(left.width(), 0, right);
    return frame;
}

QImage aboveEachOther(const QImage &top, const QImage &bottom)
{
    QImage frame(top.width(), top.height() * 2, QImage::Format_RGB32);
    QPainter painter(&frame);
    painter.drawImage(0, 0, top);
    painter.drawImage(0, top.height(), bottom);
    return frame;
}

/// One way to pack two views that are shown in 160 x 90.
struct Packing
{
    const char *name;
    int layout;
    const char *tag;
    QSize stored;  ///< size of one view in the file
    Pattern pattern;
};

const Packing packings[] = {
    {"whole, left", KestLayoutSideBySide, "left_right", {160, 90}, Pattern::Pixels},
    {"whole, right", KestLayoutSideBySideRightFirst, "right_left", {160, 90}, Pattern::Pixels},
    {"half, left", KestLayoutSideBySideHalf, "left_right", {80, 90}, Pattern::Wide},
    {"half, right", KestLayoutSideBySideHalfRightFirst, "right_left", {80, 90}, Pattern::Wide},
    {"whole, top", KestLayoutTopBottom, "top_bottom", {160, 90}, Pattern::Pixels},
    {"whole, bottom", KestLayoutTopBottomRightFirst, "bottom_top", {160, 90}, Pattern::Pixels},
    {"half, top", KestLayoutTopBottomHalf, "top_bottom", {160, 45}, Pattern::High},
    {"half, bottom", KestLayoutTopBottomHalfRightFirst, "bottom_top", {160, 45}, Pattern::High},
};

/// The eyes' pictures as they are shown, the frame that holds them, and where they are not exact.
struct Scene
{
    QImage left, right, frame, seams;
};

Scene scene(const Packing &packing)
{
    const QImage first = pattern(packing.stored, packing.pattern, 1);
    const QImage second = pattern(packing.stored, packing.pattern, 2);
    const bool above = packing.layout >= KestLayoutTopBottom;
    const QImage frame = above ? aboveEachOther(first, second) : besideEachOther(first, second);
    const QImage one = first.scaled(160, 90), other = second.scaled(160, 90);
    const QImage seams = ::seams(packing.pattern);
    const bool rightFirst = packing.layout % 2 == 0;
    return rightFirst ? Scene{other, one, frame, seams} : Scene{one, other, frame, seams};
}

/// One of views that are exact all over.
Scene sceneOf(const QImage &left, const QImage &right)
{
    return {left.convertToFormat(QImage::Format_RGB32),
            right.convertToFormat(QImage::Format_RGB32),
            {},
            plain(left.size(), black)};
}

}  // namespace

class tst_KestStereo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_wide = film("wide.mkv",
                      besideEachOther(pattern({160, 90}, Pattern::Pixels, 1),
                                      pattern({160, 90}, Pattern::Pixels, 2)));
        QVERIFY(!m_wide.isEmpty());
    }

    void eachEyeSeesItsOwnPictureInEachMode_data()
    {
        QTest::addColumn<int>("packing");
        for (int i = 0; i < int(std::size(packings)); ++i)
            QTest::newRow(packings[i].name) << i;
    }
    void eachEyeSeesItsOwnPictureInEachMode()
    {
        QFETCH(const int, packing);
        const Packing &with = packings[packing];
        const Scene scene = ::scene(with);
        const QString clip
            = film("film.mkv", scene.frame, QString(" -metadata:s:v stereo_mode=") + with.tag);
        EngineStage stage({160, 90});
        QCOMPARE(stage.open(clip), int(KestOk));
        showsInEachMode(stage, scene);
        QCOMPARE(stage.events.size(), std::size_t(1));  // paused all the while
    }

    void theHostMayTellTheLayout_data() { eachEyeSeesItsOwnPictureInEachMode_data(); }
    void theHostMayTellTheLayout()
    {
        QFETCH(const int, packing);
        const Packing &with = packings[packing];
        const Scene scene = ::scene(with);
        EngineStage stage({160, 90});
        QCOMPARE(stage.add(1, film("film.mkv", scene.frame)), int(KestOk));
        QCOMPARE(KestSetStereoLayout(stage.engine, 1, with.layout), int(KestOk));
        QCOMPARE(stage.begin(1), int(KestOk));
        showsInEachMode(stage, scene, {0.1});
    }

    void aViewIsShownInItsOwnShape_data()
    {
        QTest::addColumn<QSize>("view");  // as it is stored
        QTest::addColumn<QString>("tag");
        QTest::addColumn<QSize>("shown");  // in a window of 200 x 200
        QTest::newRow("whole") << QSize(160, 90) << "left_right" << QSize(200, 113);
        QTest::newRow("half") << QSize(80, 90) << "left_right" << QSize(200, 113);
        QTest::newRow("half, and the file says so")
            << QSize(80, 90) << "left_right -vf setsar=2" << QSize(200, 113);
        QTest::newRow("whole, told as if it were half")
            << QSize(160, 90) << "left_right -vf setsar=2" << QSize(200, 113);
        QTest::newRow("top, whole") << QSize(160, 90) << "top_bottom" << QSize(200, 113);
        QTest::newRow("top, half") << QSize(160, 45) << "top_bottom" << QSize(200, 113);
        QTest::newRow("top, half, and the file says so")
            << QSize(160, 45) << "top_bottom -vf setsar=1/2" << QSize(200, 113);
        QTest::newRow("odd") << QSize(161, 91) << "left_right" << QSize(200, 113);
        QTest::newRow("odd, top") << QSize(161, 91) << "top_bottom" << QSize(200, 113);
        QTest::newRow("odd, half") << QSize(81, 91) << "left_right" << QSize(200, 112);
        QTest::newRow("upright") << QSize(50, 100) << "left_right" << QSize(100, 200);
    }
    void aViewIsShownInItsOwnShape()
    {
        QFETCH(const QSize, view);
        QFETCH(const QString, tag);
        QFETCH(const QSize, shown);
        const bool above = tag.startsWith("top");
        const QImage frame = above ? aboveEachOther(plain(view, red), plain(view, red))
                                   : besideEachOther(plain(view, red), plain(view, red));
        const QString clip = film("shape.mkv", frame, " -metadata:s:v stereo_mode=" + tag);
        EngineStage stage({200, 200});
        QCOMPARE(stage.open(clip), int(KestOk));
        const QRect place(QPoint((200 - shown.width()) / 2, (200 - shown.height()) / 2), shown);
        QImage expected = plain({200, 200}, black);
        QPainter(&expected).fillRect(place, QColor(red));
        QTRY_COMPARE(stage.grab(), expected);
        QCOMPARE(stage.setFilter(Kest3DRedCyan, 0.0), int(KestOk));
        QTest::qWait(50);
        QCOMPARE(stage.grab(), expected);
    }

    void scalingDoesNotMixTheEyes_data()
    {
        QTest::addColumn<QSize>("window");
        const QImage left = plain({160, 90}, red), right = plain({160, 90}, blue);
        film("beside.mkv", besideEachOther(left, right), " -metadata:s:v stereo_mode=left_right");
        film("above.mkv", aboveEachOther(left, right), " -metadata:s:v stereo_mode=top_bottom");
        for (const QSize size : {QSize(16, 9), QSize(48, 27), QSize(100, 56), QSize(175, 98),
                                 QSize(320, 180), QSize(333, 187), QSize(801, 450)})
            QTest::addRow("%dx%d", size.width(), size.height()) << size;
    }
    void scalingDoesNotMixTheEyes()
    {
        QFETCH(const QSize, window);
        for (const char *clip : {"beside.mkv", "above.mkv"}) {
            EngineStage stage(window);
            QCOMPARE(stage.open(m_clips.path(clip)), int(KestOk));
            QTRY_COMPARE(stage.centre(), red);
            const QImage shown = stage.grab();
            for (int y = 0; y < window.height(); ++y)
                for (int x = 0; x < window.width(); ++x)
                    QVERIFY(shown.pixel(x, y) == red || shown.pixel(x, y) == black);
            QCOMPARE(stage.setFilter(Kest3DRedBlue, 0.0), int(KestOk));
            QTRY_COMPARE(stage.centre(), red | blue);
            const QImage both = stage.grab();
            for (int y = 0; y < window.height(); ++y)
                for (int x = 0; x < window.width(); ++x)
                    QVERIFY(both.pixel(x, y) == (red | blue) || both.pixel(x, y) == black);
        }
    }

    void aTagInAnMp4Counts_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<bool>("above");
        QTest::newRow("side by side") << "left_right" << false;
        QTest::newRow("top and bottom") << "top_bottom" << true;
    }
    void aTagInAnMp4Counts()
    {
        QFETCH(const QString, tag);
        QFETCH(const bool, above);
        const QImage left = pattern({160, 90}, Pattern::Pixels, 1);
        const QImage right = pattern({160, 90}, Pattern::Pixels, 2);
        const QImage frame = above ? aboveEachOther(left, right) : besideEachOther(left, right);
        EngineStage stage({160, 90});
        QCOMPARE(stage.open(mp4("tagged.mp4", frame, tag, 0)), int(KestOk));
        showsInEachMode(stage, sceneOf(left, right));
    }

    void turnedViewsAreTurnedEach_data()
    {
        QTest::addColumn<int>("degrees");
        for (const int degrees : {90, 180, 270})
            QTest::addRow("%d", degrees) << degrees;
    }
    void turnedViewsAreTurnedEach()
    {
        QFETCH(const int, degrees);
        const QImage left = pattern({160, 90}, Pattern::Pixels, 1);
        const QImage right = pattern({160, 90}, Pattern::Pixels, 2);
        const QString clip
            = mp4("turned.mp4", besideEachOther(left, right), "left_right", 360 - degrees);
        const auto turn = QTransform().rotate(degrees);
        EngineStage stage(degrees == 180 ? QSize(160, 90) : QSize(90, 160));
        QCOMPARE(stage.open(clip), int(KestOk));
        showsInEachMode(stage, sceneOf(left.transformed(turn), right.transformed(turn)));
    }

    void untaggedFilmsAreFlat()
    {
        const QImage frame = besideEachOther(pattern({160, 90}, Pattern::Pixels, 1),
                                             pattern({160, 90}, Pattern::Pixels, 2));
        EngineStage stage({320, 90});
        QCOMPARE(stage.open(m_wide), int(KestOk));
        showsInEachMode(stage, sceneOf(frame, frame));
    }

    void aLayoutShowsAtOnceAndCanBeTakenBack()
    {
        const Scene beside = scene(packings[0]);
        const QString clip
            = film("tagged.mkv", beside.frame, " -metadata:s:v stereo_mode=left_right");
        EngineStage stage({160, 90});
        QCOMPARE(stage.open(clip), int(KestOk));
        QTRY_COMPARE(stage.grab(), beside.left);
        QCOMPARE(KestSetStereoLayout(stage.engine, 1, KestLayoutSideBySideRightFirst), int(KestOk));
        QTRY_COMPARE(stage.grab(), beside.right);
        QCOMPARE(KestSetStereoLayout(stage.engine, 1, KestLayoutFlat), int(KestOk));
        stage.window->resize(320, 90);
        QTRY_COMPARE(stage.grab(), beside.frame);
        stage.window->resize(160, 90);
        QCOMPARE(KestSetStereoLayout(stage.engine, 1, KestLayoutAsTagged), int(KestOk));
        QTRY_COMPARE(stage.grab(), beside.left);
        QCOMPARE(stage.events.size(), std::size_t(1));  // no seek, no event
    }

    void aLayoutHoldsForAFilmThatPlays()
    {
        EngineStage stage({160, 90});
        QCOMPARE(stage.open(m_wide), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestOk));
        QTRY_VERIFY(stage.position() >= 100 && stage.position() != ~0u);
        QCOMPARE(KestSetStereoLayout(stage.engine, 1, KestLayoutSideBySide), int(KestOk));
        QTRY_COMPARE(stage.grab(), pattern({160, 90}, Pattern::Pixels, 1));
        QTRY_VERIFY(stage.ended());
        QCOMPARE(stage.grab(), pattern({160, 90}, Pattern::Pixels, 1));
        QCOMPARE(KestSetCurPos(stage.engine, 200), int(KestOk));
        QTRY_COMPARE(stage.position(), 200u);
        QCOMPARE(stage.grab(), pattern({160, 90}, Pattern::Pixels, 1));
    }

    void aLayoutIsKeptWithoutSave()
    {
        EngineStage stage({160, 90});
        QCOMPARE(stage.open(m_wide), int(KestOk));
        QCOMPARE(KestSetStereoLayout(stage.engine, 1, KestLayoutSideBySide), int(KestOk));
        QCOMPARE(KestEditEnd(stage.engine, false), int(KestOk));
        QCOMPARE(stage.begin(1), int(KestOk));
        QTRY_COMPARE(stage.grab(), pattern({160, 90}, Pattern::Pixels, 1));
    }

    void aLayoutOfAnotherFileChangesNothing()
    {
        EngineStage stage({320, 90});
        QCOMPARE(stage.add(2, m_wide), int(KestOk));
        QCOMPARE(stage.open(m_wide), int(KestOk));
        QTRY_VERIFY(stage.centre() != black);
        const QImage flat = stage.grab();
        QCOMPARE(KestSetStereoLayout(stage.engine, 2, KestLayoutSideBySide), int(KestOk));
        QTest::qWait(100);
        QCOMPARE(stage.grab(), flat);
    }

    void aNewPathLosesTheLayoutAndLeavesTheOpenEdit()
    {
        const QString other = film("other.mkv", plain({320, 90}, red));
        EngineStage stage({160, 90});
        QCOMPARE(stage.open(m_wide), int(KestOk));
        QCOMPARE(KestSetStereoLayout(stage.engine, 1, KestLayoutSideBySide), int(KestOk));
        QTRY_COMPARE(stage.grab(), pattern({160, 90}, Pattern::Pixels, 1));
        QCOMPARE(stage.add(1, other), int(KestOk));
        QCOMPARE(KestSetStereoLayout(stage.engine, 1, KestLayoutTopBottom), int(KestOk));
        QTest::qWait(100);
        QCOMPARE(stage.grab(), pattern({160, 90}, Pattern::Pixels, 1));
        QCOMPARE(stage.add(1, m_wide), int(KestOk));
        QCOMPARE(stage.begin(1), int(KestOk));
        QTRY_VERIFY(stage.centre() != black);
        QCOMPARE(stage.pixel(80, 10), black);  // above the whole frame
    }

    void unknownLayoutsAndFilesAreRefused()
    {
        EngineStage stage({160, 90});
        QCOMPARE(stage.add(1, m_wide), int(KestOk));
        QCOMPARE(KestSetStereoLayout(stage.engine, 2, KestLayoutFlat), int(KestErrorFileId));
        for (const int layout : {-2, 9, INT_MAX, INT_MIN})
            QCOMPARE(KestSetStereoLayout(stage.engine, 1, layout), int(KestErrorArgument));
        QCOMPARE(KestSetStereoLayout(stage.engine, 1, KestLayoutSideBySide), int(KestOk));
        QCOMPARE(KestSetStereoLayout(stage.engine, 1, 9), int(KestErrorArgument));
        QCOMPARE(stage.begin(1), int(KestOk));
        QTRY_COMPARE(stage.grab(), pattern({160, 90}, Pattern::Pixels, 1));
    }

    void aFileThatCannotBePlayedMayHaveALayout()
    {
        EngineStage stage({160, 90});
        QCOMPARE(stage.open(m_clips.path("missing.mkv")), int(KestOk));
        for (int layout = KestLayoutAsTagged; layout <= KestLayoutTopBottomHalfRightFirst; ++layout)
            QCOMPARE(KestSetStereoLayout(stage.engine, 1, layout), int(KestOk));
        QCOMPARE(KestPlay(stage.engine), int(KestErrorNotFound));
    }

private:
    /// A film of one picture, exact to the bit, for 0.6 s.
    QString film(const QString &name, const QImage &frame, const QString &more = {}) const
    {
        return of(frame, name, "-c:v ffv1 -pix_fmt bgr0" + more);
    }

    QString of(const QImage &frame, const QString &name, const QString &coding) const
    {
        if (!frame.save(m_clips.path("frame.png")))
            return {};
        return m_clips.make(name, "-loop 1 -r 25 -t 0.6 -i frame.png " + coding);
    }

    QString mp4(const QString &name, const QImage &frame, const QString &tag, int rotate) const
    {
        of(frame, "coded.mkv",
           "-c:v libx264rgb -pix_fmt bgr0 -qp 0 -metadata:s:v stereo_mode=" + tag);
        return m_clips.make(
            name,
            QString("-i coded.mkv -c copy -strict unofficial -metadata:s:v:0 rotate=%1")
                .arg(rotate));
    }

    static void showsInEachMode(EngineStage &stage, const Scene &scene,
                                const QVector<double> &depths = {0.0, 0.05, -0.05, 0.0123})
    {
        QVERIFY(comesToShow(stage, scene, {Kest3DTurnOff, 0.0}));
        for (const int mode : {Kest3DRedGreen, Kest3DRedBlue, Kest3DRedCyan, Kest3DBlueYellow,
                               Kest3DInterleaved, Kest3DSlideBySlide, Kest3DTurnOff}) {
            for (const double depth : depths) {
                QCOMPARE(stage.setFilter(mode, depth), int(KestOk));
                QVERIFY(comesToShow(stage, scene, {mode, depth}));
            }
        }
    }

    static bool comesToShow(const EngineStage &stage, const Scene &scene, StereoSetting setting)
    {
        const QImage expected = compose({scene.left, 0, 0, scene.right}, setting).picture;
        const QImage seams = compose({scene.seams, 0, 0, scene.seams}, setting).picture;
        return QTest::qWaitFor([&] { return agree(stage.grab(), expected, seams); });
    }

    Clips m_clips;
    QString m_wide;
};

QTEST_MAIN(tst_KestStereo)
#include "tst_kest_stereo.moc"
