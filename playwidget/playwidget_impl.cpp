// Birth, wiring and death of the player.
// Not here: what the slots do; each stands in the file that the header names.
#include "playwidget/playwidget_impl.h"

#include <QAction>
#include <QImage>
#include <QMenu>
#include <QTimer>

PlayWidget_Impl::PlayWidget_Impl(QWidget *parent)
    : QWidget(parent)
{
    ui.setupUi(this);
    ui.panPlayControl->setVisible(false);
    ui.lblFileName->setVisible(false);
    ui.panClient->setAttribute(Qt::WA_MouseTracking);
    ui.edt3DPos->setMinimum(-50);
    ui.edt3DPos->setMaximum(50);
    ui.edt3DPos->setValue(0);

    createSnapShotMenu();
    musicPicture = new QImage(QStringLiteral(":/skin/music.png"));
    mouseDetectTimer = new QTimer(this);
    playUpdateTimer = new QTimer(this);

    ui.panPlayControl->installEventFilter(this);
    ui.videoWnd->installEventFilter(this);
    ui.edt3DPos->installEventFilter(this);
    loadSkin();
    connectSlotToSignals();
}

PlayWidget_Impl::~PlayWidget_Impl()
{
    stopVideo(false);
    delete snapShotPopup;
    delete musicPicture;
    qDeleteAll(playItems);
}

void PlayWidget_Impl::initialize(void *engineHandle)
{
    engine = engineHandle;
}

ErrorList &PlayWidget_Impl::errorList()
{
    return errors;
}

void PlayWidget_Impl::connectSlotToSignals()
{
    const struct
    {
        QObject *sender;
        const char *signal;
        const char *slot;
    } wires[] = {
        {this, SIGNAL(updatePlayState(int, uint)), SLOT(doUpdatePlayState(int, uint))},
        {ui.btnPlay, SIGNAL(clicked()), SLOT(btnPlayClick())},
        {ui.btnCapture, SIGNAL(clicked()), SLOT(snapShotVideo())},
        {ui.btnCaptureRight, SIGNAL(clicked()), SLOT(sanpShotMenu())},
        {snapShotAction, SIGNAL(triggered()), SLOT(snapShotVideo())},
        {openSnapShotDirAction, SIGNAL(triggered()), SLOT(openSnapShotDir())},
        {changeSnapShotDirAction, SIGNAL(triggered()), SLOT(changeSnapShotDir())},
        {ui.playTracker, SIGNAL(sliderPressed()), SLOT(playTrackerPressed())},
        {ui.playTracker, SIGNAL(sliderReleased()), SLOT(playTrackerReleased())},
        {ui.volumeTracker, SIGNAL(valueChanged(int)), SLOT(volumeChanged(int))},
        {ui.btnVolumeLeft, SIGNAL(clicked()), SLOT(minimizeVolume())},
        {ui.btnVolumeRight, SIGNAL(clicked()), SLOT(maximizeVolume())},
        {ui.btnPriorFile, SIGNAL(clicked()), SLOT(playPriorFile())},
        {ui.btnNextFile, SIGNAL(clicked()), SLOT(playNextFile())},
        {ui.btnPriorPart, SIGNAL(clicked()), SLOT(playPriorPart())},
        {ui.btnNextPart, SIGNAL(clicked()), SLOT(playNextPart())},
        {mouseDetectTimer, SIGNAL(timeout()), SLOT(mouseDetectTimerTimeOut())},
        {playUpdateTimer, SIGNAL(timeout()), SLOT(playUpdateTimerTimeOut())},
        {ui.cbx3DMode, SIGNAL(currentIndexChanged(int)), SLOT(cbx3DModeCurrentIndexChanged(int))},
        {ui.edt3DPos, SIGNAL(valueChanged(int)), SLOT(edt3DPosValueChanged(int))},
        {ui.effectTracker, SIGNAL(valueChanged(int)), SLOT(effectValueChanged(int))},
        {ui.buttonBox, SIGNAL(clicked(QAbstractButton *)),
         SLOT(buttonBoxClicked(QAbstractButton *))},
    };
    for (const auto &wire : wires)
        connect(wire.sender, wire.signal, this, wire.slot);
}
