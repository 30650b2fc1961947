// Loading the skin: icons, slider images and ranges, the list of modes, the style sheet.
// Not here: the images themselves (resources/), the texts that hosts replace.
#include "playwidget/modelist.h"
#include "playwidget/playwidget_impl.h"

#include <QFile>
#include <QPushButton>

namespace {

constexpr int timeTextSize = 11;  // pixels

QIcon stateIcon(const QString &name)
{
    const QString path = QStringLiteral(":/skin/") + name;
    QIcon icon;
    icon.addFile(path + QStringLiteral("_on.png"), QSize(), QIcon::Active, QIcon::Off);
    icon.addFile(path + QStringLiteral("_down.png"), QSize(), QIcon::Selected, QIcon::Off);
    icon.addFile(path + QStringLiteral("_disable.png"), QSize(), QIcon::Disabled, QIcon::Off);
    icon.addFile(path + QStringLiteral(".png"), QSize(), QIcon::Normal, QIcon::Off);
    return icon;
}

void skinButton(IconButton *button, const QIcon &icon)
{
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setIcon(icon);
}

void skinSlider(ImageTracker *slider, const QString &handle, int maximum, int value)
{
    slider->setImagePrefix(handle);
    slider->setShowProgressBar(false);
    slider->setMinValue(0);
    slider->setMaxValue(maximum);
    slider->setValue(value);
    slider->setState(ImageTracker::Normal);
}

}  // namespace

void PlayWidget_Impl::loadSkin()
{
#ifdef PLAYWIDGET_STATIC
    Q_INIT_RESOURCE(Varlume);  // the linker leaves out what nobody asks for
#endif
    loadButtonIcons();
    loadSliders();
    for (const auto standard : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel})
        ui.buttonBox->button(standard)->setProperty("useStyleSheet", QStringLiteral("true"));
    loadModes();
    loadTimeLabels();
    ui.btnCapture->setVisible(false);
    ui.btnCaptureRight->setVisible(false);
    loadStyleSheet();
}

void PlayWidget_Impl::loadButtonIcons()
{
    skinButton(ui.btnVolumeLeft, stateIcon(QStringLiteral("volume_left")));
    skinButton(ui.btnVolumeRight, stateIcon(QStringLiteral("volume_right")));
    skinButton(ui.btnPriorFile, stateIcon(QStringLiteral("prior_file")));
    skinButton(ui.btnPriorPart, stateIcon(QStringLiteral("prior_part")));
    skinButton(ui.btnNextPart, stateIcon(QStringLiteral("next_part")));
    skinButton(ui.btnNextFile, stateIcon(QStringLiteral("next_file")));
    skinButton(ui.btnCapture, stateIcon(QStringLiteral("capture")));
    skinButton(ui.btnCaptureRight, stateIcon(QStringLiteral("capture_right")));
    playIcon = stateIcon(QStringLiteral("play"));
    pauseIcon = stateIcon(QStringLiteral("pause"));
    skinButton(ui.btnPlay, playIcon);
}

void PlayWidget_Impl::loadSliders()
{
    skinSlider(ui.volumeTracker, QStringLiteral(":/skin/volumeslider.png"), 200, 100);
    skinSlider(ui.playTracker, QStringLiteral(":/skin/playslider.png"), 1000, 0);
}

void PlayWidget_Impl::loadModes()
{
    for (const ModeRow &row : modeRows)
        ui.cbx3DMode->addItem(QIcon(), QString::fromLatin1(row.text), row.mode);
    for (int i = 0; i < ui.cbx3DMode->count(); ++i)
        ui.cbx3DMode->setItemIcon(i, QIcon(QString::fromLatin1(modeRows[i].icon)));
}

// The bar is laid out in pixels, so its times must not grow with the platform's font. The elapsed
// time stands beside the slider: Qt aligns a label by the direction of its text, not of its layout.
void PlayWidget_Impl::loadTimeLabels()
{
    for (QLabel *label : {ui.lblElapsedTime, ui.lblRemainTime}) {
        QFont font = label->font();
        font.setPixelSize(timeTextSize);
        label->setFont(font);
    }
    ui.lblElapsedTime->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

// The rules from the first push button on are for hosts that skin their whole dialog. Inside this
// widget the standard controls keep the platform's look.
void PlayWidget_Impl::loadStyleSheet()
{
    QFile file(QStringLiteral(":/qss/Varlume.qss"));
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const QString rules = QString::fromLatin1(text.constData());
    setStyleSheet(rules.left(rules.indexOf(QStringLiteral("QPushButton"))));
}
