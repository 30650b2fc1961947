// What does painting a skinned slider take, next to a QSlider that a style sheet gives the same look?
// Not here: moving it (bench_drag.cpp).
#include "benchmarks/figures.h"
#include "controls/imagetracker.h"
#include "playwidget/playwidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QSlider>

#include <cstdio>

namespace {

constexpr int turns = 2000;
constexpr int range = 1000;

const char *const sameLook = R"(
    QSlider::groove:horizontal { height: 6px; border-image: url(:/skin/playslider_bc.png); }
    QSlider::sub-page:horizontal { height: 6px; border-image: url(:/skin/playslider_pc.png); }
    QSlider::handle:horizontal { width: %1px; height: %2px; margin: -%3px 0;
                                 image: url(:/skin/playslider.png); })";

/// Microseconds to paint the slider at a value.
template <typename Slider> double paint(Slider &slider, int value, QImage &screen)
{
    slider.setValue(value);
    QElapsedTimer time;
    time.start();
    slider.render(&screen);
    return double(time.nsecsElapsed()) / 1e3;
}

}  // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const PlayWidget skin;  // the images come with the library
    const QSize size(400, 20);
    const QSize handle = QImage(QStringLiteral(":/skin/playslider.png")).size();

    ImageTracker ours;
    ours.setSkin(QStringLiteral(":/skin/playslider.png"));
    ours.setRange(0, range);
    QSlider styled(Qt::Horizontal);
    styled.setRange(0, range);
    styled.setStyleSheet(QString::fromLatin1(sameLook)
                             .arg(handle.width())
                             .arg(handle.height())
                             .arg(handle.height() / 2 - 3));
    ours.resize(size);
    styled.resize(size);
    ours.show();
    styled.show();

    QImage screen(size, QImage::Format_RGB32);
    std::vector<double> our, other;
    for (int turn = 0; turn < turns; ++turn) {
        our.push_back(paint(ours, turn % range, screen));
        other.push_back(paint(styled, turn % range, screen));
    }
    std::printf("painting a slider of %d x %d, medians of %d, microseconds\n\n", size.width(),
                size.height(), turns);
    std::printf("ImageTracker%20.1f\nQSlider, styled%17.1f\nratio%27.2f\n", median(our),
                median(other), median(our) / median(other));
}
