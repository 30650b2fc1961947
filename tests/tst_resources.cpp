// The bundle as it is compiled in: names, sizes, storage, the style sheet, and that its images are
// the ones made from the drawings. Not here: who shows which image (tst_skin.cpp).
#include <QCryptographicHash>
#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QResource>
#include <QTest>
#include <algorithm>

namespace {

struct Family
{
    const char *names;
    const char *states;  ///< suffixes, parted by blanks; "-" is the name alone
    QSize size;
};

const char allStates[] = "- _on _down _disable";

const Family families[] = {
    {"volume_left volume_right", allStates, {12, 12}},
    {"prior_file prior_part play pause next_part next_file", allStates, {24, 24}},
    {"capture", allStates, {18, 14}},
    {"capture_right", allStates, {9, 13}},
    {"playslider", allStates, {15, 15}},
    {"volumeslider", allStates, {10, 10}},
    {"playslider", "_bl _bc _br _pl _pc _pr", {10, 8}},
    {"volumeslider", "_bl _bc _br", {5, 6}},
    {"volumeslider", "_pl _pc _pr", {10, 8}},
    {"mode", "_turnoff _redcyan _redgreen _redblue _yellowblue _interlaced _sidebyside", {16, 16}},
    {"background", "-", {702, 585}},
    {"playcontrol", "-", {385, 55}},
    {"button", allStates, {82, 22}},
    {"combox", "-", {60, 21}},
    {"combox_drop", "-", {23, 21}},
    {"combox_arrow", "- _on", {9, 5}},
    {"spin_back", "-", {54, 21}},
    {"spin_up_arrow spin_down_arrow", "- _on _disable", {9, 5}},
    {"check", allStates, {19, 20}},
    {"effectslider", "- _on _disable", {8, 15}},
    {"music", "-", {211, 177}},
    {"selected", "- _on _down", {18, 18}},
    {"noselect", "- _on", {18, 18}},
};

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(' ');
}

QStringList imagesOf(const Family &family)
{
    QStringList images;
    for (const QString &name : words(family.names)) {
        for (const QString &state : words(family.states))
            images << (state == "-" ? name : name + state);
    }
    return images;
}

QString path(const QString &image)
{
    return ":/skin/" + image + ".png";
}

QStringList namedImages()
{
    QStringList images;
    for (const Family &family : families)
        images << imagesOf(family);
    return images;
}

QStringList doubleImages()
{
    return QDir(":/skin").entryList({"*@2x.png"});
}

QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage image(const QString &name)
{
    return QImage(path(name)).convertToFormat(QImage::Format_ARGB32);
}

/// The picture as it stands on the transport bar.
QImage onBar(const QString &name)
{
    const QImage source = image(name);
    const int bar[] = {0x1c, 0x20, 0x25};
    QImage result(source.size(), QImage::Format_RGB32);
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x) {
            const QRgb p = source.pixel(x, y);
            const auto mix = [a = qAlpha(p)](int top, int below) {
                return (top * a + below * (255 - a)) / 255;
            };
            result.setPixel(
                x, y, qRgb(mix(qRed(p), bar[0]), mix(qGreen(p), bar[1]), mix(qBlue(p), bar[2])));
        }
    }
    return result;
}

int distance(QRgb a, QRgb b)
{
    return std::max(
        {qAbs(qRed(a) - qRed(b)), qAbs(qGreen(a) - qGreen(b)), qAbs(qBlue(a) - qBlue(b))});
}

/// How many pixels of the two pictures differ plainly.
int differingPixels(const QImage &a, const QImage &b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            count += distance(a.pixel(x, y), b.pixel(x, y)) > 32;
    }
    return count;
}

QVector<QRgb> column(const QImage &picture, int x)
{
    QVector<QRgb> pixels;
    for (int y = 0; y < picture.height(); ++y)
        pixels << picture.pixel(x, y);
    return pixels;
}

QString resourcesFile(const QString &name)
{
    return QStringLiteral(RESOURCES_DIR "/") + name;
}

}  // namespace

class tst_Resources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyImageHasItsSize_data();
    void everyImageHasItsSize();
    void nothingElseIsInTheBundle();
    void doubleImagesAreTwiceAsLarge();
    void onlyTextAndBackgroundAreCompressed();
    void cornersOfControlsAreClear_data();
    void cornersOfControlsAreClear();
    void barLetsTheFilmThroughAndStillCarriesWhiteText();
    void frameLeavesTheWindowColourReadable();
    void statesDifferPlainly_data();
    void statesDifferPlainly();
    void modesDifferPlainly();
    void grooveJoinsWithoutASeam_data();
    void grooveJoinsWithoutASeam();
    void styleSheetIsAsciiWithCrLf();
    void styleSheetHasItsRulesInOrder();
    void styleSheetKeepsItsUnusualSpellings();
    void styleSheetNamesOnlyImagesOfTheBundle();
    void imagesAreMadeFromTheDrawings();
    void digestListsEveryDrawingAndImage();
};

void tst_Resources::everyImageHasItsSize_data()
{
    QTest::addColumn<QSize>("size");
    for (const Family &family : families) {
        for (const QString &name : imagesOf(family))
            QTest::newRow(qPrintable(name)) << family.size;
    }
}

void tst_Resources::everyImageHasItsSize()
{
    QFETCH(QSize, size);
    QCOMPARE(QImage(path(QTest::currentDataTag())).size(), size);
}

void tst_Resources::nothingElseIsInTheBundle()
{
    QStringList expected;
    for (const QString &name : namedImages())
        expected << name + ".png";
    expected.sort();
    QCOMPARE(expected.size(), 97);
    QStringList found = QDir(":/skin").entryList();
    const auto isDouble = [](const QString &name) { return name.contains("@2x"); };
    found.erase(std::remove_if(found.begin(), found.end(), isDouble), found.end());
    found.sort();
    QCOMPARE(found, expected);
    QCOMPARE(QDir(":/qss").entryList(), QStringList("Varlume.qss"));
}

void tst_Resources::doubleImagesAreTwiceAsLarge()
{
    const QStringList doubles = doubleImages();
    QCOMPARE(doubles.size(), 89);
    for (const QString &name : doubles) {
        const QString single = QString(name).remove("@2x.png");
        QCOMPARE(QImage(":/skin/" + name).size(), QImage(path(single)).size() * 2);
    }
}

void tst_Resources::onlyTextAndBackgroundAreCompressed()
{
    QCOMPARE(QResource(":/qss/Varlume.qss").compressionAlgorithm(), QResource::ZlibCompression);
    for (const QString &name : QDir(":/skin").entryList()) {
        const auto wanted
            = name == "background.png" ? QResource::ZlibCompression : QResource::NoCompression;
        QCOMPARE(QResource(":/skin/" + name).compressionAlgorithm(), wanted);
    }
}

void tst_Resources::cornersOfControlsAreClear_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : namedImages()) {
        if (!name.contains(QRegularExpression("^background|slider_[bp][lcr]$")))
            QTest::newRow(qPrintable(name)) << name;
    }
}

void tst_Resources::cornersOfControlsAreClear()
{
    QFETCH(QString, name);
    const QImage picture = image(name);
    const int right = picture.width() - 1;
    const int bottom = picture.height() - 1;
    int clear = 0;
    for (const QPoint corner :
         {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)})
        clear += qAlpha(picture.pixel(corner)) < 128;
    QVERIFY(clear >= 2);  // an arrow fills the two corners of its base
    QVERIFY(QImage(path(name)).hasAlphaChannel());
}

void tst_Resources::barLetsTheFilmThroughAndStillCarriesWhiteText()
{
    const QImage bar = image("playcontrol");
    for (int y = 6; y < 50; ++y) {
        const QRgb p = bar.pixel(bar.width() / 2, y);
        QVERIFY(qAlpha(p) < 255);
        const int onSnow = (qGreen(p) * qAlpha(p) + 255 * (255 - qAlpha(p))) / 255;
        QVERIFY2(onSnow < 90, qPrintable(QString("row %1 is %2").arg(y).arg(onSnow)));
    }
}

void tst_Resources::frameLeavesTheWindowColourReadable()
{
    const QImage frame = image("background");
    for (int y = 536; y < 582; ++y) {
        for (int x = 3; x < 699; ++x)
            QCOMPARE(qAlpha(frame.pixel(x, y)), 0);
    }
    for (int y = 0; y < frame.height(); ++y)
        QVERIFY(qAlpha(frame.pixel(0, y)) < 128);
    for (int x = 63; x < 640; ++x)
        QVERIFY(column(frame, x) == column(frame, 62));  // it is stretched between the corners
}

void tst_Resources::statesDifferPlainly_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    for (const Family &family : families) {
        if (!QByteArray(family.states).startsWith("- "))
            continue;
        for (const QString &name : words(family.names)) {
            const QStringList images = imagesOf({name.toLatin1(), family.states, family.size});
            for (int i = 0; i < images.size(); ++i) {
                for (int j = 0; j < i; ++j)
                    QTest::newRow(qPrintable(images[j] + " " + images[i]))
                        << images[j] << images[i];
            }
        }
    }
}

void tst_Resources::statesDifferPlainly()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    const int count = differingPixels(onBar(first), onBar(second));
    QVERIFY2(count >= 12, qPrintable(QString("only %1 pixels differ").arg(count)));
}

void tst_Resources::modesDifferPlainly()
{
    const QStringList modes = namedImages().filter(QRegularExpression("^mode_"));
    QCOMPARE(modes.size(), 7);
    for (const QString &first : modes) {
        for (const QString &second : modes) {
            if (first != second)
                QVERIFY(differingPixels(onBar(first), onBar(second)) >= 24);
        }
    }
}

void tst_Resources::grooveJoinsWithoutASeam_data()
{
    QTest::addColumn<QString>("prefix");
    for (const char *prefix : {"playslider_b", "playslider_p", "volumeslider_b", "volumeslider_p"})
        QTest::newRow(prefix) << prefix;
}

void tst_Resources::grooveJoinsWithoutASeam()
{
    QFETCH(QString, prefix);
    const QImage left = image(prefix + "l");
    const QImage middle = image(prefix + "c");
    const QImage right = image(prefix + "r");
    const QVector<QRgb> profile = column(middle, 0);
    for (int x = 1; x < middle.width(); ++x)
        QVERIFY(column(middle, x) == profile);
    QVERIFY(column(left, left.width() - 1) == profile);
    QVERIFY(column(right, 0) == profile);
    // The middle is painted over the right end's first column: a half-clear pixel would show twice.
    for (QRgb pixel : profile)
        QVERIFY(qAlpha(pixel) == 0 || qAlpha(pixel) == 255);
}

void tst_Resources::styleSheetIsAsciiWithCrLf()
{
    const QByteArray sheet = contents(":/qss/Varlume.qss");
    QCOMPARE(sheet.size(), 3344);
    QCOMPARE(sheet.count('\n'), sheet.count("\r\n"));
    QCOMPARE(sheet.count('\r'), sheet.count("\r\n"));
    QVERIFY(sheet.endsWith("}\r\n"));
    QVERIFY(std::all_of(sheet.begin(), sheet.end(), [](char c) { return c > 0 && c < 127; }));
}

void tst_Resources::styleSheetHasItsRulesInOrder()
{
    const QString expected = R"(
QWidget#panClient { border-width: 62px; border-image: url(:/skin/background.png) 62 62 62 62 stretch stretch; }
QWidget#panPlayControl { /* border-radius: 10px */ background-image: url(:/skin/playcontrol.png); }
QPushButton[useStyleSheet="true"] { min-width: 82px; max-width: 82px; min-height: 22px; max-height: 22px; border: none; background-image: url(:/skin/button.png); qproperty-focusPolicy: NoFocus; }
QPushButton[useStyleSheet="true"]:hover { background-image: url(:/skin/button_on.png); }
QPushButton[useStyleSheet="true"]:pressed { background-image: url(:/skin/button_down.png); }
QPushButton[useStyleSheet="true"]:disabled { background-image: url(:/skin/button_disable.png); }
QComboBox { max-height: 13px; border-width: 4px; border-image: url(:/skin/combox.png) 4 4 4 4 stretch stretch; }
QComboBox::drop-down { subcontrol-origin: border; subcontrol-position: top right; image: url(:/skin/combox_drop.png); }
QComboBox::down-arrow { image: url(:/skin/combox_arrow.png); }
QComboBox::down-arrow:hover { image: url(:/skin/combox_arrow_on.png); }
QComboBox::down-arrow:on { image: url(:/skin/combox_arrow_on.png); top: 1px; left: 1px; }
QSpinBox { padding-right: 2px; border-image: url(:/skin/spin_back.png) 4; border-width: 3; max-height: 15px; }
QSpinBox::up-button { subcontrol-origin: border; subcontrol-position: top right; width: 16px; border-width: 1px; border-top: 5px; border-right: 5px; }
QSpinBox::down-button { subcontrol-origin: border; subcontrol-position: bottom right; width: 16px; border-width: 1px; border-top-width: 0; }
QSpinBox::up-arrow { image: url(:/skin/spin_up_arrow.png); width: 9px; height: 5px; margin-right: 3px; margin-top: 2px; }
QSpinBox::up-arrow:hover { image: url(:/skin/spin_up_arrow_on.png); }
QSpinBox::up-arrow:disabled, QSpinBox::up-arrow:off { image: url(:/skin/spin_up_arrow_disable.png); }
QSpinBox::down-arrow { image: url(:/skin/spin_down_arrow.png); width: 9px; height: 5px; margin-right: 3px; margin-bottom: 2px; }
QSpinBox::down-arrow:hover { image: url(:/skin/spin_down_arrow_on.png); }
QSpinBox::down-arrow:disabled, QSpinBox::down-arrow:off { image: url(:/skin/spin_down_arrow_disable.png); }
QCheckBox { qproperty-focusPolicy: NoFocus; }
QCheckBox::indicator { width: 19px; height: 20px; }
QCheckBox::indicator:checked { border-image: url(:/skin/check.png); }
QCheckBox::indicator:checked:hover { border-image: url(:/skin/check_down.png); }
QCheckBox::indicator:unchecked { border-image: url(:/skin/check_on.png); }
QCheckBox::indicator:disabled { border-image: url(:/skin/check_disable.png); }
QSlider#effectTracker:groove:horizontal { border: 1px solid #b9bec5; height: 4px; background: #f6f6f6; margin: 6px 0; }
QSlider#effectTracker::handle:horizontal { width: 8px; height: 15px; background-image: url(:/skin/effectslider.png); background-repeat: no-repeat; background-position: center; }
QSlider#effectTracker::handle:horizontal:hover { background-image: url(:/skin/effectslider_on.png); }
QSlider#effectTracker::handle:horizontal:disabled { background-image: url(:/skin/effectslider_disable.png); }
)";
    QStringList found;
    const QString sheet = QString::fromLatin1(contents(":/qss/Varlume.qss"));
    QRegularExpressionMatchIterator rules
        = QRegularExpression("[^{}]+\\{[^}]*\\}").globalMatch(sheet);
    while (rules.hasNext())
        found << rules.next().captured().simplified();
    QCOMPARE(found, expected.trimmed().split('\n'));
}

void tst_Resources::styleSheetKeepsItsUnusualSpellings()
{
    const QByteArray sheet = contents(":/qss/Varlume.qss");
    for (const char *text :
         {"stretch stretch;\r\n}\r\nQWidget#panPlayControl {\r\n", "border-width: 3;",
          "QCheckBox::indicator:checked {\r\n  border-image: url(:/skin/check.png);",
          "QCheckBox::indicator:unchecked {\r\n  border-image: url(:/skin/check_on.png);",
          "border-image: url(:/skin/spin_back.png) 4;", "margin: 6px 0;"})
        QVERIFY2(sheet.contains(text), text);
}

void tst_Resources::styleSheetNamesOnlyImagesOfTheBundle()
{
    const QString sheet = QString::fromLatin1(contents(":/qss/Varlume.qss"));
    QRegularExpressionMatchIterator urls
        = QRegularExpression("url\\(([^)]*)\\)").globalMatch(sheet);
    int count = 0;
    for (; urls.hasNext(); ++count) {
        const QString url = urls.next().captured(1);
        QVERIFY2(QFile::exists(url), qPrintable(url));
    }
    QCOMPARE(count, 25);
}

void tst_Resources::imagesAreMadeFromTheDrawings()
{
    const QStringList lines = QString::fromLatin1(contents(resourcesFile("art/skin.sha256")))
                                  .split('\n', Qt::SkipEmptyParts);
    QVERIFY(!lines.isEmpty());
    for (const QString &line : lines) {
        const QString name = line.mid(66);
        const QByteArray sum
            = QCryptographicHash::hash(contents(resourcesFile(name)), QCryptographicHash::Sha256);
        QVERIFY2(sum.toHex() == line.left(64).toLatin1(),
                 qPrintable(name + " has changed; run resources/art/render"));
    }
}

void tst_Resources::digestListsEveryDrawingAndImage()
{
    QStringList expected = {"art/render"};
    for (const QString &name : QDir(resourcesFile("art")).entryList({"*.svg", "*.css"}))
        expected << "art/" + name;
    for (const QString &name : QDir(resourcesFile("skin")).entryList({"*.png"}))
        expected << "skin/" + name;
    expected.sort();
    QStringList listed;
    for (const QByteArray &line : contents(resourcesFile("art/skin.sha256")).split('\n')) {
        if (!line.isEmpty())
            listed << QString::fromLatin1(line.mid(66));
    }
    listed.sort();
    QCOMPARE(listed, expected);
}

QTEST_GUILESS_MAIN(tst_Resources)
#include "tst_resources.moc"
