// Engine, window, dialog and widget go while a film plays, in each order in which a host may let go of
// them, and the widget from inside an event: whatever is left stays usable.
// Not here: how often that can be done (tst_lifetime.cpp).
#include "engine/mpv/kest_host.h"
#include "playwidget/playwidget.h"

#include <QAbstractButton>
#include <QDialog>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <map>

namespace {

/// All that a host has around a film.
struct Host
{
    /// Each on its own, or the widget in the dialog in the window.
    explicit Host(bool nested = false)
        : window(new QWidget)
        , dialog(new QDialog(nested ? window.data() : nullptr))
        , widget(new PlayWidget(nested ? dialog.data() : nullptr))
        , player(widget->findChild<QObject *>(QStringLiteral("PlayWidget_Impl")))
        , events(player, SIGNAL(updatePlayState(int, uint)))
    {
        KestAddFile(engine, 1, SAMPLES "/depth.mkv");
        widget->initialize(engine, Kest3DTurnOff);
        for (int i = 0; i < 2; ++i)
            widget->addPlayItem(1, QStringLiteral("depth.mkv"), false, Kest3DRedCyan, 0.01);
        for (QWidget *shown : std::initializer_list<QWidget *>{window, dialog, widget})
            shown->show();
    }

    unsigned position() const { return events.isEmpty() ? 0 : events.last().at(1).toUInt(); }

    bool plays() const
    {
        return QTest::qWaitFor([this] { return position() > 0; });
    }

    void click(const QString &button) const
    {
        widget->findChild<QAbstractButton *>(button)->click();
    }

    void *const engine = KestOpen("null");
    const QPointer<QWidget> window;
    const QPointer<QDialog> dialog;
    const QPointer<PlayWidget> widget;
    QObject *const player;  ///< inside the widget, and told of the engine's events
    const QSignalSpy events;
};

/// Deletes the widget inside the first event from a time on.
class Deleter : public QObject
{
    Q_OBJECT

public:
    Deleter(const Host &host, unsigned from)
        : m_widget(host.widget)
        , m_from(from)
    {
        connect(host.player, SIGNAL(updatePlayState(int, uint)), SLOT(hear(int, uint)));
    }

public Q_SLOTS:
    void hear(int, uint time)
    {
        if (time >= m_from)
            delete m_widget;
    }

private:
    const QPointer<PlayWidget> m_widget;
    const unsigned m_from;
};

}  // namespace

class tst_Destruction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyOrder_data();
    void everyOrder();
    void insideAnEvent_data();
    void insideAnEvent();
};

void tst_Destruction::everyOrder_data()
{
    QTest::addColumn<QString>("order");
    QTest::addColumn<bool>("nested");
    QString order = QStringLiteral("degw");  // the first of all, for it is sorted
    do {
        QTest::addRow("%s apart", qPrintable(order)) << order << false;
    } while (std::next_permutation(order.begin(), order.end()));
    for (const char *outer : {"we", "ew", "dwe", "dew", "edw"})  // each takes what lies in it along
        QTest::addRow("%s nested", outer) << QString(outer) << true;
}

void tst_Destruction::everyOrder()
{
    QFETCH(QString, order);
    QFETCH(bool, nested);
    const Host host(nested);
    host.widget->setPlayIndex(0);
    QVERIFY(host.plays());

    const std::map<QChar, std::function<void()>> ends = {{'d', [&] { delete host.dialog; }},
                                                         {'e', [&] { KestClose(host.engine); }},
                                                         {'g', [&] { delete host.widget; }},
                                                         {'w', [&] { delete host.window; }}};
    bool isOpen = true;
    for (const QChar which : order) {
        ends.at(which)();
        QCoreApplication::processEvents();
        isOpen = isOpen && which != QLatin1Char('e');
        if (!host.widget) {
            QCOMPARE(KestPlay(host.engine), int(isOpen ? KestErrorNoEdit : KestErrorHandle));
            continue;
        }
        for (int i = 0; i < 2; ++i)
            host.click(QStringLiteral("btnPlay"));  // pauses, and goes on
        QCOMPARE(host.widget->errorString().isEmpty(), isOpen);
        QVERIFY(!host.widget->grab().isNull());
    }
    QVERIFY(!isOpen && !host.widget && !host.dialog && !host.window);
}

void tst_Destruction::insideAnEvent_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QString>("button");
    QTest::addColumn<unsigned>("from");
    QTest::newRow("while it plays") << 0 << QString() << 1U;
    QTest::newRow("while it begins") << 0 << QString() << 0U;
    QTest::newRow("while the next begins") << 0 << QStringLiteral("btnNextFile") << 0U;
    QTest::newRow("while the prior begins") << 1 << QStringLiteral("btnPriorFile") << 0U;
}

void tst_Destruction::insideAnEvent()
{
    QFETCH(int, item);
    QFETCH(QString, button);
    QFETCH(unsigned, from);
    const Host host;
    host.widget->setPlayIndex(item);
    const Deleter deleter(host, from);
    if (button.isEmpty())
        host.widget->setPlayIndex(item);
    else
        host.click(button);
    QTRY_VERIFY(!host.widget);
    QCOMPARE(KestEditEnd(host.engine, false), int(KestErrorNoEdit));
    KestClose(host.engine);
    delete host.dialog;
    delete host.window;
}

QTEST_MAIN(tst_Destruction)
#include "tst_destruction.moc"
