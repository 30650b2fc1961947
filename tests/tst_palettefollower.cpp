// A player that is shown when the application's colours change.
// Not here: how it looks in them from the start (tst_skin).
#include "playwidget/playwidget.h"

#include <QApplication>
#include <QLabel>
#include <QStyleFactory>
#include <QTest>

class tst_PaletteFollower : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setStyle(QStyleFactory::create("Fusion"));
        m_usual = QApplication::palette();
    }
    void cleanup() { setPalette(m_usual); }

    void aShownPlayerLooksLikeOneMadeLater()
    {
        QWidget window;
        PlayWidget player(&window);
        window.show();
        for (const QPalette &palette : {QPalette(QColor(45, 45, 48)), m_usual}) {
            setPalette(palette);
            PlayWidget later;
            later.show();
            for (const char *name : {"panMovie3D", "cbx3DMode", "lbl3DDepth", "edt3DPos",
                                     "effectTracker", "chxApplyToAll", "buttonBox"}) {
                const auto *control = player.findChild<QWidget *>(name);
                QVERIFY2(control, name);
                QCOMPARE(control->palette(), later.findChild<QWidget *>(name)->palette());
            }
            QCOMPARE(
                player.findChild<QLabel *>("lbl3DDepth")->palette().color(QPalette::WindowText),
                palette.color(QPalette::WindowText));
        }
    }

    void whatStandsOnTheSkinKeepsItsOwnColourAndFont()
    {
        QWidget window;
        PlayWidget player(&window);
        window.show();
        setPalette(QPalette(QColor(45, 45, 48)));
        for (const char *name : {"lblFileName", "lblElapsedTime", "lblRemainTime"}) {
            const auto *label = player.findChild<QLabel *>(name);
            QVERIFY2(label, name);
            QCOMPARE(label->palette().color(QPalette::WindowText), QColor(Qt::white));
        }
        QCOMPARE(player.findChild<QLabel *>("lblElapsedTime")->font().pixelSize(), 11);
    }

private:
    static void setPalette(const QPalette &palette)
    {
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();  // until then windows have not heard of it
    }

    QPalette m_usual;
};

QTEST_MAIN(tst_PaletteFollower)
#include "tst_palettefollower.moc"
