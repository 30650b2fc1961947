// FakeKest: an engine that plays nothing, writes down every call in order, and fails on demand.
// Not here: any behaviour of a real engine beyond what a test tells it to answer.
#pragma once

#include "engine/kest.h"

#include <QHash>
#include <QStringList>

/// The one recording engine of a test program; reset() it in init(). GUI thread only, but for
/// sendEvent().
///
/// Every call becomes one line, such as "KestAddFilter2(7, 9, mode 4, depth -0.012)", and stands in
/// the log in the order of the calls. The window writes its lines there as well.
class FakeKest
{
public:
    static FakeKest &instance();

    /// A handle for PlayWidget::initialize(); nothing is behind it.
    static void *handle();

    /// Forgets calls, results and answers.
    void reset();

    /// The lines since the last call of this function or of reset().
    QStringList takeCalls();

    /// Makes a function, by its name, return `code` from now on; 0 makes it succeed again.
    void setResult(const QString &function, int code);

    /// The same for KestAddFilter2 on one file alone.
    void setFileResult(int fileId, int code);

    /// What KestGetMediaDuration writes for a file; it writes nothing for others.
    void setDuration(int fileId, long long ms);

    /// What KestGetFilter2 finds for a file. Until set, it returns non-zero.
    void setKeptFilter(int fileId, int mode, double depth);

    /// What KestGetFilter finds. Until set, it returns non-zero.
    void setEditFilter(int mode, double depth);

    /// The parameters of the last KestEditBegin.
    const EditBeginParams &editBeginParams() const { return m_params; }

    /// The record of the last KestAddFilter or KestAddFilter2.
    const tagKestFilterInfo &addedFilter() const { return m_added; }

    /// The handle that the last call came with.
    void *lastEngine() const { return m_engine; }

    /// Calls the callback of the last KestEditBegin, on the calling thread, and returns its result.
    int sendEvent(int eventType, int state, unsigned int time);

    // For the functions of the engine and the window only.
    void note(const QString &call) { m_calls.append(call); }
    int answer(void *engine, const QString &function, const QString &arguments);
    int begin(void *engine, const EditBeginParams &params);
    int add(void *engine, const QString &function, const QString &ids,
            const tagKestFilterInfo &info);
    int fileResult(int fileId, int otherwise) const
    {
        return m_fileResults.value(fileId, otherwise);
    }
    int duration(void *engine, int fileId, long long *ms);
    int keptFilter(void *engine, int fileId, int kind, tagKestFilterInfo *info);
    int editFilter(void *engine, int kind, tagKestFilterInfo *info);

private:
    struct Filter
    {
        int mode;
        double depth;
    };
    static void fill(tagKestFilterInfo *info, Filter filter);

    QStringList m_calls;
    QHash<QString, int> m_results;
    QHash<int, int> m_fileResults;
    QHash<int, long long> m_durations;
    QHash<int, Filter> m_keptFilters;
    QHash<int, Filter> m_editFilter;  // one entry at most, under 0
    EditBeginParams m_params = {};
    tagKestFilterInfo m_added = {};
    void *m_engine = nullptr;
};
