// RealInput: mouse and keyboard of the X display, as a person's hands would move them.
// Not here: events made up inside the program; what comes from here went through the display.
#pragma once

#include <QGuiApplication>
#include <QPixmap>
#include <QPoint>
#include <QProcess>
#include <QScreen>
#include <QStringList>
#include <QTest>

/// Input by xdotool. Every call returns when the X server has taken the input; the program under test
/// has still to react, so assert with QTRY_.
namespace RealInput {

/// What xdotool prints for `arguments`; the test fails when it does not succeed.
inline QString answer(const QStringList &arguments)
{
    QProcess xdotool;
    xdotool.start(QStringLiteral("xdotool"), arguments);
    const auto ended = [&xdotool] { return xdotool.state() == QProcess::NotRunning; };
    if (!QTest::qWaitFor(ended, 10000) || xdotool.exitCode() != 0)
        QTest::qFail(qPrintable(arguments.join(QLatin1Char(' '))), __FILE__, __LINE__);
    return QString::fromUtf8(xdotool.readAllStandardOutput());
}

/// The windows on screen that fit. A window that goes while xdotool looks at it is the end of xdotool;
/// another one looks again.
inline QStringList visibleWindows(const QString &by, const QString &what)
{
    for (;;) {
        QProcess xdotool;
        xdotool.start(QStringLiteral("xdotool"),
                      {QStringLiteral("search"), QStringLiteral("--onlyvisible"), by, what});
        xdotool.waitForFinished();
        if (!xdotool.readAllStandardError().contains("X Error")) {
            const QString found = QString::fromUtf8(xdotool.readAllStandardOutput());
            return found.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        }
    }
}

/// The one that fits, once there is one.
inline QString visibleWindow(const QString &by, const QString &what)
{
    QStringList found;
    const auto isThere = [&] { return !(found = visibleWindows(by, what)).isEmpty(); };
    if (!QTest::qWaitFor(isThere, 10000))
        QTest::qFail(qPrintable(by + QLatin1Char(' ') + what), __FILE__, __LINE__);
    return found.value(0);
}

/// For cleanup(): leaves a picture of the screen beside the test when it has failed.
inline void keepPictureOfFailure()
{
    if (QTest::currentTestFailed()) {
        const QString name = QString::fromLatin1(QTest::currentTestFunction());
        QGuiApplication::primaryScreen()->grabWindow(0).save(name + QStringLiteral(".png"));
    }
}

inline void moveTo(QPoint place)
{
    answer({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
}

inline void click(QPoint place)
{
    moveTo(place);
    answer({QStringLiteral("click"), QStringLiteral("1")});
}

inline void doubleClick(QPoint place)
{
    moveTo(place);
    answer({QStringLiteral("click"), QStringLiteral("--repeat"), QStringLiteral("2"),
            QStringLiteral("1")});
}

/// A drag from window to window, in one go: the program under test does not come back before it is
/// over.
inline void dragSlowly(QPoint from, QPoint to)
{
    QStringList steps;
    const auto move = [&steps](QPoint place) {
        steps << QStringLiteral("mousemove") << QString::number(place.x())
              << QString::number(place.y()) << QStringLiteral("sleep") << QStringLiteral("0.15");
    };
    move(from);
    steps << QStringLiteral("mousedown") << QStringLiteral("1");
    for (int i = 1; i <= 4; ++i)
        move(from + (to - from) * i / 4);
    steps << QStringLiteral("mouseup") << QStringLiteral("1");
    answer(steps);
}

/// Presses at one place and releases at another, with a stop half-way.
inline void drag(QPoint from, QPoint to)
{
    moveTo(from);
    answer({QStringLiteral("mousedown"), QStringLiteral("1")});
    moveTo((from + to) / 2);
    moveTo(to);
    answer({QStringLiteral("mouseup"), QStringLiteral("1")});
}

/// `name` as X calls the key: "Escape", "Down", "Return".
inline void key(const QString &name)
{
    answer({QStringLiteral("key"), name});
}

inline void focus(WId window)
{
    answer({QStringLiteral("windowfocus"), QStringLiteral("--sync"), QString::number(window)});
}

}  // namespace RealInput
