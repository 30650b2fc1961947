// IconButton: which pixmap it shows for which state, and that it paints nothing else.
// Not here: what QToolButton does.
#include "controls/iconbutton.h"

#include "painting.h"

#include <QMenu>
#include <QMetaProperty>
#include <QPainter>
#include <QTest>
#include <QTextOption>

#include <type_traits>

namespace {

const QSize iconSize(24, 16);
const QSize buttonSize(40, 30);
const QRect iconPlace(8, 7, 24, 16);
const QColor normalColor(10, 10, 10);
const QColor activeColor(20, 20, 20);
const QColor selectedColor(30, 30, 30);
const QColor disabledColor(40, 40, 40);

struct Overrides : IconButton
{
    static_assert(
        std::is_same_v<decltype(&Overrides::paintEvent), void (IconButton::*)(QPaintEvent *)>);
};

QPixmap flat(const QColor &color, const QSize &size = iconSize)
{
    return QPixmap::fromImage(canvas(size, color));
}

QIcon fourModes()
{
    QIcon icon(flat(normalColor));
    icon.addPixmap(flat(activeColor), QIcon::Active);
    icon.addPixmap(flat(selectedColor), QIcon::Selected);
    icon.addPixmap(flat(disabledColor), QIcon::Disabled);
    for (QIcon::Mode mode : {QIcon::Normal, QIcon::Active, QIcon::Selected, QIcon::Disabled})
        icon.addPixmap(flat(Qt::cyan), mode, QIcon::On);
    return icon;
}

QImage iconOnly(const QColor &color)
{
    QImage image = canvas(buttonSize);
    fill(image, iconPlace, color);
    return image;
}

// A text as any widget draws it with its own font and pen.
class Text : public QWidget
{
public:
    explicit Text(const QString &shown)
        : text(shown)
    {
        resize(buttonSize);
    }

    QImage over(QImage image)
    {
        render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    }

private:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).drawText(QRectF(rect()), text, QTextOption(Qt::AlignCenter));
    }

    QString text;
};

}  // namespace

class tst_IconButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addsNothingToTheMetaObject();
    void changesNothingOfAToolButton();
    void showsTheModeOfTheState_data();
    void showsTheModeOfTheState();
    void centresTheIconInTheWholeButton();
    void scalesALargeIconDown();
    void ignoresTheIconSize();
    void followsADisabledParent();
    void drawsTextOverTheIcon_data();
    void drawsTextOverTheIcon();
    void paintsNothingWithoutAnIcon();
    void paintsNoFrameArrowOrFocus();
};

void tst_IconButton::addsNothingToTheMetaObject()
{
    const QMetaObject &meta = IconButton::staticMetaObject;
    QCOMPARE(meta.className(), "IconButton");
    QCOMPARE(meta.superClass(), &QToolButton::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void tst_IconButton::changesNothingOfAToolButton()
{
    QWidget parent;
    const IconButton button(&parent);
    const QToolButton plain(&parent);
    QCOMPARE(button.parentWidget(), &parent);
    QCOMPARE(IconButton().parentWidget(), nullptr);
    const QMetaObject *meta = plain.metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        if (property.userType() != QMetaType::QIcon)  // never equal
            QCOMPARE(property.read(&button), property.read(&plain));
    }
    QVERIFY(button.icon().isNull());
}

void tst_IconButton::showsTheModeOfTheState_data()
{
    QTest::addColumn<bool>("disabled");
    QTest::addColumn<bool>("down");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("hovered");
    QTest::addColumn<QColor>("color");
    for (int bits = 0; bits < 16; ++bits) {
        const bool disabled = bits & 8;
        const bool down = bits & 4;
        const bool checked = bits & 2;
        const bool hovered = bits & 1;
        const QColor color = disabled ? disabledColor
            : down || checked         ? selectedColor
            : hovered                 ? activeColor
                                      : normalColor;
        QTest::addRow("%s%s%s%s", disabled ? "disabled " : "", down ? "down " : "",
                      checked ? "checked " : "", hovered ? "hovered" : "")
            << disabled << down << checked << hovered << color;
    }
}

void tst_IconButton::showsTheModeOfTheState()
{
    QFETCH(bool, disabled);
    QFETCH(bool, down);
    QFETCH(bool, checked);
    QFETCH(bool, hovered);
    QFETCH(QColor, color);
    IconButton button;
    button.resize(buttonSize);
    button.setIcon(fourModes());
    button.setCheckable(true);
    button.setChecked(checked);
    button.setDisabled(disabled);
    button.setDown(down);
    button.setAttribute(Qt::WA_UnderMouse, hovered);
    QCOMPARE(painted(button), iconOnly(color));
}

void tst_IconButton::centresTheIconInTheWholeButton()
{
    IconButton button;
    button.resize(41, 29);
    button.setIcon(fourModes());
    QCOMPARE(whereIs(painted(button), normalColor), QRect(8, 6, 24, 16));
    button.resize(iconSize);
    QCOMPARE(painted(button), canvas(iconSize, normalColor));
}

void tst_IconButton::scalesALargeIconDown()
{
    IconButton button;
    button.resize(buttonSize);
    button.setIcon(flat(normalColor, {80, 20}));
    QCOMPARE(whereIs(painted(button), normalColor), QRect(0, 10, 40, 10));
}

void tst_IconButton::ignoresTheIconSize()
{
    IconButton button;
    button.resize(buttonSize);
    button.setIcon(fourModes());
    button.setIconSize({4, 4});
    QCOMPARE(painted(button), iconOnly(normalColor));
}

void tst_IconButton::followsADisabledParent()
{
    QWidget parent;
    IconButton button(&parent);
    button.resize(buttonSize);
    button.setIcon(fourModes());
    parent.setEnabled(false);
    QCOMPARE(painted(button), iconOnly(disabledColor));
}

void tst_IconButton::drawsTextOverTheIcon_data()
{
    QTest::addColumn<Qt::ToolButtonStyle>("style");
    QTest::addColumn<bool>("drawn");
    QTest::newRow("icon only") << Qt::ToolButtonIconOnly << false;
    QTest::newRow("text only") << Qt::ToolButtonTextOnly << true;
    QTest::newRow("beside") << Qt::ToolButtonTextBesideIcon << true;
    QTest::newRow("under") << Qt::ToolButtonTextUnderIcon << true;
    QTest::newRow("follow") << Qt::ToolButtonFollowStyle << true;
}

void tst_IconButton::drawsTextOverTheIcon()
{
    QFETCH(Qt::ToolButtonStyle, style);
    QFETCH(bool, drawn);
    IconButton button;
    button.resize(buttonSize);
    button.setIcon(fourModes());
    button.setText("Ab");
    button.setToolButtonStyle(style);
    const QImage icon = iconOnly(normalColor);
    const QImage both = Text("Ab").over(icon);
    QVERIFY(icon != both);
    QCOMPARE(painted(button), drawn ? both : icon);
}

void tst_IconButton::paintsNothingWithoutAnIcon()
{
    IconButton button;
    button.resize(buttonSize);
    button.setText("Ab");
    QCOMPARE(painted(button), canvas(buttonSize));
    button.setDown(true);
    QCOMPARE(painted(button), canvas(buttonSize));
    button.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QCOMPARE(painted(button), Text("Ab").over(canvas(buttonSize)));
}

void tst_IconButton::paintsNoFrameArrowOrFocus()
{
    QMenu menu;
    IconButton button;
    button.setGeometry(QRect({100, 100}, buttonSize));  // not under the pointer
    button.setIcon(fourModes());
    button.setMenu(&menu);
    button.setPopupMode(QToolButton::MenuButtonPopup);
    button.setArrowType(Qt::DownArrow);
    button.setAutoRaise(false);
    button.setFocusPolicy(Qt::StrongFocus);
    button.show();
    button.activateWindow();
    button.setFocus();
    QTRY_VERIFY(button.hasFocus());
    QCOMPARE(painted(button), iconOnly(normalColor));
}

QTEST_MAIN(tst_IconButton)
#include "tst_iconbutton.moc"
