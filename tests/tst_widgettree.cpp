// The tree of widgets and layouts: every object, its place, its sizes, its first texts.
// Not here: what the skin adds (tst_skin) and what replaces the texts (tst_texts).
#include "engine/videownd.h"
#include "widgetfixture.h"

#include <QProxyStyle>
#include <QTranslator>

#include <typeinfo>
#include <vector>

namespace {

// One line for each object, indented by containment: widgets with their class, size policy and
// sizes, layouts with what their spacing and margins read as, spacers with size and policy.
const QStringList wholeTree = {
    "PlayWidget_Impl QWidget MinimumExpanding*1/MinimumExpanding*1 at least 702x585",
    "  horizontalLayout QHBoxLayout spacing 0 margins 0,0,0,0",
    "    panClient QWidget Preferred/Preferred",
    "      verticalLayout QVBoxLayout spacing 0 margins 0,0,0,0",
    "        videoWnd CVideoWnd MinimumExpanding/MinimumExpanding at least 702x527",
    "          verticalLayout_4 QVBoxLayout spacing style margins style,style,style,style",
    "            horizontalLayout_8 QHBoxLayout spacing style margins 0,0,0,0",
    "              lblFileName QLabel Preferred/Preferred",
    "              spacer 40x20 Expanding/Minimum",
    "            spacer 20x40 Minimum/Expanding",
    "            horizontalLayout_10 QHBoxLayout spacing style margins 0,0,0,0",
    "              spacer 40x20 Expanding/Minimum",
    "              panPlayControl QWidget Fixed/Fixed exactly 385x55",
    "                verticalLayout_3 QVBoxLayout spacing 0 margins 0,6,0,0",
    "                  horizontalLayout_7 QHBoxLayout spacing 0 margins 12,0,12,0",
    "                    horizontalLayout_4 QHBoxLayout spacing 12 margins 0,0,0,0",
    "                      btnVolumeLeft IconButton Fixed*12/Fixed*12 exactly 12x12",
    "                      volumeTracker ImageTracker Fixed/Fixed exactly 70x10",
    "                      btnVolumeRight IconButton Fixed/Fixed exactly 12x12",
    "                    spacer 40x20 Expanding/Minimum",
    "                    horizontalLayout_6 QHBoxLayout spacing 12 margins 0,0,0,0",
    "                      btnPriorFile IconButton Fixed/Fixed exactly 24x24",
    "                      btnPriorPart IconButton Fixed/Fixed exactly 24x24",
    "                      btnPlay IconButton Fixed/Fixed exactly 24x24",
    "                      btnNextPart IconButton Fixed/Fixed exactly 24x24",
    "                      btnNextFile IconButton Fixed/Fixed exactly 24x24",
    "                      btnCapture IconButton Fixed/Fixed exactly 18x14",
    "                      btnCaptureRight IconButton Fixed/Fixed exactly 9x13",
    "                  horizontalLayout_5 QHBoxLayout spacing 12 margins 0,0,0,0",
    "                    lblElapsedTime QLabel Preferred/Preferred",
    "                    playTracker ImageTracker Preferred/Preferred exactly 240x15",
    "                    lblRemainTime QLabel Preferred/Preferred",
    "              spacer 40x20 Expanding/Minimum",
    "            spacer 20x70 Minimum/Fixed",
    "        panMovie3D QWidget Preferred/Fixed at least 702x59 at most 16777215x59",
    "          horizontalLayout_3 QHBoxLayout spacing 12 margins style,0,style,0",
    "            cbx3DMode QComboBox Fixed/Fixed exactly 180x21",
    "            verticalLayout_2 QVBoxLayout spacing 3 margins 0,3,0,3",
    "              horizontalLayout_2 QHBoxLayout spacing 0 margins 0,0,0,0",
    "                lbl3DDepth QLabel Preferred/Preferred",
    "                spacer 10x20 Fixed/Minimum",
    "                edt3DPos QSpinBox Fixed/Fixed exactly 54x22",
    "                spacer 1x20 Fixed/Minimum",
    "              horizontalLayout_9 QHBoxLayout spacing 3 margins 0,0,0,0",
    "                effectTracker QSlider Expanding/Fixed",
    "            chxApplyToAll QCheckBox Minimum/Fixed",
    "            spacer 40x20 Expanding/Minimum",
    "            buttonBox QDialogButtonBox Expanding/Fixed",
};

// Lengths of the style that nothing in the tree uses itself, so that they can be told apart.
class OddStyle : public QProxyStyle
{
public:
    static constexpr int length = 37;

    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override
    {
        switch (metric) {
        case PM_LayoutLeftMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutBottomMargin:
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing:
            return length;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }
};

// While it lives the application has the odd style.
class Restyled
{
public:
    Restyled() { QApplication::setStyle(new OddStyle); }
    ~Restyled() { QApplication::setStyle(m_usual); }
    Q_DISABLE_COPY(Restyled)

private:
    QString m_usual = QApplication::style()->objectName();
};

QString className(const QObject &object)
{
    if (typeid(object) == typeid(CVideoWnd))  // has no meta-object of its own
        return QStringLiteral("CVideoWnd");
    return QString::fromLatin1(object.metaObject()->className());
}

QString length(int pixels)
{
    return pixels == OddStyle::length ? QStringLiteral("style") : QString::number(pixels);
}

QString size(const QSize &size)
{
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

QString policy(QSizePolicy::Policy policy, int stretch)
{
    const char *name = QMetaEnum::fromType<QSizePolicy::Policy>().valueToKey(policy);
    return QString::fromLatin1(name) + (stretch ? QStringLiteral("*%1").arg(stretch) : QString());
}

QString policies(const QSizePolicy &both)
{
    return policy(both.horizontalPolicy(), both.horizontalStretch()) + QLatin1Char('/')
        + policy(both.verticalPolicy(), both.verticalStretch())
        + (both.hasHeightForWidth() ? " height for width" : "");
}

QString limits(const QWidget &widget)
{
    const QSize least = widget.minimumSize();
    const QSize most = widget.maximumSize();
    if (least == most)
        return " exactly " + size(least);
    return (least.isNull() ? QString() : " at least " + size(least))
        + (most == QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX) ? QString() : " at most " + size(most));
}

// Walks the tree as it was built: a widget, its layout, the items of the layout.
class Walk
{
public:
    explicit Walk(QWidget &form) { visit(form, nullptr); }

    QStringList lines;
    std::vector<const void *> objects;
    QStringList surprises;

private:
    void add(const void *object, const QString &line)
    {
        objects.push_back(object);
        lines += QString(2 * m_depth, QLatin1Char(' ')) + line;
    }

    void visit(QWidget &widget, const QWidget *parent)
    {
        if (widget.parentWidget() != parent)
            surprises += widget.objectName() + " has another parent";
        add(&widget,
            widget.objectName() + ' ' + className(widget) + ' ' + policies(widget.sizePolicy())
                + limits(widget));
        if (!widget.layout() || widget.inherits("QDialogButtonBox"))
            return;
        visit(*widget.layout(), widget);
        for (const QWidget *child :
             widget.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            if (std::find(objects.begin(), objects.end(), child) == objects.end())
                surprises += child->objectName() + " lies in no layout";
        }
    }

    void visit(QLayout &layout, QWidget &parent)
    {
        ++m_depth;
        const QMargins margins = layout.contentsMargins();
        add(&layout,
            QStringLiteral("%1 %2 spacing %3 margins %4,%5,%6,%7")
                .arg(layout.objectName(), className(layout), length(layout.spacing()),
                     length(margins.left()), length(margins.top()), length(margins.right()),
                     length(margins.bottom())));
        ++m_depth;
        for (int i = 0; i < layout.count(); ++i)
            visit(static_cast<QBoxLayout &>(layout), i, parent);
        m_depth -= 2;
    }

    void visit(const QBoxLayout &layout, int index, QWidget &parent)
    {
        QLayoutItem *item = layout.itemAt(index);
        if (item->alignment() || layout.stretch(index))
            surprises += layout.objectName() + " aligns or stretches an item";
        if (item->widget())
            return visit(*item->widget(), &parent);
        if (!item->layout())
            return add(item->spacerItem(),
                       "spacer " + size(item->sizeHint()) + ' '
                           + policies(item->spacerItem()->sizePolicy()));
        --m_depth;
        visit(*item->layout(), parent);
        ++m_depth;
    }

    int m_depth = 0;
};

// Answers every text of the form with itself in angle brackets, and writes down what was asked.
class Brackets : public QTranslator
{
public:
    bool isEmpty() const override { return false; }

    QString translate(const char *context, const char *text, const char *comment,
                      int) const override
    {
        if (qstrcmp(context, "PlayWidget_Impl") != 0)
            return QString();
        asked += QString::fromUtf8(text) + (comment ? " with a comment" : "");
        return QStringLiteral("<%1>").arg(QString::fromUtf8(text));
    }

    mutable QStringList asked;
};

// A form with a slot that is named after one of the tree's objects.
class SlotByName : public QWidget
{
    Q_OBJECT

public:
    int clicks = 0;

public Q_SLOTS:
    void on_btnPlay_clicked() { ++clicks; }
};

struct Built
{
    Built() { ui.setupUi(&form); }

    QWidget form;
    Ui_PlayWidget_Impl ui;
};

struct Shown : PlayWidget_Impl
{
    explicit Shown(const QSize &size)
    {
        resize(size);
        for (QWidget *hidden : {ui.panPlayControl, static_cast<QWidget *>(ui.lblFileName)})
            hidden->setVisible(true);
        show();
    }
};

QRect inForm(const QWidget *widget, const QWidget &form)
{
    return QRect(widget->mapTo(&form, QPoint()), widget->size());
}

}  // namespace

class tst_WidgetTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }
    void isBuiltAsWritten();
    void liesInTheHolderInTheOrderOfBuilding();
    void namesAnUnnamedFormOnly();
    void sizesTheForm();
    void keepsHeightForWidth();
    void connectsSlotsByName();
    void setsTheFirstProperties();
    void paintsTextsOverTheVideoInWhite();
    void startsWithItsTexts();
    void translatesItsTexts();
    void startsWithoutToolTips();
    void isInItsFirstStateAfterConstruction();
    void fillsTheForm_data();
    void fillsTheForm();
    void keepsTheControlBarInTheMiddle_data() { fillsTheForm_data(); }
    void keepsTheControlBarInTheMiddle();
    void putsTheTimesBesideTheSlider();
    void cannotShrink();
};

void tst_WidgetTree::isBuiltAsWritten()
{
    const Restyled restyled;
    Built built;
    const Walk walk(built.form);
    QCOMPARE(walk.lines.join('\n'), wholeTree.join('\n'));
    QCOMPARE(walk.surprises, QStringList());
}

void tst_WidgetTree::liesInTheHolderInTheOrderOfBuilding()
{
    Built built;
    const Walk walk(built.form);
    const auto *members = reinterpret_cast<const void *const *>(&built.ui);
    QCOMPARE(sizeof built.ui, (walk.objects.size() - 1) * sizeof(void *));
    for (size_t i = 1; i < walk.objects.size(); ++i)
        QVERIFY2(members[i - 1] == walk.objects[i], qPrintable(walk.lines[static_cast<int>(i)]));
}

void tst_WidgetTree::namesAnUnnamedFormOnly()
{
    QCOMPARE(Built().form.objectName(), "PlayWidget_Impl");
    QWidget named;
    named.setObjectName("mine");
    Ui_PlayWidget_Impl().setupUi(&named);
    QCOMPARE(named.objectName(), "mine");
}

void tst_WidgetTree::sizesTheForm()
{
    QCOMPARE(Built().form.size(), QSize(702, 585));
    QWidget large;
    large.resize(1000, 900);
    Ui_PlayWidget_Impl().setupUi(&large);
    QCOMPARE(large.size(), QSize(702, 585));
}

void tst_WidgetTree::keepsHeightForWidth()
{
    QWidget form;
    QSizePolicy policy;
    policy.setHeightForWidth(true);
    form.setSizePolicy(policy);
    Ui_PlayWidget_Impl().setupUi(&form);
    QVERIFY(form.sizePolicy().hasHeightForWidth());
}

void tst_WidgetTree::connectsSlotsByName()
{
    SlotByName form;
    Ui_PlayWidget_Impl ui;
    ui.setupUi(&form);
    ui.btnPlay->click();
    QCOMPARE(form.clicks, 1);
}

void tst_WidgetTree::setsTheFirstProperties()
{
    Built built;
    QCOMPARE(built.ui.lblElapsedTime->layoutDirection(), Qt::RightToLeft);
    QCOMPARE(built.ui.lblRemainTime->layoutDirection(), Qt::LeftToRight);
    QCOMPARE(built.ui.lbl3DDepth->textFormat(), Qt::AutoText);
    QCOMPARE(static_cast<int>(built.ui.lbl3DDepth->alignment()), 0x81);
    QCOMPARE(built.ui.cbx3DMode->count(), 0);
    QCOMPARE(built.ui.effectTracker->minimum(), 0);
    QCOMPARE(built.ui.effectTracker->maximum(), 100);
    QCOMPARE(built.ui.effectTracker->value(), 50);
    QCOMPARE(built.ui.effectTracker->orientation(), Qt::Horizontal);
    QVERIFY(!built.ui.chxApplyToAll->isChecked());
    QCOMPARE(static_cast<int>(built.ui.buttonBox->standardButtons()), 0x400400);
}

void tst_WidgetTree::paintsTextsOverTheVideoInWhite()
{
    Built built;
    const QPalette usual = QLabel().palette();
    for (const QLabel *label :
         {built.ui.lblFileName, built.ui.lblElapsedTime, built.ui.lblRemainTime}) {
        QPalette expected = usual;
        for (const auto group : {QPalette::Active, QPalette::Inactive})
            expected.setBrush(group, QPalette::WindowText, QBrush(QColor(255, 255, 255)));
        expected.setBrush(QPalette::Disabled, QPalette::WindowText, QBrush(QColor(118, 116, 108)));
        QCOMPARE(label->palette(), expected);
    }
    QCOMPARE(built.ui.lbl3DDepth->palette(), usual);
}

void tst_WidgetTree::startsWithItsTexts()
{
    Built built;
    QCOMPARE(built.form.windowTitle(), "Form");
    QCOMPARE(built.ui.lblFileName->text(), "File Name:");
    QCOMPARE(built.ui.lblElapsedTime->text(), "00:00:00");
    QCOMPARE(built.ui.lblRemainTime->text(), "-00:00:00");
    QCOMPARE(built.ui.lbl3DDepth->text(), "3D Depth:");
    QCOMPARE(built.ui.chxApplyToAll->text(), "Apply to all");
    const auto buttons = built.form.findChildren<IconButton *>();
    QCOMPARE(buttons.size(), 9);
    for (const IconButton *button : buttons)
        QCOMPARE(button->text(), "...");
}

void tst_WidgetTree::translatesItsTexts()
{
    Brackets brackets;
    QVERIFY(QCoreApplication::installTranslator(&brackets));
    Built built;
    QStringList asked = brackets.asked;
    asked.sort();
    QCOMPARE(asked,
             QStringList({"-00:00:00", "...", "...", "...", "...", "...", "...", "...", "...",
                          "...", "00:00:00", "3D Depth:", "Apply to all", "File Name:", "Form"}));
    QCOMPARE(built.form.windowTitle(), "<Form>");
    QCOMPARE(built.ui.btnCaptureRight->text(), "<...>");
    QCOMPARE(built.ui.chxApplyToAll->text(), "<Apply to all>");

    QCoreApplication::removeTranslator(&brackets);
    built.ui.retranslateUi(&built.form);
    QCOMPARE(built.form.windowTitle(), "Form");
    QCOMPARE(built.ui.btnCaptureRight->text(), "...");
    QCOMPARE(built.ui.chxApplyToAll->text(), "Apply to all");
}

void tst_WidgetTree::startsWithoutToolTips()
{
    PlayWidget_Impl player;
    QCOMPARE(player.toolTip(), QString());
    for (const QWidget *widget : player.findChildren<QWidget *>())
        QVERIFY2(widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
}

void tst_WidgetTree::isInItsFirstStateAfterConstruction()
{
    PlayWidget_Impl player;
    player.show();
    for (const QWidget *widget : std::initializer_list<QWidget *>{
             player.ui.videoWnd, player.ui.panMovie3D, player.ui.cbx3DMode, player.ui.lbl3DDepth,
             player.ui.edt3DPos, player.ui.effectTracker, player.ui.chxApplyToAll,
             player.ui.buttonBox})
        QVERIFY2(widget->isVisible(), qPrintable(widget->objectName()));
    for (const QWidget *widget :
         std::initializer_list<QWidget *>{player.ui.panPlayControl, player.ui.lblFileName,
                                          player.ui.btnCapture, player.ui.btnCaptureRight})
        QVERIFY2(widget->isHidden(), qPrintable(widget->objectName()));
    QVERIFY(player.ui.panClient->hasMouseTracking());
    QCOMPARE(player.ui.videoWnd->windowFlags(), QWidget(&player).windowFlags());
    QCOMPARE(player.ui.edt3DPos->minimum(), -50);
    QCOMPARE(player.ui.edt3DPos->maximum(), 50);
    QCOMPARE(player.ui.edt3DPos->value(), 0);
}

void tst_WidgetTree::fillsTheForm_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("video");
    QTest::addColumn<QRect>("panel");
    // The least heights of both, 527 and 59, are one pixel more than the form: they overlap.
    QTest::newRow("smallest") << QSize(702, 585) << QRect(0, 0, 702, 527) << QRect(0, 526, 702, 59);
    QTest::newRow("larger") << QSize(1001, 800) << QRect(0, 0, 1001, 741)
                            << QRect(0, 741, 1001, 59);
}

void tst_WidgetTree::fillsTheForm()
{
    QFETCH(QSize, size);
    QFETCH(QRect, video);
    QFETCH(QRect, panel);
    const Shown player(size);
    QCOMPARE(player.size(), size);
    QCOMPARE(inForm(player.ui.panClient, player), QRect(QPoint(), size));
    QCOMPARE(inForm(player.ui.videoWnd, player), video);
    QCOMPARE(inForm(player.ui.panMovie3D, player), panel);
}

void tst_WidgetTree::keepsTheControlBarInTheMiddle()
{
    QFETCH(QSize, size);
    QFETCH(QRect, video);
    const Shown player(size);
    const QRect bar = player.ui.panPlayControl->geometry();
    QCOMPARE(bar.size(), QSize(385, 55));
    QVERIFY(qAbs(bar.left() - (video.width() - bar.right() - 1)) <= 1);
    const QLayout *layout = player.ui.videoWnd->layout();
    const int below = layout->contentsMargins().bottom() + 70;
    QCOMPARE(bar.bottom() + 1 + below, video.height());
    QCOMPARE(player.ui.lblFileName->pos(),
             QPoint(layout->contentsMargins().left(), layout->contentsMargins().top()));
}

void tst_WidgetTree::putsTheTimesBesideTheSlider()
{
    const Shown player({702, 585});
    QCOMPARE(player.ui.playTracker->x() - 12, player.ui.lblElapsedTime->geometry().right() + 1);
    QCOMPARE(player.ui.lblRemainTime->x() - 12, player.ui.playTracker->geometry().right() + 1);
    // The text is narrower than its label and ends where the label does.
    const QImage label = player.ui.lblElapsedTime->grab().toImage();
    const auto written = [&label](int x) {
        for (int y = 0; y < label.height(); ++y) {
            if (label.pixelColor(x, y) != label.pixelColor(0, 0))
                return true;
        }
        return false;
    };
    QVERIFY(!written(3));
    QVERIFY(written(label.width() - 2) || written(label.width() - 3));
}

void tst_WidgetTree::cannotShrink()
{
    Shown player({702, 585});
    player.resize(10, 10);
    QCOMPARE(player.size(), QSize(702, 585));
    player.ui.videoWnd->resize(10, 10);
    QCOMPARE(player.ui.videoWnd->size(), QSize(702, 527));
    player.ui.panMovie3D->resize(10, 10);
    QCOMPARE(player.ui.panMovie3D->size(), QSize(702, 59));
    player.ui.panMovie3D->resize(2000, 200);
    QCOMPARE(player.ui.panMovie3D->size(), QSize(2000, 59));
    for (const QSize &size : {QSize(10, 10), QSize(500, 500)}) {
        player.ui.panPlayControl->resize(size);
        QCOMPARE(player.ui.panPlayControl->size(), QSize(385, 55));
    }
}

QTEST_MAIN(tst_WidgetTree)
#include "tst_widgettree.moc"
