// The recording engine: the functions of an engine and the video window, each one line in the log.
// Not here: anything that moves by itself; events come from the test.
//
// All of it is one file on purpose: whoever links the static library for FakeKest gets every
// function of the engine with it, and none from another engine behind it on the command line.
#include "fakekest/fakekest.h"

#include "engine/mpv/kest_host.h"
#include "engine/videownd.h"

#include <QCoreApplication>
#include <QHash>
#include <QPointer>
#include <QThread>
#include <QTimer>

#include <optional>
#include <utility>

namespace {

struct Setting
{
    int mode;
    double depth;
};

struct Record
{
    QStringList calls;
    QHash<QString, int> results;
    QHash<QString, int> delays;
    QHash<int, int> fileResults;
    QHash<int, long long> durations;
    QHash<int, Setting> keptFilters;
    std::optional<Setting> editFilter;
    EditBeginParams params = {};
    QPointer<CVideoWnd> window;  // of the edit, as long as it is there
    tagKestFilterInfo added = {};
    void *engine = nullptr;
};

Record &record()
{
    static Record theOne;
    return theOne;
}

constexpr const char *functions[] = {
    "KestOpen",         "KestClose",           "KestAddFile",
    "KestRemoveFile",   "KestSetStereoLayout", "KestReaderOpen",
    "KestReaderNext",   "KestReaderClose",     "KestPlay",
    "KestPause",        "KestSetCurPos",       "KestChangeVolume",
    "KestEditBegin",    "KestEditEnd",         "KestGetMediaDuration",
    "KestGetMediaInfo", "KestAddFilter",       "KestAddFilter2",
    "KestGetFilter",    "KestGetFilter2",
};

bool isFunction(const QString &name)
{
    for (const char *function : functions)
        if (name == QLatin1String(function))
            return true;
    qWarning("FakeKest: there is no function %s to prepare", qPrintable(name));
    return false;
}

QString quoted(const char *text)
{
    return text ? QStringLiteral("\"%1\"").arg(QString::fromUtf8(text)) : QStringLiteral("nullptr");
}

/// Writes a call down, takes the time it shall take and returns the code it shall return.
int answer(void *engine, const char *function, const QString &arguments)
{
    const QString name = QString::fromLatin1(function);
    record().engine = engine;
    record().calls.append(QStringLiteral("%1(%2)").arg(name, arguments));
    if (const int ms = record().delays.value(name))
        QThread::msleep(ms);
    return record().results.value(name, KestOk);
}

/// The same for a function that cannot do without `pointer`.
int answerWith(const void *pointer, void *engine, const char *function, const QString &arguments)
{
    const int code = answer(engine, function, arguments);
    return pointer ? code : KestErrorArgument;
}

int addFilter(void *engine, const char *function, const QString &ids, const tagKestFilterInfo *info)
{
    if (!info)
        return answerWith(info, engine, function, ids + QStringLiteral(", nullptr"));
    record().added = *info;
    return answer(
        engine, function,
        QStringLiteral("%1, mode %2, depth %3").arg(ids).arg(info->mode).arg(info->depth));
}

/// Completes a call that reads a filter and was answered by `code`.
int readFilter(int code, const std::optional<Setting> &found, tagKestFilterInfo *info)
{
    if (code != KestOk)
        return code;
    if (!found)
        return KestErrorNoFilter;
    info->mode = found->mode;
    info->depth = found->depth;
    return KestOk;
}

std::optional<Setting> keptFilter(int fileId)
{
    const auto found = record().keptFilters.constFind(fileId);
    return found == record().keptFilters.constEnd() ? std::nullopt : std::optional<Setting>(*found);
}

int callBack(const EditBeginParams &edit, tagKestEvent event)
{
    return edit.callback ? edit.callback(&event, edit.userData) : KestErrorNoEdit;
}

}  // namespace

// --- for tests

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
    record() = Record();
}

QStringList FakeKest::takeCalls()
{
    return std::exchange(record().calls, QStringList());
}

QStringList FakeKest::calls() const
{
    return record().calls;
}

void FakeKest::note(const QString &line)
{
    record().calls.append(line);
}

void FakeKest::setResult(const QString &function, int code)
{
    if (isFunction(function))
        record().results[function] = code;
}

void FakeKest::setFileResult(int fileId, int code)
{
    record().fileResults[fileId] = code;
}

void FakeKest::setDelay(const QString &function, int ms)
{
    if (isFunction(function))
        record().delays[function] = qMax(0, ms);
}

void FakeKest::setDuration(int fileId, long long ms)
{
    record().durations[fileId] = ms;
}

void FakeKest::setKeptFilter(int fileId, int mode, double depth)
{
    record().keptFilters[fileId] = {mode, depth};
}

void FakeKest::setEditFilter(int mode, double depth)
{
    record().editFilter = Setting{mode, depth};
}

const EditBeginParams &FakeKest::editBeginParams() const
{
    return record().params;
}

const tagKestFilterInfo &FakeKest::addedFilter() const
{
    return record().added;
}

void *FakeKest::lastEngine() const
{
    return record().engine;
}

int FakeKest::sendEvent(int eventType, int state, unsigned int time)
{
    return callBack(record().params, {eventType, state, time});
}

void FakeKest::sendEventLater(int ms, int eventType, int state, unsigned int time)
{
    const EditBeginParams edit = record().params;
    QObject *context = QCoreApplication::instance();
    if (edit.firstWindow)
        context = record().window;
    if (!context)
        return;
    QTimer::singleShot(ms, context, [=] { (void)callBack(edit, {eventType, state, time}); });
}

// --- engine/mpv/kest_host.h

void *KestOpen(const char *audioOutput)
{
    const int code = answer(FakeKest::handle(), "KestOpen", quoted(audioOutput));
    return code == KestOk ? FakeKest::handle() : nullptr;
}

void KestClose(void *engine)
{
    (void)answer(engine, "KestClose", QString());
}

int KestAddFile(void *engine, int fileId, const char *utf8Path)
{
    return answerWith(utf8Path, engine, "KestAddFile",
                      QStringLiteral("%1, %2").arg(fileId).arg(quoted(utf8Path)));
}

int KestRemoveFile(void *engine, int fileId)
{
    return answer(engine, "KestRemoveFile", QString::number(fileId));
}

int KestSetStereoLayout(void *engine, int fileId, int layout)
{
    return answer(engine, "KestSetStereoLayout", QStringLiteral("%1, %2").arg(fileId).arg(layout));
}

int KestReaderOpen(void *engine, int fileId, void **reader)
{
    const int code = answerWith(reader, engine, "KestReaderOpen", QString::number(fileId));
    if (code == KestOk)
        *reader = FakeKest::handle();
    return code;
}

int KestReaderNext(void *reader, KestPicture *picture)
{
    const int code = answerWith(picture, reader, "KestReaderNext", QString());
    return code == KestOk ? KestAtEnd : code;
}

void KestReaderClose(void *reader)
{
    (void)answer(reader, "KestReaderClose", QString());
}

const char *KestErrorText(int code)
{
    return code == KestOk ? "No error" : "The recording engine was told to fail";
}

// --- engine/kest.h

int KestPlay(void *engine)
{
    return answer(engine, "KestPlay", QString());
}

int KestPause(void *engine)
{
    return answer(engine, "KestPause", QString());
}

int KestSetCurPos(void *engine, unsigned int position)
{
    return answer(engine, "KestSetCurPos", QString::number(position));
}

int KestChangeVolume(void *engine, int volume)
{
    return answer(engine, "KestChangeVolume", QString::number(volume));
}

int KestGetMediaDuration(void *engine, int fileId, long long *duration)
{
    const int code = answerWith(duration, engine, "KestGetMediaDuration", QString::number(fileId));
    if (code == KestOk)
        *duration = record().durations.value(fileId, *duration);
    return code;
}

int KestGetMediaInfo(void *engine, int fileId, void **records)
{
    return answerWith(records, engine, "KestGetMediaInfo", QString::number(fileId));
}

int KestEditBegin(void *engine, EditBeginParams *params)
{
    if (params) {
        record().params = *params;
        record().window = params->firstWindow;
    }
    return answerWith(params, engine, "KestEditBegin",
                      params ? QString::number(params->fileId) : quoted(nullptr));
}

int KestEditEnd(void *engine, bool save)
{
    return answer(engine, "KestEditEnd", save ? QStringLiteral("true") : QStringLiteral("false"));
}

int KestAddFilter(void *engine, int kind, tagKestFilterInfo *info)
{
    return addFilter(engine, "KestAddFilter", QString::number(kind), info);
}

int KestAddFilter2(void *engine, int fileId, int kind, tagKestFilterInfo *info)
{
    const int code
        = addFilter(engine, "KestAddFilter2", QStringLiteral("%1, %2").arg(fileId).arg(kind), info);
    return record().fileResults.value(fileId, code);
}

int KestGetFilter(void *engine, int kind, tagKestFilterInfo *info)
{
    const int code = answerWith(info, engine, "KestGetFilter", QString::number(kind));
    return readFilter(code, record().editFilter, info);
}

int KestGetFilter2(void *engine, int fileId, int kind, tagKestFilterInfo *info)
{
    const int code = answerWith(info, engine, "KestGetFilter2",
                                QStringLiteral("%1, %2").arg(fileId).arg(kind));
    return readFilter(code, keptFilter(fileId), info);
}

// --- engine/videownd.h

CVideoWnd::CVideoWnd(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , m_view(nullptr)
{
    setMouseTracking(true);
}

void CVideoWnd::SendCommand(tagMsgParams *params)
{
    if (params)
        FakeKest::instance().note(QStringLiteral("CVideoWnd::SendCommand(%1, %2)")
                                      .arg(params->command)
                                      .arg(params->param));
}

void CVideoWnd::UpdateView()
{
    FakeKest::instance().note(QStringLiteral("CVideoWnd::UpdateView()"));
}

void CVideoWnd::resetSessionState()
{
    FakeKest::instance().note(QStringLiteral("CVideoWnd::resetSessionState()"));
}
