// AccessiblePlayer: the table of names, and what makes them change.
// Not here: texts on screen (playwidget_impl_texts.cpp).
#include "playwidget/accessibleplayer.h"

#include "controls/accessibletracker.h"
#include "playwidget/accessiblevalues.h"
#include "playwidget/playwidget_impl.h"

#include <QCoreApplication>
#include <QEvent>
#include <QRegularExpression>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("PlayWidget", text);
}

// Setting a name is an event for whoever listens, so it is set only when it is another one.
void name(QWidget *control, const QString &text)
{
    if (control->accessibleName() != text)
        control->setAccessibleName(text);
}

// On Unix Qt gives the chosen entry for the name of a list, so what it is a list of is told as well.
void describe(QWidget *control, const QString &text)
{
    if (control->accessibleDescription() != text)
        control->setAccessibleDescription(text);
}

// "3D &Depth:" is read as "3D Depth".
QString spoken(QString label)
{
    static const QRegularExpression marks(QStringLiteral("&(?=.)|\\s*[:\uff1a]\\s*$"));
    return label.remove(marks);
}

// Qt makes an interface of its own as soon as a label has a text or a slider a value.
void forgetInterface(QObject *control)
{
    QAccessibleInterface *made = QAccessible::queryAccessibleInterface(control);
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(made));
}

}  // namespace

AccessiblePlayer::AccessiblePlayer(PlayWidget_Impl *player)
    : QObject(player)
    , m_player(*player)
    , m_trackers(&accessibleTracker)
    , m_values(&AccessibleValues::make)
{
    const Ui_PlayWidget_Impl &ui = player->ui;
    for (QObject *control :
         std::initializer_list<QObject *>{ui.effectTracker, ui.lblElapsedTime, ui.lblRemainTime})
        forgetInterface(control);
    player->installEventFilter(this);
    ui.btnPlay->installEventFilter(this);
    nameControls();
}

AccessiblePlayer *AccessiblePlayer::of(const PlayWidget_Impl *player)
{
    return player->findChild<AccessiblePlayer *>(QString(), Qt::FindDirectChildrenOnly);
}

// The play button gets a tool tip each time that playing begins or ends.
bool AccessiblePlayer::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::ToolTipChange)
        nameControls();
    return QObject::eventFilter(watched, event);
}

void AccessiblePlayer::nameControls()
{
    const Ui_PlayWidget_Impl &ui = m_player.ui;
    nameButtons();
    name(ui.videoWnd, translated(QT_TRANSLATE_NOOP("PlayWidget", "Video")));
    name(ui.panPlayControl, translated(QT_TRANSLATE_NOOP("PlayWidget", "Playback")));
    name(ui.volumeTracker, translated(QT_TRANSLATE_NOOP("PlayWidget", "Volume")));
    name(ui.playTracker, translated(QT_TRANSLATE_NOOP("PlayWidget", "Position")));
    name(ui.panMovie3D, translated(QT_TRANSLATE_NOOP("PlayWidget", "3D settings")));
    name(ui.cbx3DMode, translated(QT_TRANSLATE_NOOP("PlayWidget", "3D mode")));
    describe(ui.cbx3DMode, ui.cbx3DMode->accessibleName());
    name(ui.edt3DPos, spoken(ui.lbl3DDepth->text()));
    name(ui.effectTracker, spoken(ui.lbl3DDepth->text()));
}

void AccessiblePlayer::nameButtons()
{
    const Ui_PlayWidget_Impl &ui = m_player.ui;
    const bool playing = m_player.playState == PlayWidget_Impl::Playing;
    const struct
    {
        IconButton *button;
        const char *withoutToolTip;
    } rows[] = {
        {ui.btnVolumeLeft, QT_TRANSLATE_NOOP("PlayWidget", "Silence")},
        {ui.btnVolumeRight, QT_TRANSLATE_NOOP("PlayWidget", "Full volume")},
        {ui.btnPriorFile, QT_TRANSLATE_NOOP("PlayWidget", "Previous file")},
        {ui.btnPriorPart, QT_TRANSLATE_NOOP("PlayWidget", "Back 5 seconds")},
        {ui.btnPlay,
         playing ? QT_TRANSLATE_NOOP("PlayWidget", "Pause")
                 : QT_TRANSLATE_NOOP("PlayWidget", "Play")},
        {ui.btnNextPart, QT_TRANSLATE_NOOP("PlayWidget", "Forward 5 seconds")},
        {ui.btnNextFile, QT_TRANSLATE_NOOP("PlayWidget", "Next file")},
        {ui.btnCapture, QT_TRANSLATE_NOOP("PlayWidget", "Snapshot")},
        {ui.btnCaptureRight, QT_TRANSLATE_NOOP("PlayWidget", "Snapshot menu")},
    };
    for (const auto &row : rows) {
        const QString toolTip = row.button->toolTip();
        name(row.button, toolTip.isEmpty() ? translated(row.withoutToolTip) : toolTip);
    }
}
