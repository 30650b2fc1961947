// PlayWidget_Impl: the whole player behind the facade, one class over several files.
// Not here: what hosts see (playwidget.h). Headings name the file that holds what follows.
#pragma once

#include "engine/kest.h"
#include "playwidget/errorlist.h"
#include "playwidget/playitem.h"
#include "ui_playwidget_impl.h"

#include <QIcon>
#include <QList>
#include <QSize>
#include <QString>
#include <QWidget>

class QAbstractButton;
class QAction;
class QImage;
class QMenu;
class QPaintEvent;
class QTimer;

/// Receives the engine's events, on whatever thread, for the PlayWidget_Impl that `user` points to;
/// a null `user` is ignored. Always returns 0.
int CallbackVelmoEvent(tagKestEvent *event, void *user);

/// GUI thread only, but for callBackVelmoEvent().
class PlayWidget_Impl : public QWidget
{
    Q_OBJECT

public:
    enum PlayState { Playing, Paused, Stopped };

    enum ImageType : int { ImageTypePNG, ImageTypeJPEG, ImageTypeBMP };

    /// As in PlayWidget.
    enum TranslationTextID : int {
        VolumeLeftTip,
        VolumeRightTip,
        PriorFileTip,
        NextFileTip,
        PriorPartTip,
        NextPartTip,
        PlayTip,
        PauseTip,
        ModeTurnOffText,
        ModeRedCyanText,
        ModeRedGreenText,
        ModeRedBlueText,
        ModeBlueYellowText,
        ModeInterleavedText,
        ModeSlideBySlideText,
        DepthLabelText,
        ApplyToAllText,
        OkButtonText,
        CancelButtonText
    };

    // playwidget_impl.cpp
    explicit PlayWidget_Impl(QWidget *parent = nullptr);
    ~PlayWidget_Impl() override;
    void initialize(void *engineHandle);
    ErrorList &errorList();

    // playwidget_impl_transport.cpp
    void callBackVelmoEvent(tagKestEvent *event);  ///< any thread

    // playwidget_impl_navigation.cpp
    void addPlayItem(int fileId, const QString &fileName, bool audioOnly, int mode, double depth);
    int playItemCount() const;
    PlayItem *playItem(int index) const;
    PlayItem *playItemByFileID(int fileId) const;
    int playIndex() const;
    void setPlayIndex(int index);
    void clear();
    bool hasPrirorFile() const;
    bool hasNextFile() const;
    bool priorFileId();
    bool nextFileId();
    void updatePriorAndNextState();

    // playwidget_impl_filter3d.cpp
    static int setMovie3DPropsDirect(void *engine, int fileId, int mode, double depth);
    void addFilter(int index, int mode, double depth);
    void applyMovie3DProps();
    void loadMovie3DProps();

    // playwidget_impl_panel3d.cpp
    int movie3DModeFromUI(int index) const;
    void movie3DModeToUI(int mode);
    double movie3DPosFromUI() const;
    void movie3DPosToUI(double depth);
    void setTurnOffState();
    void set3DModeVisible(tagKest3DMode mode);
    void resetAll();
    void applyToAll();
    bool getApplyToAll() const;

    // playwidget_impl_overlay.cpp
    bool eventFilter(QObject *watched, QEvent *event) override;

    // playwidget_impl_snapshots.cpp
    const QString &snapShotDir() const;
    void setSnapShotDir(const QString &dir);
    const QSize &snapShotSize() const;
    void setSnapShotSize(const QSize &size);
    ImageType snapShotImageType() const;
    void setSnapShotImageType(ImageType type);

    // playwidget_impl_texts.cpp
    void setTranslationText(TranslationTextID id, const QString &text);

Q_SIGNALS:
    void updatePlayState(int velmoState, uint t);
    void accepted();
    void rejected();

public Q_SLOTS:
    // playwidget_impl_transport.cpp
    void doUpdatePlayState(int velmoState, uint t);
    // playwidget_impl_overlay.cpp
    void mouseDetectTimerTimeOut();
    // playwidget_impl_position.cpp
    void playUpdateTimerTimeOut();
    // playwidget_impl_transport.cpp
    void btnPlayClick();
    bool playVideo();
    bool pauseVideo();
    void stopVideo(bool bSave);
    // playwidget_impl_snapshots.cpp
    void snapShotVideo();
    void sanpShotMenu();
    void openSnapShotDir();
    void changeSnapShotDir();
    // playwidget_impl_position.cpp
    void playTrackerPressed();
    void playTrackerReleased();
    void volumeChanged(int value);
    void minimizeVolume();
    void maximizeVolume();
    // playwidget_impl_navigation.cpp
    void playPriorFile();
    void playNextFile();
    void playPriorPart();
    void playNextPart();
    // playwidget_impl_panel3d.cpp
    void cbx3DModeCurrentIndexChanged(int index);
    void edt3DPosValueChanged(int value);
    void effectValueChanged(int value);
    // playwidget_impl_filter3d.cpp
    void delaySetAgain();
    // playwidget_impl_panel3d.cpp
    void buttonBoxClicked(QAbstractButton *button);

protected:
    // playwidget_impl_panel3d.cpp
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    // What attaches to a player from outside, so that everyone can operate it.
    friend class AccessiblePlayer;
    friend class AccessibleValues;
    friend class KeyboardNavigation;
    friend class OverlayHold;

    // playwidget_impl.cpp
    void connectSlotToSignals();

    // playwidget_impl_transport.cpp
    void beginEdit(int index);
    void endEdit(bool save);
    bool hasOpenEdit() const;
    void showPlayButton(const QIcon &icon, const QString &toolTip);
    void showPlaying();

    // playwidget_impl_navigation.cpp
    bool copyCurrentItem();
    bool stepFile(int step);

    // playwidget_impl_position.cpp
    void setVolume(int volume);

    // playwidget_impl_filter3d.cpp
    void beginFilter(PlayItem *item);
    void showFilter(const tagKestFilterInfo &info);

    // playwidget_impl_panel3d.cpp
    void reject();

    // playwidget_impl_overlay.cpp
    bool filterPanelEvent(QEvent *event);
    bool filterVideoEvent(QEvent *event);
    void showOverlay();
    void hideOverlay();
    void releaseTrackers();
    void paintMusicPicture(QPaintEvent *event);

    // playwidget_impl_skin.cpp
    void loadSkin();
    void loadButtonIcons();
    void loadSliders();
    void loadModes();
    void loadTimeLabels();
    void loadStyleSheet();

    // playwidget_impl_snapshots.cpp
    void createSnapShotMenu();

    Ui_PlayWidget_Impl ui;
    QString snapShotFolder;
    QSize snapShotImageSize{0, 0};
    ImageType snapShotType = ImageTypePNG;
    QIcon playIcon;
    QIcon pauseIcon;
    QString playToolTip;
    QString pauseToolTip;
    QMenu *snapShotPopup = nullptr;
    QAction *snapShotAction = nullptr;
    QAction *openSnapShotDirAction = nullptr;
    QAction *changeSnapShotDirAction = nullptr;
    QTimer *mouseDetectTimer = nullptr;
    QTimer *playUpdateTimer = nullptr;
    bool mouseInVideo = false;
    bool mouseOverPanel = false;
    int idleTicks = 0;
    bool trackerPressed = false;
    void *engine = nullptr;
    QList<PlayItem *> playItems;
    int currentIndex = -1;
    int currentFileId = 0;
    QString currentFileName;
    bool currentAudioOnly = false;
    long long duration = 0;
    long long position = 0;
    int playState = Stopped;
    ErrorList errors;
    bool reapplyPending = false;
    QImage *musicPicture = nullptr;
    int hiddenModeTextId = 19;
};
