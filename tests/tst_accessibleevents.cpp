// What assistive technology hears of a player by itself, on a real accessibility bus.
// Not here: what it finds when it asks (tst_accessibleplayer, tst_accessibletracker).
#include "widgetfixture.h"

#include <QAccessible>
#include <QTest>

namespace {

QStringList heard;

QString nameOf(QAccessible::Event type)
{
    switch (type) {
    case QAccessible::ValueChanged:
        return "value";
    case QAccessible::NameChanged:
        return "name";
    case QAccessible::Focus:
        return "focus";
    default:
        return {};
    }
}

/// Notes values, names and the focus; windows and states come and go as Qt likes.
void listen(QAccessibleEvent *event)
{
    const QString name = nameOf(event->type());
    if (name.isEmpty() || !event->object())
        return;
    QString line = name + " of " + event->object()->objectName();
    if (event->type() == QAccessible::ValueChanged)
        line += ": " + static_cast<QAccessibleValueChangeEvent *>(event)->value().toString();
    heard += line;
}

QStringList takeHeard(const QString &name)
{
    const QStringList lines = heard.filter(name);
    heard.clear();
    return lines;
}

/// A player whose controls somebody has asked about, as a screen reader does on its walk.
struct KnownPlayer : Player
{
    KnownPlayer()
    {
        for (QWidget *control : widget->findChildren<QWidget *>())
            QAccessible::queryAccessibleInterface(control);
        heard.clear();
    }
};

}  // namespace

class tst_AccessibleEvents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init() { failOnAnyWarning(); }
    void tellsAVolumeThatTheUserDragged();
    void tellsAPositionThatTheUserDragged();
    void keepsTheClockToItself();
    void tellsThatPlayBecamePause();
    void tellsANewToolTip();
    void tellsWhereTabLeads();
};

void tst_AccessibleEvents::initTestCase()
{
    QTRY_VERIFY_WITH_TIMEOUT(QAccessible::isActive(), 20000);
    QAccessible::installUpdateHandler(listen);
}

void tst_AccessibleEvents::cleanupTestCase()
{
    QAccessible::installUpdateHandler(nullptr);
}

void tst_AccessibleEvents::tellsAVolumeThatTheUserDragged()
{
    KnownPlayer player;
    QAccessible::queryAccessibleInterface(player.ui.volumeTracker)
        ->valueInterface()
        ->setCurrentValue(40);
    QCOMPARE(takeHeard("volumeTracker"), QStringList("value of volumeTracker: 40"));
}

void tst_AccessibleEvents::tellsAPositionThatTheUserDragged()
{
    KnownPlayer player;
    player.play();
    heard.clear();
    QAccessible::queryAccessibleInterface(player.ui.playTracker)
        ->valueInterface()
        ->setCurrentValue(250);
    QCOMPARE(takeHeard("playTracker"), QStringList("value of playTracker: 250"));
}

void tst_AccessibleEvents::keepsTheClockToItself()
{
    KnownPlayer player;
    player.play();
    heard.clear();
    player.impl.position = 30000;
    player.impl.playUpdateTimerTimeOut();
    QVERIFY(player.ui.playTracker->getValue() > 400);
    QCOMPARE(takeHeard("playTracker"), QStringList());
}

void tst_AccessibleEvents::tellsThatPlayBecamePause()
{
    KnownPlayer player;
    player.play();
    QCOMPARE(takeHeard("btnPlay"), QStringList("name of btnPlay"));
}

void tst_AccessibleEvents::tellsANewToolTip()
{
    const KnownPlayer player;
    player.widget->setTranslationText(PlayWidget::NextFileTip, "Weiter");
    QCOMPARE(takeHeard("btnNextFile"), QStringList("name of btnNextFile"));
}

void tst_AccessibleEvents::tellsWhereTabLeads()
{
    KnownPlayer player;
    player.widget->show();
    player.widget->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(player.widget.get()));
    player.ui.btnPlay->setFocus(Qt::TabFocusReason);
    heard.clear();
    QTest::keyClick(player.ui.btnPlay, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), player.ui.btnNextPart);
    QCOMPARE(takeHeard("focus"), QStringList("focus of btnNextPart"));
}

QTEST_MAIN(tst_AccessibleEvents)
#include "tst_accessibleevents.moc"
