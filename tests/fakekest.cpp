// The recording engine: the twelve functions and the video window, each one line in the log.
// Not here: anything that moves by itself; events come from the test.
#include "fakekest.h"

#include "engine/videownd.h"

#include <utility>

FakeKest &FakeKest::instance()
{
    static FakeKest fake;
    return fake;
}

void *FakeKest::handle()
{
    static int something;
    return &something;
}

void FakeKest::reset()
{
    *this = FakeKest();
}

QStringList FakeKest::takeCalls()
{
    return std::exchange(m_calls, QStringList());
}

void FakeKest::setResult(const QString &function, int code)
{
    m_results[function] = code;
}

void FakeKest::setFileResult(int fileId, int code)
{
    m_fileResults[fileId] = code;
}

void FakeKest::setDuration(int fileId, long long ms)
{
    m_durations[fileId] = ms;
}

void FakeKest::setKeptFilter(int fileId, int mode, double depth)
{
    m_keptFilters[fileId] = {mode, depth};
}

void FakeKest::setEditFilter(int mode, double depth)
{
    m_editFilter[0] = {mode, depth};
}

int FakeKest::sendEvent(int eventType, int state, unsigned int time)
{
    tagKestEvent event = {eventType, state, time};
    return m_params.callback(&event, m_params.userData);
}

int FakeKest::answer(void *engine, const QString &function, const QString &arguments)
{
    m_engine = engine;
    note(QStringLiteral("%1(%2)").arg(function, arguments));
    return m_results.value(function, 0);
}

int FakeKest::begin(void *engine, const EditBeginParams &params)
{
    m_params = params;
    return answer(engine, QStringLiteral("KestEditBegin"), QString::number(params.fileId));
}

int FakeKest::add(void *engine, const QString &function, const QString &ids,
                  const tagKestFilterInfo &info)
{
    m_added = info;
    return answer(engine, function,
                  QStringLiteral("%1, mode %2, depth %3").arg(ids).arg(info.mode).arg(info.depth));
}

int FakeKest::duration(void *engine, int fileId, long long *ms)
{
    if (m_durations.contains(fileId))
        *ms = m_durations[fileId];
    return answer(engine, QStringLiteral("KestGetMediaDuration"), QString::number(fileId));
}

int FakeKest::keptFilter(void *engine, int fileId, int kind, tagKestFilterInfo *info)
{
    const int code = answer(engine, QStringLiteral("KestGetFilter2"),
                            QStringLiteral("%1, %2").arg(fileId).arg(kind));
    if (code != 0 || !m_keptFilters.contains(fileId))
        return code != 0 ? code : -1;
    fill(info, m_keptFilters[fileId]);
    return 0;
}

int FakeKest::editFilter(void *engine, int kind, tagKestFilterInfo *info)
{
    const int code = answer(engine, QStringLiteral("KestGetFilter"), QString::number(kind));
    if (code != 0 || m_editFilter.isEmpty())
        return code != 0 ? code : -1;
    fill(info, m_editFilter[0]);
    return 0;
}

void FakeKest::fill(tagKestFilterInfo *info, Filter filter)
{
    info->mode = filter.mode;
    info->depth = filter.depth;
}

int KestPlay(void *engine)
{
    return FakeKest::instance().answer(engine, QStringLiteral("KestPlay"), QString());
}

int KestPause(void *engine)
{
    return FakeKest::instance().answer(engine, QStringLiteral("KestPause"), QString());
}

int KestSetCurPos(void *engine, unsigned int position)
{
    return FakeKest::instance().answer(engine, QStringLiteral("KestSetCurPos"),
                                       QString::number(position));
}

int KestChangeVolume(void *engine, int volume)
{
    return FakeKest::instance().answer(engine, QStringLiteral("KestChangeVolume"),
                                       QString::number(volume));
}

int KestGetMediaDuration(void *engine, int fileId, long long *duration)
{
    return FakeKest::instance().duration(engine, fileId, duration);
}

int KestGetMediaInfo(void *engine, int fileId, void **)
{
    return FakeKest::instance().answer(engine, QStringLiteral("KestGetMediaInfo"),
                                       QString::number(fileId));
}

int KestEditBegin(void *engine, EditBeginParams *params)
{
    return FakeKest::instance().begin(engine, *params);
}

int KestEditEnd(void *engine, bool save)
{
    return FakeKest::instance().answer(engine, QStringLiteral("KestEditEnd"),
                                       save ? QStringLiteral("true") : QStringLiteral("false"));
}

int KestAddFilter(void *engine, int kind, tagKestFilterInfo *info)
{
    return FakeKest::instance().add(engine, QStringLiteral("KestAddFilter"), QString::number(kind),
                                    *info);
}

int KestAddFilter2(void *engine, int fileId, int kind, tagKestFilterInfo *info)
{
    FakeKest &fake = FakeKest::instance();
    const int code = fake.add(engine, QStringLiteral("KestAddFilter2"),
                              QStringLiteral("%1, %2").arg(fileId).arg(kind), *info);
    return fake.fileResult(fileId, code);
}

int KestGetFilter(void *engine, int kind, tagKestFilterInfo *info)
{
    return FakeKest::instance().editFilter(engine, kind, info);
}

int KestGetFilter2(void *engine, int fileId, int kind, tagKestFilterInfo *info)
{
    return FakeKest::instance().keptFilter(engine, fileId, kind, info);
}

CVideoWnd::CVideoWnd(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , m_view(nullptr)
{
    setMouseTracking(true);
}

void CVideoWnd::SendCommand(tagMsgParams *params)
{
    FakeKest::instance().note(
        QStringLiteral("CVideoWnd::SendCommand(%1, %2)").arg(params->command).arg(params->param));
}

void CVideoWnd::UpdateView()
{
    FakeKest::instance().note(QStringLiteral("CVideoWnd::UpdateView()"));
}

void CVideoWnd::resetSessionState()
{
    FakeKest::instance().note(QStringLiteral("CVideoWnd::resetSessionState()"));
}
