// A long random walk over all calls, each answer compared with that of a small model.
// Not here: pictures and events; the walk only lets them happen.
#include "clips.h"
#include "enginestage.h"

#include <map>
#include <optional>
#include <random>

namespace {

constexpr int calls = 100000;
constexpr unsigned seed = 20250101;

/// What the engine has to remember.
struct Model
{
    struct Filter
    {
        int mode;
        double depth;
    };

    std::map<int, int> files;  // code that KestPlay returns for it
    std::map<int, Filter> kept;
    std::optional<int> edit;
    std::optional<Filter> draft;

    int fileCode(int id) const
    {
        const auto file = files.find(id);
        return file == files.end() ? int(KestErrorFileId) : file->second;
    }
    int editCode() const { return edit ? playCode : int(KestErrorNoEdit); }
    int playCode = KestOk;  // of the open edit

    void end(bool save)
    {
        if (save && edit && draft)
            kept[*edit] = *draft;
        edit.reset();
        draft.reset();
    }
};

}  // namespace

class tst_KestRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_paths = {{m_clips.fourColours("film.mkv", "64x36"), KestOk},
                   {m_clips.make("tone.ogg", "-f lavfi -i sine=d=1 -c:a libvorbis"), KestOk},
                   {m_clips.path("missing.mkv"), KestErrorNotFound},
                   {m_clips.write("empty.mkv", {}), KestErrorEmpty},
                   {m_clips.write("text.mkv", "no film"), KestErrorNotMedia}};
        QVERIFY(!m_paths[0].first.isEmpty() && !m_paths[1].first.isEmpty());
    }

    void everyAnswerIsTheModels()
    {
        for (int call = 0; call < calls; ++call) {
            const int kind = any(19);
            step(kind);
            if (QTest::currentTestFailed()) {
                qWarning("at call %d of kind %d", call, kind);
                return;
            }
            if (any(50) == 0)
                QTest::qWait(1);
        }
    }

private:
    int any(int below) { return int(m_random() % unsigned(below)); }

    void step(int kind)
    {
        void *const engine = m_stage->engine;
        const int id = any(6);
        const bool known = m_model.files.count(id);
        long long duration = -7;
        void *records = nullptr;
        switch (kind) {
        case 0: {
            const auto &[path, code] = m_paths[std::size_t(any(int(m_paths.size())))];
            QCOMPARE(m_stage->add(id, path), int(KestOk));
            m_model.files[id] = code;
            m_model.kept.erase(id);
            break;
        }
        case 1:
            QCOMPARE(KestRemoveFile(engine, id), known ? int(KestOk) : int(KestErrorFileId));
            if (m_model.edit == id)
                m_model.end(false);
            m_model.files.erase(id);
            m_model.kept.erase(id);
            break;
        case 2:
        case 3:
        case 4:
            begin(id, known);
            break;
        case 5:
        case 6: {
            const bool save = any(2);
            QCOMPARE(KestEditEnd(engine, save), m_model.edit ? int(KestOk) : int(KestErrorNoEdit));
            m_model.end(save);
            break;
        }
        case 7:
        case 8:
            QCOMPARE(KestPlay(engine), m_model.editCode());
            break;
        case 9:
            QCOMPARE(KestPause(engine), m_model.editCode());
            break;
        case 10:
        case 11:
            QCOMPARE(KestSetCurPos(engine, m_random() >> any(32)), m_model.editCode());
            break;
        case 12:
            QCOMPARE(KestChangeVolume(engine, any(300) - 50), int(KestOk));
            break;
        case 13:
            QCOMPARE(KestGetMediaDuration(engine, id, &duration), m_model.fileCode(id));
            QCOMPARE(duration == -7, m_model.fileCode(id) != KestOk);
            break;
        case 14:
            QCOMPARE(KestGetMediaInfo(engine, id, &records),
                     m_model.fileCode(id) == KestOk ? 1 : m_model.fileCode(id));
            break;
        case 15:
            setFilter(id, known);
            break;
        case 16:
            compareFilters(id, known);
            break;
        case 17:
            changeWindow();
            break;
        default:
            if (any(40) == 0)
                reopen();
            break;
        }
    }

    void begin(int id, bool known)
    {
        QCOMPARE(m_stage->begin(id), known ? int(KestOk) : int(KestErrorFileId));
        if (!known)
            return;
        m_model.end(true);
        m_model.edit = id;
        m_model.playCode = m_model.files[id];
        m_windowInUse = m_stage->window != nullptr;
        if (m_model.kept.count(id))
            m_model.draft = m_model.kept[id];
    }

    void setFilter(int id, bool known)
    {
        const Model::Filter filter = {any(13), (any(2001) - 1000) / 1000.0};
        tagKestFilterInfo info = {};
        info.mode = filter.mode;
        info.depth = filter.depth;
        if (any(2)) {
            QCOMPARE(KestAddFilter(m_stage->engine, 9, &info),
                     m_model.edit ? int(KestOk) : int(KestErrorNoEdit));
            if (m_model.edit)
                m_model.draft = filter;
            return;
        }
        QCOMPARE(KestAddFilter2(m_stage->engine, id, 9, &info),
                 known ? int(KestOk) : int(KestErrorFileId));
        if (known)
            m_model.kept[id] = filter;
        if (known && m_model.edit == id)
            m_model.draft = filter;
    }

    void compareFilters(int id, bool known)
    {
        tagKestFilterInfo info = {};
        const int draft = KestGetFilter(m_stage->engine, 9, &info);
        QCOMPARE(draft,
                 !m_model.edit       ? int(KestErrorNoEdit)
                     : m_model.draft ? int(KestOk)
                                     : int(KestErrorNoFilter));
        if (draft == KestOk)
            QVERIFY(info.mode == m_model.draft->mode && info.depth == m_model.draft->depth);
        const int kept = KestGetFilter2(m_stage->engine, id, 9, &info);
        QCOMPARE(kept,
                 !known                       ? int(KestErrorFileId)
                     : m_model.kept.count(id) ? int(KestOk)
                                              : int(KestErrorNoFilter));
        if (kept == KestOk)
            QVERIFY(info.mode == m_model.kept[id].mode && info.depth == m_model.kept[id].depth);
    }

    void changeWindow()
    {
        switch (any(5)) {
        case 0:
            m_stage->window.reset();
            if (std::exchange(m_windowInUse, false))
                m_model.end(false);
            break;
        case 1:
            if (!m_stage->window)
                m_stage->window = std::make_unique<CVideoWnd>();
            m_stage->window->show();
            break;
        default:
            if (m_stage->window) {
                m_stage->window->resize(1 + any(300), 1 + any(300));
                m_stage->window->setVisible(any(3));
                m_stage->clearView();
            }
        }
    }

    void reopen()
    {
        m_stage = std::make_unique<EngineStage>();
        m_model = {};
        m_windowInUse = false;
    }

    Clips m_clips;
    std::vector<std::pair<QString, int>> m_paths;
    std::mt19937 m_random{seed};
    std::unique_ptr<EngineStage> m_stage = std::make_unique<EngineStage>();
    Model m_model;
    bool m_windowInUse = false;  // the open edit renders into the window that there is
};

QTEST_MAIN(tst_KestRandom)
#include "tst_kest_random.moc"
