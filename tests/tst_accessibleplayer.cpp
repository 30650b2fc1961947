// The player as assistive technology walks through it: every control's role, name and value.
// Not here: any skinned slider by itself (tst_accessibletracker), keys (tst_keyboardaccess).
#include "playwidget/keyboardaccess.h"
#include "widgetfixture.h"

#include <QAccessible>
#include <QPushButton>
#include <QTest>
#include <QTranslator>

#include <limits>

namespace {

QAccessibleInterface *interfaceOf(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

QString nameOf(QObject *object)
{
    return interfaceOf(object)->text(QAccessible::Name);
}

QString valueOf(QObject *object)
{
    return interfaceOf(object)->text(QAccessible::Value);
}

/// Every node below one, as "role: name", indented; only what is visible.
QStringList walk(QAccessibleInterface *node, const QString &indent = {})
{
    static const QHash<int, QString> roles{
        {QAccessible::Button, "button"},    {QAccessible::Slider, "slider"},
        {QAccessible::StaticText, "text"},  {QAccessible::ComboBox, "combo box"},
        {QAccessible::SpinBox, "spin box"}, {QAccessible::CheckBox, "check box"},
        {QAccessible::Client, "group"},     {QAccessible::Grouping, "group"},
        {QAccessible::Canvas, "picture"},   {QAccessible::ButtonMenu, "menu button"}};
    QStringList lines;
    for (int i = 0; i < node->childCount(); ++i) {
        QAccessibleInterface *child = node->child(i);
        if (child->state().invisible)
            continue;
        const QString role = roles.value(child->role(), QString::number(child->role()));
        lines += indent + role + ": " + child->text(QAccessible::Name);
        if (role == "group")
            lines += walk(child, indent + "  ");
    }
    return lines;
}

// A language in which every text of the player's is in capitals.
class Capitals : public QTranslator
{
public:
    Capitals() { QCoreApplication::installTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return qstrcmp(context, "PlayWidget") ? QString()
                                              : QString(text).toUpper().replace("%N", "%n");
    }
};

}  // namespace

class tst_AccessiblePlayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }
    void showsEveryControlInTheTree();
    void namesButtonsWithoutATextItself_data();
    void namesButtonsWithoutATextItself();
    void namesButtonsByTheirToolTips_data();
    void namesButtonsByTheirToolTips();
    void thePlayButtonFollowsItsState();
    void thePlayButtonFollowsItsTexts();
    void whatIsNoNameOfATimeIsTheLabels();
    void theDepthCanStillBeFocused();
    void namesTheDepthByItsLabel_data();
    void namesTheDepthByItsLabel();
    void takesTheOtherTextsFromTheControls();
    void followsTheLanguage();
    void hostTextsOutliveALanguageChange();
    void saysThePositionAsATime();
    void saysThePositionWhereTheHandleIs();
    void saysThePositionAsAShareWithoutALength();
    void saysThePositionOfTheLongestFilm();
    void saysTheVolumeInPercent();
    void saysTheTimesInWords();
    void countsTheDepthAsTheBoxDoes();
    void setsTheDepth();
    void keepsTheDepthInItsRange();
    void leavesTheDepthAloneWhile3DIsOff();
    void seeksWhenThePositionIsSet();
    void setsTheVolume();
    void pressesButtons();
    void leavesOtherWidgetsAlone();
    void saysTheSameWithoutKeyboardAccess();
};

void tst_AccessiblePlayer::showsEveryControlInTheTree()
{
    Player player;
    player.widget->show();
    player.play(1);
    player.impl.movie3DModeToUI(Kest3DRedCyan);
    player.ui.panPlayControl->show();
    player.ui.lblFileName->show();
    player.ui.buttonBox->button(QDialogButtonBox::Ok)->setText("OK");
    player.ui.buttonBox->button(QDialogButtonBox::Cancel)->setText("Cancel");
    const QStringList expected{
        "group: ",
        "  group: ",
        "    group: Video",
        "      text: 20.avi",
        "      group: Playback",
        "        button: Silence",
        "        slider: Volume",
        "        button: Full volume",
        "        button: Previous file",
        "        button: Back 5 seconds",
        "        button: Pause",
        "        button: Forward 5 seconds",
        "        button: Next file",
        "        text: Elapsed: 0 seconds",
        "        slider: Position",
        "        text: Remaining: 0 seconds",
        "    group: 3D settings",
        "      combo box: Red/Cyan",
        "      text: 3D Depth:",
        "      spin box: 3D Depth",
        "      slider: 3D Depth",
        "      check box: Apply to all",
        "      group: ",
        "        button: OK",
        "        button: Cancel",
    };
    QCOMPARE(walk(interfaceOf(player.widget.get())), expected);
}

void tst_AccessiblePlayer::namesButtonsWithoutATextItself_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("name");
    QTest::newRow("volume left") << "btnVolumeLeft"
                                 << "Silence";
    QTest::newRow("volume right") << "btnVolumeRight"
                                  << "Full volume";
    QTest::newRow("prior file") << "btnPriorFile"
                                << "Previous file";
    QTest::newRow("prior part") << "btnPriorPart"
                                << "Back 5 seconds";
    QTest::newRow("play") << "btnPlay"
                          << "Play";
    QTest::newRow("next part") << "btnNextPart"
                               << "Forward 5 seconds";
    QTest::newRow("next file") << "btnNextFile"
                               << "Next file";
    QTest::newRow("capture") << "btnCapture"
                             << "Snapshot";
    QTest::newRow("capture menu") << "btnCaptureRight"
                                  << "Snapshot menu";
}

void tst_AccessiblePlayer::namesButtonsWithoutATextItself()
{
    QFETCH(QString, button);
    const Player player;
    QTEST(nameOf(player.widget->findChild<QObject *>(button)), "name");
}

void tst_AccessiblePlayer::namesButtonsByTheirToolTips_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("button");
    QTest::newRow("volume left") << int(PlayWidget::VolumeLeftTip) << "btnVolumeLeft";
    QTest::newRow("volume right") << int(PlayWidget::VolumeRightTip) << "btnVolumeRight";
    QTest::newRow("prior file") << int(PlayWidget::PriorFileTip) << "btnPriorFile";
    QTest::newRow("next file") << int(PlayWidget::NextFileTip) << "btnNextFile";
    QTest::newRow("prior part") << int(PlayWidget::PriorPartTip) << "btnPriorPart";
    QTest::newRow("next part") << int(PlayWidget::NextPartTip) << "btnNextPart";
    QTest::newRow("play") << int(PlayWidget::PlayTip) << "btnPlay";
}

void tst_AccessiblePlayer::namesButtonsByTheirToolTips()
{
    QFETCH(int, id);
    QFETCH(QString, button);
    const Player player;
    QObject *object = player.widget->findChild<QObject *>(button);
    const QString own = nameOf(object);
    const auto text = static_cast<PlayWidget::TranslationTextID>(id);
    player.widget->setTranslationText(text, "Los");
    QCOMPARE(nameOf(object), "Los");
    player.widget->setTranslationText(text, "Weiter");
    QCOMPARE(nameOf(object), "Weiter");
    player.widget->setTranslationText(text, "");
    QCOMPARE(nameOf(object), own);
}

void tst_AccessiblePlayer::thePlayButtonFollowsItsState()
{
    Player player;
    QCOMPARE(nameOf(player.ui.btnPlay), "Play");
    player.play();
    QCOMPARE(nameOf(player.ui.btnPlay), "Pause");
    player.pause();
    QCOMPARE(nameOf(player.ui.btnPlay), "Play");
    player.impl.playVideo();
    player.impl.stopVideo(false);
    QCOMPARE(nameOf(player.ui.btnPlay), "Play");
}

void tst_AccessiblePlayer::thePlayButtonFollowsItsTexts()
{
    Player player;
    player.widget->setTranslationText(PlayWidget::PauseTip, "Halt");
    QCOMPARE(nameOf(player.ui.btnPlay), "Play");
    player.widget->setTranslationText(PlayWidget::PlayTip, "Los");
    QCOMPARE(nameOf(player.ui.btnPlay), "Los");
    player.play();
    QCOMPARE(nameOf(player.ui.btnPlay), "Halt");
}

void tst_AccessiblePlayer::whatIsNoNameOfATimeIsTheLabels()
{
    const Player player;
    player.ui.lblElapsedTime->setToolTip("since the beginning");
    QCOMPARE(interfaceOf(player.ui.lblElapsedTime)->text(QAccessible::Description),
             QString("since the beginning"));
}

void tst_AccessiblePlayer::theDepthCanStillBeFocused()
{
    const Player player;
    QAccessibleActionInterface *actions = interfaceOf(player.ui.effectTracker)->actionInterface();
    QVERIFY(actions);
    QCOMPARE(actions->actionNames(), QStringList(QAccessibleActionInterface::setFocusAction()));
}

void tst_AccessiblePlayer::namesTheDepthByItsLabel_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("name");
    QTest::newRow("with a colon") << "Tiefe:"
                                  << "Tiefe";
    QTest::newRow("with a space before it") << "Relief :"
                                            << "Relief";
    QTest::newRow("with a wide colon")
        << QStringLiteral("\u6df1\u5ea6\uff1a") << QStringLiteral("\u6df1\u5ea6");
    QTest::newRow("with a mnemonic") << "3D &Depth:"
                                     << "3D Depth";
    QTest::newRow("with a colon inside") << "3D: depth"
                                         << "3D: depth";
    QTest::newRow("with nothing of it") << "Depth"
                                        << "Depth";
}

void tst_AccessiblePlayer::namesTheDepthByItsLabel()
{
    QFETCH(QString, label);
    QFETCH(QString, name);
    const Player player;
    player.widget->setTranslationText(PlayWidget::DepthLabelText, label);
    QCOMPARE(nameOf(player.ui.edt3DPos), name);
    QCOMPARE(nameOf(player.ui.effectTracker), name);
}

void tst_AccessiblePlayer::takesTheOtherTextsFromTheControls()
{
    const Player player;
    player.widget->setTranslationText(PlayWidget::ApplyToAllText, "Alle");
    player.widget->setTranslationText(PlayWidget::OkButtonText, "Gut");
    player.widget->setTranslationText(PlayWidget::CancelButtonText, "Weg");
    player.widget->setTranslationText(PlayWidget::ModeTurnOffText, "Flach");
    QCOMPARE(nameOf(player.ui.chxApplyToAll), "Alle");
    QCOMPARE(nameOf(player.ui.buttonBox->button(QDialogButtonBox::Ok)), "Gut");
    QCOMPARE(nameOf(player.ui.buttonBox->button(QDialogButtonBox::Cancel)), "Weg");
    QCOMPARE(valueOf(player.ui.cbx3DMode), "Flach");
    QCOMPARE(interfaceOf(player.ui.cbx3DMode)->text(QAccessible::Description), "3D mode");
}

void tst_AccessiblePlayer::followsTheLanguage()
{
    Player player;
    player.widget->show();
    player.play();
    {
        const Capitals capitals;
        QCoreApplication::sendPostedEvents();
        QCOMPARE(nameOf(player.ui.btnPlay), "PAUSE");
        QCOMPARE(nameOf(player.ui.playTracker), "POSITION");
        QCOMPARE(interfaceOf(player.ui.cbx3DMode)->text(QAccessible::Description), "3D MODE");
        QCOMPARE(nameOf(player.ui.lblElapsedTime), "ELAPSED: 0 SECONDS");
        QCOMPARE(valueOf(player.ui.playTracker), "0 SECONDS OF 1 MINUTE");
    }
    QCoreApplication::sendPostedEvents();
    QCOMPARE(nameOf(player.ui.btnPlay), "Pause");
    QCOMPARE(nameOf(player.ui.playTracker), "Position");
}

void tst_AccessiblePlayer::hostTextsOutliveALanguageChange()
{
    const Player player;
    player.widget->setTranslationText(PlayWidget::PlayTip, "Los");
    const Capitals capitals;
    QCoreApplication::sendPostedEvents();
    QCOMPARE(nameOf(player.ui.btnPlay), "Los");
}

void tst_AccessiblePlayer::saysThePositionAsATime()
{
    Player player;
    player.play();
    player.impl.position = 29000;
    player.impl.playUpdateTimerTimeOut();
    QCOMPARE(player.ui.playTracker->getValue(), 483);
    QCOMPARE(valueOf(player.ui.playTracker), "28 seconds of 1 minute");
    QCOMPARE(interfaceOf(player.ui.playTracker)->text(QAccessible::Description),
             "28 seconds of 1 minute");
}

void tst_AccessiblePlayer::saysThePositionWhereTheHandleIs()
{
    Player player;
    player.play();
    player.pressPlayTracker();
    player.ui.playTracker->setValue(500);
    QCOMPARE(valueOf(player.ui.playTracker), "30 seconds of 1 minute");
    player.ui.playTracker->setMaxValue(2000);
    player.ui.playTracker->setValue(2000);
    QCOMPARE(valueOf(player.ui.playTracker), "1 minute of 1 minute");
}

void tst_AccessiblePlayer::saysThePositionAsAShareWithoutALength()
{
    const Player player;
    player.ui.playTracker->setValue(255);
    QCOMPARE(valueOf(player.ui.playTracker), "25 %");
}

void tst_AccessiblePlayer::saysThePositionOfTheLongestFilm()
{
    Player player;
    player.impl.duration = std::numeric_limits<long long>::max();
    player.ui.playTracker->setValue(1000);
    const QStringList parts = valueOf(player.ui.playTracker).split(" of ");
    QCOMPARE(parts.size(), 2);
    QCOMPARE(parts.at(0), parts.at(1));
}

void tst_AccessiblePlayer::saysTheVolumeInPercent()
{
    const Player player;
    QCOMPARE(valueOf(player.ui.volumeTracker), "100 %");
    player.impl.maximizeVolume();
    QCOMPARE(valueOf(player.ui.volumeTracker), "200 %");
}

void tst_AccessiblePlayer::saysTheTimesInWords()
{
    Player player;
    player.engine.setDuration(10, 180000);
    player.play();
    player.impl.position = 65000;
    player.impl.playUpdateTimerTimeOut();
    QCOMPARE(nameOf(player.ui.lblElapsedTime), "Elapsed: 1 minute 5 seconds");
    QCOMPARE(nameOf(player.ui.lblRemainTime), "Remaining: 1 minute 55 seconds");
    QCOMPARE(interfaceOf(player.ui.lblElapsedTime)->role(), QAccessible::StaticText);
}

void tst_AccessiblePlayer::countsTheDepthAsTheBoxDoes()
{
    Player player;
    player.impl.movie3DModeToUI(Kest3DRedCyan);
    QAccessibleInterface *slider = interfaceOf(player.ui.effectTracker);
    QCOMPARE(slider->role(), QAccessible::Slider);
    QCOMPARE(slider->text(QAccessible::Value), "-2");
    QCOMPARE(slider->valueInterface()->currentValue(), QVariant(-2));
    QCOMPARE(slider->valueInterface()->minimumValue(), QVariant(-50));
    QCOMPARE(slider->valueInterface()->maximumValue(), QVariant(50));
    QCOMPARE(slider->valueInterface()->minimumStepSize(), QVariant(1));
    QCOMPARE(interfaceOf(player.ui.edt3DPos)->valueInterface()->currentValue(), QVariant(-2));
}

void tst_AccessiblePlayer::setsTheDepth()
{
    Player player;
    player.impl.movie3DModeToUI(Kest3DRedCyan);
    interfaceOf(player.ui.effectTracker)->valueInterface()->setCurrentValue(17);
    QCOMPARE(player.ui.effectTracker->value(), 67);
    QCOMPARE(player.ui.edt3DPos->value(), 17);
}

void tst_AccessiblePlayer::keepsTheDepthInItsRange()
{
    Player player;
    player.impl.movie3DModeToUI(Kest3DRedCyan);
    QAccessibleValueInterface *depth = interfaceOf(player.ui.effectTracker)->valueInterface();
    depth->setCurrentValue(std::numeric_limits<int>::min());
    QCOMPARE(depth->currentValue(), QVariant(-50));
    depth->setCurrentValue(std::numeric_limits<int>::max());
    QCOMPARE(depth->currentValue(), QVariant(50));
    depth->setCurrentValue("deep");
    QCOMPARE(depth->currentValue(), QVariant(50));
}

void tst_AccessiblePlayer::leavesTheDepthAloneWhile3DIsOff()
{
    Player player;
    player.play();
    QAccessibleInterface *slider = interfaceOf(player.ui.effectTracker);
    QVERIFY(slider->state().disabled);
    slider->valueInterface()->setCurrentValue(17);
    QCOMPARE(player.ui.effectTracker->value(), 50);
}

void tst_AccessiblePlayer::seeksWhenThePositionIsSet()
{
    Player player;
    player.play();
    interfaceOf(player.ui.playTracker)->valueInterface()->setCurrentValue(500);
    QCOMPARE(player.calls(), QStringList("KestSetCurPos(30000)"));
    QCOMPARE(player.ui.lblElapsedTime->text(), "00:00:30");
}

void tst_AccessiblePlayer::setsTheVolume()
{
    Player player;
    player.play();
    interfaceOf(player.ui.volumeTracker)->valueInterface()->setCurrentValue(40);
    QCOMPARE(player.calls(), QStringList("KestChangeVolume(40)"));
}

void tst_AccessiblePlayer::pressesButtons()
{
    Player player;
    player.play();
    interfaceOf(player.ui.btnPlay)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(player.impl.playState, int(PlayWidget_Impl::Paused));
}

void tst_AccessiblePlayer::leavesOtherWidgetsAlone()
{
    const Player player;
    QSlider slider;
    slider.setValue(7);
    QLabel label("00:01:05");
    QCOMPARE(valueOf(&slider), "7");
    QCOMPARE(nameOf(&label), "00:01:05");
    QCOMPARE(nameOf(player.ui.lbl3DDepth), "3D Depth:");
}

void tst_AccessiblePlayer::saysTheSameWithoutKeyboardAccess()
{
    Player player;
    player.widget->show();
    const QStringList with = walk(interfaceOf(player.widget.get()));
    setKeyboardAccess(player.widget.get(), false);
    QCOMPARE(walk(interfaceOf(player.widget.get())), with);
}

QTEST_MAIN(tst_AccessiblePlayer)
#include "tst_accessibleplayer.moc"
