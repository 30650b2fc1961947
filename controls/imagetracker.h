// ImageTracker: a horizontal slider drawn from skin images, with a value and a handle to drag.
// Not here: which images and which range a slider gets; its owner says so.
#pragma once

#include "controls/controls_global.h"

#include <QImage>
#include <QPoint>
#include <QSize>
#include <QWidget>

class QPainter;

/// A slider whose groove, optional progress bar and handle are images.
///
/// The handle is kept as the pixel column of its centre, which lies within `half` .. `width() - half`
/// after every press and drag; `half` is half the handle's width, rounded down. Values are steps
/// without a unit. The minimum is not an offset: only the width of the range, maximum - minimum,
/// scales values, so that value 0 always stands at the left end. With the minimum 0 this is the
/// ordinary linear mapping.
///
/// Setting the value never emits a signal; a press and a drag do. An owner can feed the slider from
/// a timer without hearing its own steps.
///
/// All lengths are logical pixels; the images' own pixels count only when the screen is painted.
/// GUI thread only.
class CONTROLS_EXPORT ImageTracker : public QWidget
{
    Q_OBJECT

public:
    /// The handle's look.
    enum State : int {
        Normal = 0,  ///< pointer away from the handle
        On = 1,      ///< pointer over the widget or over the handle
        Down = 2,    ///< left button pressed on the handle; shown as On
        Disable = 3  ///< presses and hovering are ignored; shown as Normal. The image "_disable"
                     ///< belongs to setEnabled(false).
    };

    /// Range 0 .. 10000, value 0, look Normal, progress bar shown, no images. The widget takes all
    /// the width it is given and keeps its height.
    explicit ImageTracker(QWidget *parent = nullptr);
    ~ImageTracker() override;

    /// Width of the three groove pieces side by side, height of the handle, in pixels. (0, 0)
    /// without images.
    QSize sizeHint() const override;

    /// The value as last set or dragged. A drag to the far right can pass the maximum by a few
    /// steps when the handle's width is odd.
    int getValue() const;

    /// Stores one end of the range, any int. The handle stays where it is and nothing is repainted
    /// until setValue. A maximum below the minimum is stored too; setValue then ignores every value.
    void setMinValue(int lValue);
    void setMaxValue(int lValue);
    void setRange(int lMin, int lMax);

    /// Starts or ends a drag without a press; emits nothing. The steps of a drag started here are
    /// measured from the pointer's place at the press or drag step before.
    void setMoveState(bool moving);

    /// Shows or hides the progress bar and repaints.
    void setShowProgressBar(bool show);

    /// Sets the handle's look and repaints, also when it is the same as before. An unknown value is
    /// shown as Normal. Only this function enters Disable; it and sliderLeaveEvent() leave it.
    void setState(ImageTracker::State lState);

    /// Ends a drag, shows the handle as Normal and emits sliderReleased(), whether or not a drag
    /// was running.
    void sliderLeaveEvent();

    /// The nearest column at which the handle's centre may stand: half .. width() - half. In a
    /// widget narrower than the handle: half for columns left of half, else width() - half.
    int checkValue(int column) const;

    /// Loads the nine images of a skin: the handle from `fileName`, the other eight from the same
    /// name with its last dot and what follows replaced by "_bl.png", "_bc.png", "_br.png",
    /// "_pl.png", "_pc.png", "_pr.png", "_on.png" and "_disable.png". Where the application runs on
    /// a high-density screen, "<name>@2x<extension>" beside a file is taken instead of it. A file
    /// that cannot be read leaves its piece empty; nothing is reported.
    ///
    /// setSkin keeps the handle in place and repaints. setImagePrefix puts the handle's centre at
    /// x = its width and its top at y = 0 and does not repaint: call setValue afterwards.
    /// Neither emits a signal.
    void setSkin(const QString &fileName);
    void setImagePrefix(const QString &fileName);

Q_SIGNALS:
    // Said of the mouse. What operates a slider otherwise, by keys or for assistive technology,
    // emits sliderPressed, valueChanged and sliderReleased, in this order.

    /// The user pressed the groove or dragged the handle: once for each press and drag step.
    void valueChanged(int lValue);
    /// Any mouse button was released over the slider, in every state; also by sliderLeaveEvent.
    void sliderReleased();
    /// The left button was pressed, on the handle or (after valueChanged) on the groove.
    void sliderPressed();

public Q_SLOTS:
    /// Sets the value, places the handle and repaints; emits nothing. A value outside the range is
    /// ignored. In a range of zero width its one value puts the handle at the left end.
    void setValue(int lValue);

protected:
    /// A left press on the handle starts a drag; on the groove it moves the handle there at once.
    /// While the widget is exactly as wide as the handle, no press or drag changes the value.
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void enterEvent(EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    friend class TrackerDrag;  // drags by keys and by assistive technology

    // imagetracker.cpp
    int half() const;
    bool isOverHandle(const QPoint &position) const;
    void moveHandle(int column);

    // imagetracker_skin.cpp
    static QSize logicalSize(const QImage &image);
    void loadImages(const QString &fileName);
    void paintGroove(QPainter &painter) const;
    void paintProgress(QPainter &painter) const;
    const QImage &shownHandle() const;

    QImage bgLeft;
    QImage bgCenter;
    QImage bgRight;
    QImage progressLeft;
    QImage progressCenter;
    QImage progressRight;
    QImage handleImage;
    QImage handleOnImage;
    QImage handleDisableImage;
    State state = Normal;
    bool moveState = false;
    int value = 0;
    int minValue = 0;
    int maxValue = 10000;
    QPoint handlePos;  // x: column of the handle's centre, y: its top row
    QSize handleSize;  // of handleImage; invalid until a skin is loaded
    QPoint pressPos;   // the pointer at the press, then at the previous step of the drag
    QPoint movePos;    // the pointer at the current step of the drag
    bool showProgressBar = true;
};
