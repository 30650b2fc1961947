// The frame around the control that has the focus: where it stands and what it leaves alone.
// Not here: when there is one (tst_keyboardaccess).
#include "playwidget/focusmark.h"

#include <QAccessible>
#include <QPushButton>
#include <QTest>

namespace {

struct Marked
{
    Marked()
    {
        page.resize(200, 100);
        button.setGeometry(50, 40, 60, 20);
        page.show();
        without = page.grab().toImage();
        mark = new FocusMark(&button);
    }

    QRect changed()
    {
        const QImage with = page.grab().toImage();
        QRect found;
        for (int y = 0; y < with.height(); ++y)
            for (int x = 0; x < with.width(); ++x)
                if (with.pixel(x, y) != without.pixel(x, y))
                    found |= QRect(x, y, 1, 1);
        return found;
    }

    QWidget page;
    QPushButton button{&page};
    QImage without;
    FocusMark *mark;
};

}  // namespace

class tst_FocusMark : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standsAroundTheControl();
    void leavesTheControlAsItIs();
    void followsTheControl();
    void standsFurtherOutWhereThereIsNoRoom();
    void letsTheMouseThrough();
    void isNoPartOfTheAccessibleTree();
    void goesWithTheControlsParent();
};

void tst_FocusMark::standsAroundTheControl()
{
    Marked marked;
    QVERIFY(marked.mark->isVisible());
    QCOMPARE(marked.changed(), marked.button.geometry().adjusted(-4, -4, 4, 4));
}

void tst_FocusMark::leavesTheControlAsItIs()
{
    Marked marked;
    const QImage with = marked.page.grab().toImage();
    QCOMPARE(with.copy(marked.button.geometry()), marked.without.copy(marked.button.geometry()));
}

void tst_FocusMark::followsTheControl()
{
    Marked marked;
    marked.button.setGeometry(10, 10, 30, 30);
    QCOMPARE(marked.mark->geometry(), QRect(6, 6, 38, 38));
}

void tst_FocusMark::standsFurtherOutWhereThereIsNoRoom()
{
    QWidget page;
    QWidget box(&page);
    QPushButton button(&box);
    box.setGeometry(100, 50, 80, 20);
    button.setGeometry(20, 0, 60, 20);
    const FocusMark mark(&button);
    QCOMPARE(mark.parentWidget(), &page);
    QCOMPARE(mark.geometry(), QRect(116, 46, 68, 28));
    page.show();
    box.move(200, 50);
    QCOMPARE(mark.geometry(), QRect(216, 46, 68, 28));
}

void tst_FocusMark::letsTheMouseThrough()
{
    Marked marked;
    QCOMPARE(marked.page.childAt(marked.button.geometry().topLeft()), &marked.button);
    QCOMPARE(marked.page.childAt(marked.button.geometry().topLeft() - QPoint(2, 2)), nullptr);
    QCOMPARE(marked.mark->focusPolicy(), Qt::NoFocus);
}

void tst_FocusMark::isNoPartOfTheAccessibleTree()
{
    Marked marked;
    QCOMPARE(QAccessible::queryAccessibleInterface(&marked.page)->childCount(), 1);
}

void tst_FocusMark::goesWithTheControlsParent()
{
    auto *parent = new QWidget;
    auto *button = new QPushButton(parent);
    const QPointer<FocusMark> mark(new FocusMark(button));
    delete button;
    QVERIFY(mark);
    delete parent;
    QVERIFY(!mark);
}

QTEST_MAIN(tst_FocusMark)
#include "tst_focusmark.moc"
