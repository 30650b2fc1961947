// The buttons of the player on a screen with two pixels to each logical one.
// Not here: their images as such (tst_resources.cpp), the sliders (tst_imagetracker_highdensity.cpp).
#include "widgetfixture.h"

#include <QApplication>
#include <QPainter>
#include <QTest>

namespace {

/// On nothing.
QImage painted(const QIcon &icon, QSize size, QIcon::Mode mode)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(2);
    QPainter painter(&image);
    icon.paint(&painter, QRect(QPoint(), size / 2), Qt::AlignCenter, mode);
    return image;
}

}  // namespace

class tst_SkinHighDensity : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachStateOfAButtonHasItsDoubleImage_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("image");
        QTest::addColumn<int>("mode");
        for (const char *name : {"Play", "PriorFile", "PriorPart", "NextPart", "NextFile",
                                 "VolumeLeft", "VolumeRight", "Capture", "CaptureRight"}) {
            const QString file
                = QString(name).replace(QRegularExpression("\\B([A-Z])"), "_\\1").toLower();
            QTest::addRow("%s", name) << name << file << int(QIcon::Normal);
            QTest::addRow("%s hovered", name) << name << file + "_on" << int(QIcon::Active);
            QTest::addRow("%s pressed", name) << name << file + "_down" << int(QIcon::Selected);
            QTest::addRow("%s disabled", name) << name << file + "_disable" << int(QIcon::Disabled);
        }
    }
    void eachStateOfAButtonHasItsDoubleImage()
    {
        QFETCH(const QString, button);
        QFETCH(const QString, image);
        QFETCH(const int, mode);
        QCOMPARE(qApp->devicePixelRatio(), 2.0);
        const Player player;
        const QImage expected(":/skin/" + image + "@2x.png");
        QVERIFY(!expected.isNull());
        const QIcon icon = player.widget->findChild<IconButton *>("btn" + button)->icon();
        QCOMPARE(painted(icon, expected.size(), static_cast<QIcon::Mode>(mode)),
                 expected.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    }
};

int main(int argc, char **argv)
{
    qputenv("QT_SCALE_FACTOR", "2");
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);  // Qt 6 does so anyway
#endif
    QApplication application(argc, argv);
    tst_SkinHighDensity test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_skin_highdensity.moc"
