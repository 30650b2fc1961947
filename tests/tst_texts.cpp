// The texts that a host replaces: which id reaches what, and when.
// Not here: the first texts of the tree (tst_widgettree).
#include "widgetfixture.h"

#include <QMenu>
#include <QPushButton>

#include <map>
#include <type_traits>

namespace {

using Impl = PlayWidget_Impl;
using Texts = std::map<QString, QString>;

struct Row
{
    int id;
    const char *target;
    const char *first;
};

// The two tool tips of the play button are not here: they depend on what plays.
const Row rows[] = {
    {0, "tip of btnVolumeLeft", ""},
    {1, "tip of btnVolumeRight", ""},
    {2, "tip of btnPriorFile", ""},
    {3, "tip of btnNextFile", ""},
    {4, "tip of btnPriorPart", ""},
    {5, "tip of btnNextPart", ""},
    {8, "mode 0", "Turn off 3D"},
    {9, "mode 1", "Red/Cyan"},
    {10, "mode 2", "Red/Green"},
    {11, "mode 3", "Red/Blue"},
    {12, "mode 4", "Blue/Yellow"},
    {13, "mode 5", "Interleaved"},
    {14, "mode 6", "Slide By Slide"},
    {15, "text of lbl3DDepth", "3D Depth:"},
    {16, "text of chxApplyToAll", "Apply to all"},
};

// Every text and tool tip of the player.
Texts textsOf(Impl &impl)
{
    Texts texts;
    for (const QWidget *widget : impl.findChildren<QWidget *>()) {
        const QString name = widget->objectName();
        if (name.isEmpty() || name.startsWith("qt_"))
            continue;
        texts["tip of " + name] = widget->toolTip();
        texts["text of " + name] = widget->property("text").toString();
    }
    for (const QAction *action : impl.snapShotPopup->actions())
        texts["action " + QString::number(texts.size())] = action->text();
    for (int i = 0; i < impl.ui.cbx3DMode->count(); ++i)
        texts["mode " + QString::number(i)] = impl.ui.cbx3DMode->itemText(i);
    for (const auto standard : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel})
        texts["button " + QString::number(standard)] = impl.ui.buttonBox->button(standard)->text();
    return texts;
}

void setText(Player &player, int id, const QString &text)
{
    player.widget->setTranslationText(static_cast<PlayWidget::TranslationTextID>(id), text);
}

QStringList modeTexts(const Player &player)
{
    QStringList texts;
    for (int i = 0; i < player.ui.cbx3DMode->count(); ++i)
        texts += player.ui.cbx3DMode->itemText(i);
    return texts;
}

}  // namespace

class tst_Texts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }
    void numbersTheIds();
    void replacesOneTextOnly_data();
    void replacesOneTextOnly();
    void namesOkAndCancel();
    void startsWithThePlatformsOkAndCancel();
    void takesTheLastText();
    void takesAnyText_data();
    void takesAnyText();
    void ignoresUnknownIds_data();
    void ignoresUnknownIds();
    void showsTheTipOfThePlayButton_data();
    void showsTheTipOfThePlayButton();
    void showsStoredTipsWhenTheStateChanges();
    void ignoresTheTextOfTheRemovedMode();
    void shiftsTextsBehindTheRemovedMode();
    void remembersTheLastRemovalOnly();
    void asksNothingOfTheEngine();
};

void tst_Texts::numbersTheIds()
{
    static_assert(std::is_convertible_v<PlayWidget::TranslationTextID, int>, "unscoped");
    static_assert(std::is_convertible_v<Impl::TranslationTextID, int>, "unscoped");
    const int facade[] = {PlayWidget::VolumeLeftTip,
                          PlayWidget::VolumeRightTip,
                          PlayWidget::PriorFileTip,
                          PlayWidget::NextFileTip,
                          PlayWidget::PriorPartTip,
                          PlayWidget::NextPartTip,
                          PlayWidget::PlayTip,
                          PlayWidget::PauseTip,
                          PlayWidget::ModeTurnOffText,
                          PlayWidget::ModeRedCyanText,
                          PlayWidget::ModeRedGreenText,
                          PlayWidget::ModeRedBlueText,
                          PlayWidget::ModeBlueYellowText,
                          PlayWidget::ModeInterleavedText,
                          PlayWidget::ModeSlideBySlideText,
                          PlayWidget::DepthLabelText,
                          PlayWidget::ApplyToAllText,
                          PlayWidget::OkButtonText,
                          PlayWidget::CancelButtonText};
    const int impl[] = {Impl::VolumeLeftTip,
                        Impl::VolumeRightTip,
                        Impl::PriorFileTip,
                        Impl::NextFileTip,
                        Impl::PriorPartTip,
                        Impl::NextPartTip,
                        Impl::PlayTip,
                        Impl::PauseTip,
                        Impl::ModeTurnOffText,
                        Impl::ModeRedCyanText,
                        Impl::ModeRedGreenText,
                        Impl::ModeRedBlueText,
                        Impl::ModeBlueYellowText,
                        Impl::ModeInterleavedText,
                        Impl::ModeSlideBySlideText,
                        Impl::DepthLabelText,
                        Impl::ApplyToAllText,
                        Impl::OkButtonText,
                        Impl::CancelButtonText};
    QCOMPARE(std::size(facade), size_t(19));
    QCOMPARE(std::size(impl), size_t(19));
    for (int id = 0; id < 19; ++id) {
        QCOMPARE(facade[id], id);
        QCOMPARE(impl[id], id);
    }
}

void tst_Texts::replacesOneTextOnly_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("first");
    for (const Row &row : rows)
        QTest::newRow(row.target) << row.id << row.target << row.first;
}

void tst_Texts::replacesOneTextOnly()
{
    QFETCH(int, id);
    QFETCH(QString, target);
    QFETCH(QString, first);
    Player player;
    Texts expected = textsOf(player.impl);
    QCOMPARE(expected.count(target), size_t(1));
    QCOMPARE(expected[target], first);
    setText(player, id, "Anders");
    expected[target] = "Anders";
    QVERIFY(textsOf(player.impl) == expected);
}

void tst_Texts::namesOkAndCancel()
{
    Player player;
    Texts expected = textsOf(player.impl);
    setText(player, PlayWidget::OkButtonText, "Gut");
    expected["button 1024"] = "Gut";
    QVERIFY(textsOf(player.impl) == expected);
    setText(player, PlayWidget::CancelButtonText, "Weg");
    expected["button 4194304"] = "Weg";
    QVERIFY(textsOf(player.impl) == expected);
}

void tst_Texts::startsWithThePlatformsOkAndCancel()
{
    const Player player;
    const QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    for (const auto standard : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel}) {
        QVERIFY(!box.button(standard)->text().isEmpty());
        QCOMPARE(player.ui.buttonBox->button(standard)->text(), box.button(standard)->text());
    }
}

void tst_Texts::takesTheLastText()
{
    Player player;
    setText(player, PlayWidget::DepthLabelText, "one");
    setText(player, PlayWidget::NextPartTip, "tip");
    setText(player, PlayWidget::DepthLabelText, "two");
    QCOMPARE(player.ui.lbl3DDepth->text(), "two");
    QCOMPARE(player.ui.btnNextPart->toolTip(), "tip");
    setText(player, PlayWidget::NextPartTip, QString());
    QCOMPARE(player.ui.btnNextPart->toolTip(), QString());
}

void tst_Texts::takesAnyText_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("not Latin") << QString::fromUtf8("\u6df1\u5ea6 \u05e2\u05d5\u05de\u05e7");
    QTest::newRow("long") << QString(5000, 'x');
    QTest::newRow("looks rich") << QString("<b>not bold</b>");
}

void tst_Texts::takesAnyText()
{
    QFETCH(QString, text);
    Player player;
    for (int id = 0; id < 19; ++id)
        setText(player, id, text);
    QCOMPARE(player.ui.btnVolumeLeft->toolTip(), text);
    QCOMPARE(player.ui.cbx3DMode->itemText(3), text);
    QCOMPARE(player.ui.lbl3DDepth->text(), text);
    QCOMPARE(player.ui.chxApplyToAll->text(), text);
    QCOMPARE(player.ui.buttonBox->button(QDialogButtonBox::Cancel)->text(), text);
}

void tst_Texts::ignoresUnknownIds_data()
{
    QTest::addColumn<int>("id");
    for (int id : {19, 20, 1000, INT_MAX, -1, -19, INT_MIN})
        QTest::addRow("%d", id) << id;
}

void tst_Texts::ignoresUnknownIds()
{
    QFETCH(int, id);
    Player player;
    const Texts before = textsOf(player.impl);
    setText(player, id, "lost");
    QVERIFY(textsOf(player.impl) == before);
    QCOMPARE(player.impl.playToolTip, QString());
    QCOMPARE(player.impl.pauseToolTip, QString());
}

void tst_Texts::showsTheTipOfThePlayButton_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("shown");
    QTest::newRow("stopped") << int(Impl::Stopped) << "start";
    QTest::newRow("paused") << int(Impl::Paused) << "start";
    QTest::newRow("playing") << int(Impl::Playing) << "rest";
}

void tst_Texts::showsTheTipOfThePlayButton()
{
    QFETCH(int, state);
    QFETCH(QString, shown);
    Player player;
    if (state != Impl::Stopped)
        player.play();
    if (state == Impl::Paused)
        player.pause();
    Texts expected = textsOf(player.impl);
    setText(player, PlayWidget::PlayTip, "start");
    setText(player, PlayWidget::PauseTip, "rest");
    expected["tip of btnPlay"] = shown;
    QVERIFY(textsOf(player.impl) == expected);
    QCOMPARE(player.impl.playToolTip, "start");
    QCOMPARE(player.impl.pauseToolTip, "rest");
}

void tst_Texts::showsStoredTipsWhenTheStateChanges()
{
    Player player;
    setText(player, PlayWidget::PauseTip, "rest");
    QCOMPARE(player.ui.btnPlay->toolTip(), QString());
    player.play();
    QCOMPARE(player.ui.btnPlay->toolTip(), "rest");
    setText(player, PlayWidget::PlayTip, "start");
    QCOMPARE(player.ui.btnPlay->toolTip(), "rest");
    player.pause();
    QCOMPARE(player.ui.btnPlay->toolTip(), "start");
    player.impl.stopVideo(false);
    QCOMPARE(player.ui.btnPlay->toolTip(), "start");
}

void tst_Texts::ignoresTheTextOfTheRemovedMode()
{
    Player player;
    player.widget->set3DModeVisible(Kest3DRedGreen);
    const Texts before = textsOf(player.impl);
    setText(player, PlayWidget::ModeRedGreenText, "lost");
    QVERIFY(textsOf(player.impl) == before);
}

// Ids go by the complete list and are not put right after a removal.
void tst_Texts::shiftsTextsBehindTheRemovedMode()
{
    Player player;
    player.widget->set3DModeVisible(Kest3DRedGreen);
    setText(player, PlayWidget::ModeTurnOffText, "a");
    setText(player, PlayWidget::ModeRedCyanText, "b");
    setText(player, PlayWidget::ModeRedBlueText, "c");
    QCOMPARE(modeTexts(player),
             QStringList({"a", "b", "Red/Blue", "c", "Interleaved", "Slide By Slide"}));
    setText(player, PlayWidget::ModeBlueYellowText, "d");
    setText(player, PlayWidget::ModeInterleavedText, "e");
    setText(player, PlayWidget::ModeSlideBySlideText, "past the end");
    QCOMPARE(modeTexts(player), QStringList({"a", "b", "Red/Blue", "c", "d", "e"}));
}

void tst_Texts::remembersTheLastRemovalOnly()
{
    Player player;
    player.widget->set3DModeVisible(Kest3DRedCyan);
    player.widget->set3DModeVisible(Kest3DRedGreen);
    QCOMPARE(
        modeTexts(player),
        QStringList({"Turn off 3D", "Red/Green", "Blue/Yellow", "Interleaved", "Slide By Slide"}));
    setText(player, PlayWidget::ModeRedCyanText, "taken");
    setText(player, PlayWidget::ModeRedGreenText, "lost");
    QCOMPARE(modeTexts(player),
             QStringList({"Turn off 3D", "taken", "Blue/Yellow", "Interleaved", "Slide By Slide"}));
}

void tst_Texts::asksNothingOfTheEngine()
{
    Player player;
    player.play();
    for (int id = -1; id < 20; ++id)
        setText(player, id, "x");
    QCOMPARE(player.calls(), QStringList());
}

QTEST_MAIN(tst_Texts)
#include "tst_texts.moc"
