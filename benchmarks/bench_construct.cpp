// What does making the widget take, next to the same form with Qt's own widgets in it: bare, and with
// the same style sheet, icons and images? Not here: showing and painting it.
#include "benchmarks/figures.h"
#include "playwidget/modelist.h"
#include "playwidget/playwidget.h"
#include "ui_plainform.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>

#include <cstdio>
#include <memory>

namespace {

constexpr int turns = 200;

/// The form of the widget, in which each control is the one of Qt's that ours is nearest to.
struct Plain
{
    Plain() { form.setupUi(&widget); }

    QWidget widget;
    Ui_PlayWidget_Impl form;
};

QIcon icon(const QString &name)
{
    QIcon icon;
    icon.addFile(name + "_on.png", QSize(), QIcon::Active);
    icon.addFile(name + "_down.png", QSize(), QIcon::Selected);
    icon.addFile(name + "_disable.png", QSize(), QIcon::Disabled);
    icon.addFile(name + ".png");
    return icon;
}

QString sliderStyle(const QString &name)
{
    return QString("QSlider::groove:horizontal { border-image: url(:/skin/%1_bc.png); }"
                   "QSlider::handle:horizontal { image: url(:/skin/%1.png); }")
        .arg(name);
}

/// With what the skin has: an icon of four pictures for each button, the modes with theirs, two
/// skinned sliders, the style sheet, the picture shown for music.
struct Skinned : Plain
{
    Skinned()
        : music(":/skin/music.png")
    {
        const std::pair<QToolButton *, const char *> buttons[]
            = {{form.btnVolumeLeft, "volume_left"},
               {form.btnVolumeRight, "volume_right"},
               {form.btnPriorFile, "prior_file"},
               {form.btnPriorPart, "prior_part"},
               {form.btnNextPart, "next_part"},
               {form.btnNextFile, "next_file"},
               {form.btnCapture, "capture"},
               {form.btnCaptureRight, "capture_right"},
               {form.btnPlay, "play"}};
        for (const auto &[button, name] : buttons)
            button->setIcon(icon(QString(":/skin/") + name));
        pause = icon(":/skin/pause");
        for (const ModeRow &row : modeRows)
            form.cbx3DMode->addItem(QIcon(row.icon), row.text, row.mode);
        form.volumeTracker->setStyleSheet(sliderStyle("volumeslider"));
        form.playTracker->setStyleSheet(sliderStyle("playslider"));
        QFile sheet(":/qss/Varlume.qss");
        if (sheet.open(QIODevice::ReadOnly))
            widget.setStyleSheet(QString::fromLatin1(sheet.readAll()).section("QPushButton", 0, 0));
    }

    QImage music;
    QIcon pause;
};

/// Microseconds; what is made goes before the next is timed.
template <typename Widget> double timeToMake()
{
    QElapsedTimer time;
    time.start();
    const auto made = std::make_unique<Widget>();
    return double(time.nsecsElapsed()) / 1e3;
}

}  // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const PlayWidget first;  // fonts and plugins are loaded once
    std::vector<double> ours, plain, skinned;
    for (int turn = 0; turn < turns; ++turn) {
        ours.push_back(timeToMake<PlayWidget>());
        plain.push_back(timeToMake<Plain>());
        skinned.push_back(timeToMake<Skinned>());
    }
    std::printf("making a player's widgets, medians of %d, microseconds\n\n", turns);
    std::printf("PlayWidget              %9.0f\n", median(ours));
    std::printf("Qt's own, same skin     %9.0f   ratio %6.2f\n", median(skinned),
                median(ours) / median(skinned));
    std::printf("Qt's own, without skin  %9.0f   ratio %6.2f\n", median(plain),
                median(ours) / median(plain));
}
