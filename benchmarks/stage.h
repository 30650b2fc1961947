// Stage: our engine, without sound, and a window that it shows its pictures in.
// Not here: what is measured with them.
#pragma once

#include "benchmarks/barcodeclip.h"
#include "benchmarks/paintwatch.h"
#include "engine/mpv/kest_host.h"
#include "engine/videownd.h"

/// The size of the picture in the widget's own window.
constexpr QSize shownSize(702, 395);

class Stage : public PaintWatch
{
public:
    Stage(int &argc, char **argv)
        : PaintWatch(argc, argv)
        , engine(KestOpen("null"))
    {
        window.resize(shownSize);
        window.show();
        runUntil([this] { return window.backingStore() != nullptr; });
        watch(&window, [this] {
            ++paints;
            shown = barcodeOf(pixelsOf(window));
            if (painted)
                painted();
        });
    }
    ~Stage() override { KestClose(engine); }

    void open(const QString &path)
    {
        KestAddFile(engine, 1, path.toUtf8().constData());
        EditBeginParams params = {};
        params.mode = params.fileId = 1;
        params.factor = 1.0;
        params.firstHeight = params.secondHeight = window.height();
        params.firstWidth = params.secondWidth = window.width();
        params.firstWindow = params.secondWindow = &window;
        params.callback = &Stage::take;
        params.userData = this;
        KestEditBegin(engine, &params);
        window.resetSessionState();
    }

    /// Opens it and waits for its first picture.
    void show(const QString &path)
    {
        open(path);
        runUntil([this] { return shown >= 0; });
    }

    void set3D(int mode, double depth)
    {
        tagKestFilterInfo info = {};
        info.type = 17;
        info.mode = mode;
        info.depth = depth;
        KestAddFilter(engine, 9, &info);
    }

    /// Leaves a black window.
    void leave()
    {
        KestEditEnd(engine, false);
        KestRemoveFile(engine, 1);
        CVideoWnd::tagMsgParams empty = {4, -1, nullptr, nullptr};
        window.SendCommand(&empty);
        runUntil([this] { return shown < 0; });
    }

    void *const engine;
    CVideoWnd window;
    int shown = -1;  ///< number of the picture that was painted last, as barcodeOf() tells it
    int paints = 0;
    bool ended = false;
    std::function<void()> painted;

private:
    static int take(tagKestEvent *event, void *stage)
    {
        if (event->state == 5)
            static_cast<Stage *>(stage)->ended = true;
        return 0;
    }
};
