// What does the GUI thread spend on a picture, next to a plain drawImage() of the same?
// Not here: the render thread's share (bench_compose.cpp, bench_play.cpp).
#include "benchmarks/figures.h"
#include "benchmarks/paintwatch.h"
#include "engine/mpv/videoview.h"

#include <QPainter>

#include <ctime>

namespace {

constexpr int turns = 500;

/// Shows a picture in the plainest way there is.
class Picture : public QWidget
{
public:
    Picture() { setAttribute(Qt::WA_OpaquePaintEvent); }
    void show(const QImage &picture)
    {
        m_picture = picture;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).drawImage(0, 0, m_picture); }

private:
    QImage m_picture;
};

double threadMicroseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e6 + double(now.tv_nsec) / 1e3;
}

/// From the order to paint until the pixels are on their way.
template <typename Order> double paint(PaintWatch &application, QWidget &window, Order order)
{
    bool painted = false;
    application.watch(&window, [&painted] { painted = true; });
    const double begin = threadMicroseconds();
    order();
    application.runUntil([&painted] { return painted; });
    const double spent = threadMicroseconds() - begin;
    application.watch(nullptr, {});
    return spent;
}

void measure(PaintWatch &application, QSize size)
{
    const auto mailbox = std::make_shared<Mailbox>();
    CVideoWnd ours;
    Picture plain;
    for (QWidget *window : std::initializer_list<QWidget *>{&ours, &plain}) {
        window->resize(size);
        window->QWidget::show();
    }
    mailbox->beginEdit({}, {size, 0});
    mailbox->filmBegun();
    VideoView::of(&ours)->show(mailbox);
    application.runFor(300);

    // A picture each, so that neither finds in the cache what the other has read.
    QImage ourPicture(size, QImage::Format_RGB32);
    ourPicture.fill(Qt::darkCyan);
    const QImage otherPicture = ourPicture.copy();
    std::vector<double> our, other;
    const auto paintOurs = [&] {
        our.push_back(paint(application, ours, [&] {
            mailbox->post({ourPicture, 0, 0}, mailbox->epoch());
        }));
    };
    const auto paintOther
        = [&] { other.push_back(paint(application, plain, [&] { plain.show(otherPicture); })); };
    for (int turn = 0; turn < turns; turn += 2) {
        paintOurs();
        paintOther();
        paintOther();
        paintOurs();
    }
    std::printf("%4d x %-4d%10.1f%10.1f%10.2f  <= 1.2\n", size.width(), size.height(), median(our),
                median(other), median(our) / median(other));
}

}  // namespace

int main(int argc, char **argv)
{
    PaintWatch application(argc, argv);
    std::printf("CPU of the GUI thread for each picture, medians of %d, microseconds\n\n", turns);
    std::printf("%-11s%10s%10s%10s  aim\n", "", "CVideoWnd", "drawImage", "ratio");
    for (const QSize size : {QSize(702, 395), QSize(1280, 720)})
        measure(application, size);
}
