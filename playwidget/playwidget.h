// PlayWidget: the preview player as a host sees it.
// Not here: how it works (playwidget_impl.h); opening an engine (engine/mpv/kest_host.h).
#pragma once

#include "engine/kest.h"
#include "playwidget/playwidget_global.h"

#include <QSize>
#include <QString>
#include <QWidget>

class PlayWidget_Impl;

/// A preview player with stereoscopic output settings, to be put into a dialog of the host's.
///
/// A host creates it, sizes it by actualSize(), calls initialize() with the engine it has opened,
/// fills the play list and selects the first item, which starts to play at once. The user watches,
/// chooses a 3D mode and a depth for each item and ends with OK or Cancel. On accepted() the host
/// reads the settings back; on rejected() every item has got back what the host gave it, unless the
/// engine refused. Hiding the widget stops the film and drops what its open edit changed. A 3D change
/// that the user made less than 100 ms before either is carried out once more after it: a host that
/// must not see it reads the settings at once, or gives its own back to the engine.
///
/// It never shows a message: what the engine refused stands in errorString().
///
/// GUI thread only, all functions. The engine must outlive the widget.
class PLAYWIDGET_EXPORT PlayWidget : public QWidget
{
    Q_OBJECT

public:
    /// The texts that a host can replace; each says what shows it.
    enum TranslationTextID : int {
        VolumeLeftTip,   ///< tool tip of the button that silences
        VolumeRightTip,  ///< tool tip of the button that plays loudest
        PriorFileTip,    ///< tool tips of the buttons that step through the list and the film
        NextFileTip,
        PriorPartTip,
        NextPartTip,
        PlayTip,          ///< tool tip of the play button while nothing plays
        PauseTip,         ///< tool tip of the play button while an item plays
        ModeTurnOffText,  ///< entries of the 3D mode list, in their order
        ModeRedCyanText,
        ModeRedGreenText,
        ModeRedBlueText,
        ModeBlueYellowText,
        ModeInterleavedText,
        ModeSlideBySlideText,
        DepthLabelText,  ///< label of the depth
        ApplyToAllText,  ///< check box that applies the settings to every item
        OkButtonText,
        CancelButtonText
    };

    explicit PlayWidget(QWidget *parent = nullptr);

    /// Stops playing, drops what the open edit changed, and frees the items that are still there.
    ~PlayWidget() override;

    /// Takes the engine's handle, which stays the host's, and removes `mode` from the list of modes
    /// as set3DModeVisible() does. The handle is not checked: with a null one nothing plays.
    void initialize(void *engine, tagKest3DMode mode);

    /// Appends an item to the play list. `fileId` names the file in the engine, `fileName` is what
    /// is shown of it; `mode` (a tagKest3DMode) and `depth` (a share of the picture's width,
    /// negative out of the screen) are its 3D settings, used when the engine holds none for the
    /// file. When the item plays, it takes over what the controls can show: the nearest multiple of
    /// 0.006 from -0.3 to 0.3, 0 for NaN, and instead of a mode that is not in the list the one
    /// chosen for the item before.
    void addPlayItem(int fileId, const QString &fileName, bool audioOnly, int mode, double depth);

    /// Selects an item and plays it. A paused player only resumes the film that it has; hide and
    /// show it first. An index outside the list selects the first item; with an empty list nothing
    /// is selected.
    void setPlayIndex(int index);

    /// Index of the selected item; -1 when none was ever selected and after setPlayIndex() on an
    /// empty list, 0 after clear().
    int playIndex() const;

    int playItemCount() const;

    /// Frees every item. Does not stop what plays.
    void clear();

    /// Whether the user wants the settings of the current item for all of them. The widget has
    /// written them to the items already when accepted() arrives, but for those whose filter the
    /// engine refused.
    bool getApplyToAll() const;

    /// Removes a mode from the list that the user chooses from. Entries are removed by the place
    /// where they stand at first, so call it once at most, and not after an initialize() that has
    /// removed one; "off" cannot be removed.
    void set3DModeVisible(tagKest3DMode mode);

    /// Replaces a text at once; an unknown id is ignored. Mode texts go by the first place of their
    /// entry too: behind a removed mode they land one entry later.
    void setTranslationText(TranslationTextID id, const QString &text);

    /// Sets the 3D settings kept for a file, without a widget and whether or not the file is in a
    /// play list. Returns the engine's code, 0 for success.
    static int setMovie3DPropsDirect(void *engine, int fileId, int mode, double depth);

    /// Reads the 3D settings of an item, and whether they differ from those that the host gave.
    /// False, with the three outputs untouched, when there is no such item.
    bool movie3DPropsByIndex(int index, bool &changed, int &mode, double &depth) const;

    /// The same for the first item with this file id.
    bool movie3DPropsByFileID(int fileId, bool &changed, int &mode, double &depth) const;

    /// What the engine refused since the widget was created, one line each, oldest first, separated
    /// by "\r\n", such as "ERROR: KestPlay function failed. [Code: -7]"; empty when it refused
    /// nothing. Lines come of starting an item, pausing, ending an
    /// edit and setting a 3D filter; what else an engine answers is not looked at. Reading does not
    /// empty it.
    QString errorString() const;

    /// The size to give the widget: 702 x 585 pixels.
    QSize actualSize() const;

Q_SIGNALS:
    /// The user pressed OK.
    void accepted();

    /// The user pressed Cancel or Escape.
    void rejected();

private:
    PlayWidget_Impl *m_impl;
};
