// A hundred thousand calls in a random order with random arguments, against a small model of what
// each must return.
// Not here: what is seen of it, and calls from inside the callback (tst_kest_calls.cpp).
#include "clips.h"
#include "engine/mpv/kest_host.h"
#include "engine/videownd.h"

#include <QApplication>
#include <QtTest>

#include <map>
#include <memory>
#include <optional>
#include <random>

namespace {

constexpr int callCount = 100000;
constexpr int idCount = 6;  // of which the last is never given

/// What the engine must remember.
struct Model
{
    struct File
    {
        int code = KestOk;  ///< what playing it answers
        std::optional<int> kept;
    };

    struct Edit
    {
        int fileId = 0;
        int code = KestOk;
        std::optional<int> draft;
        bool inWindow = false;
        bool named = true;  ///< by its id, until that gets another file
    };

    bool open = true;
    std::map<int, File> files;
    std::optional<Edit> edit;  ///< goes on with its file, whatever path its id gets meanwhile

    int codeOfFile(int fileId) const { return files.count(fileId) ? KestOk : KestErrorFileId; }
    int codeOfEdit() const { return edit ? edit->code : int(KestErrorNoEdit); }

    void endEdit(bool save)
    {
        if (edit && save && edit->draft && edit->named)
            files[edit->fileId].kept = edit->draft;
        edit.reset();
    }
};

}  // namespace

class tst_KestWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        const char *const clip = "-f lavfi -i color=c=red:s=16x16:r=25:d=0.4 -c:v ffv1 -g 1";
        QVERIFY(!m_clips.make("film.mkv", clip).isEmpty());
        QVERIFY(!m_clips.make("sound.wav", "-f lavfi -i sine=d=0.4").isEmpty());
        m_paths = {{m_clips.path("film.mkv"), KestOk},
                   {m_clips.path("sound.wav"), KestOk},
                   {m_clips.path("missing.mkv"), KestErrorNotFound},
                   {m_clips.write("empty.mkv", {}), KestErrorEmpty},
                   {m_clips.write("text.mkv", "no film"), KestErrorNotMedia},
                   {m_clips.path("."), KestErrorNotAFile}};
    }
    void cleanup() { KestClose(m_engine); }

    void everyCallAnswersAsTheModelDoes_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (const unsigned seed : {1u, 2u, 3u, 4u})
            QTest::newRow(qPrintable(QString("seed %1").arg(seed))) << seed;
    }
    void everyCallAnswersAsTheModelDoes()
    {
        QFETCH(unsigned, seed);
        m_random.seed(seed);
        reopen();
        const Step steps[]
            = {&tst_KestWalk::play,         &tst_KestWalk::pause,      &tst_KestWalk::seek,
               &tst_KestWalk::changeVolume, &tst_KestWalk::duration,   &tst_KestWalk::mediaInfo,
               &tst_KestWalk::begin,        &tst_KestWalk::end,        &tst_KestWalk::addFilter,
               &tst_KestWalk::addKept,      &tst_KestWalk::readFilter, &tst_KestWalk::readKept,
               &tst_KestWalk::addFile,      &tst_KestWalk::removeFile, &tst_KestWalk::setLayout,
               &tst_KestWalk::deadHandle};
        for (int i = 0; i < callCount / 4; ++i) {
            (this->*steps[below(std::size(steps))])();
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QString("at call %1").arg(i)));
            if (below(400) == 0)
                disturb();
        }
    }

private:
    using Step = void (tst_KestWalk::*)();

    int below(std::size_t limit) { return int(m_random() % limit); }
    bool chance(int oneIn) { return below(std::size_t(oneIn)) == 0; }
    int anyId() { return below(idCount); }
    int anyKind() { return chance(8) ? below(20) - 10 : 9; }

    void reopen()
    {
        KestClose(m_engine);
        m_closed = m_engine;
        m_engine = KestOpen("null");
        QVERIFY(m_engine);
        m_model = Model();
        m_window = std::make_unique<CVideoWnd>();
        m_window->resize(16, 16);
        m_window->show();
    }

    /// What may come between any two calls.
    void disturb()
    {
        switch (below(6)) {
        case 0:
            reopen();
            break;
        case 1:
            if (m_model.edit && m_model.edit->inWindow)
                m_model.endEdit(false);
            m_window = std::make_unique<CVideoWnd>();
            m_window->show();
            break;
        case 2:
            m_window->setVisible(!m_window->isVisible());
            m_window->resize(1 + below(40), 1 + below(40));
            break;
        default:
            QTest::qWait(below(12));
        }
    }

    void play() { QCOMPARE(KestPlay(m_engine), m_model.codeOfEdit()); }
    void pause() { QCOMPARE(KestPause(m_engine), m_model.codeOfEdit()); }

    void seek()
    {
        const unsigned positions[] = {0, 1, 200, 400, 100000, ~0u};
        QCOMPARE(KestSetCurPos(m_engine, positions[below(6)]), m_model.codeOfEdit());
    }

    void changeVolume()
    {
        const int volumes[] = {0, 100, 200, -1, INT_MAX, INT_MIN};
        QCOMPARE(KestChangeVolume(m_engine, volumes[below(6)]), int(KestOk));
    }

    int codeOfMedia(int fileId) const
    {
        const auto found = m_model.files.find(fileId);
        return found == m_model.files.end() ? int(KestErrorFileId) : found->second.code;
    }

    void duration()
    {
        const int fileId = anyId();
        long long duration = -77;
        if (chance(8)) {
            QCOMPARE(KestGetMediaDuration(m_engine, fileId, nullptr), int(KestErrorArgument));
            return;
        }
        const int code = codeOfMedia(fileId);
        QCOMPARE(KestGetMediaDuration(m_engine, fileId, &duration), code);
        QCOMPARE(duration, code == KestOk ? 400LL : -77LL);
    }

    void mediaInfo()
    {
        const int fileId = anyId();
        void *records = this;
        if (chance(8)) {
            QCOMPARE(KestGetMediaInfo(m_engine, fileId, nullptr), int(KestErrorArgument));
            return;
        }
        const int code = codeOfMedia(fileId);
        QCOMPARE(KestGetMediaInfo(m_engine, fileId, &records), code == KestOk ? 1 : code);
        QCOMPARE(records == this, code != KestOk);
    }

    void begin()
    {
        if (chance(8)) {
            QCOMPARE(KestEditBegin(m_engine, nullptr), int(KestErrorArgument));
            return;
        }
        CVideoWnd *const window = chance(8) ? nullptr : m_window.get();
        const int fileId = anyId();
        EditBeginParams params
            = {1, fileId, 1.0, 16, 16, 16, 16, window, window, chance(8) ? nullptr : count, this};
        const int code = m_model.codeOfFile(fileId);
        QCOMPARE(KestEditBegin(m_engine, &params), code);
        if (code != KestOk)
            return;
        m_model.endEdit(true);
        const Model::File &file = m_model.files[fileId];
        m_model.edit = Model::Edit{fileId, file.code, file.kept, window != nullptr};
    }

    void end()
    {
        const bool save = chance(2);
        QCOMPARE(KestEditEnd(m_engine, save), m_model.edit ? KestOk : int(KestErrorNoEdit));
        m_model.endEdit(save);
    }

    static int codeOfFilter(int kind, const void *info)
    {
        if (!info)
            return KestErrorArgument;
        return kind == 9 ? KestOk : KestErrorFilterKind;
    }

    static int firstOf(int one, int other) { return one ? one : other; }

    void addFilter()
    {
        const int kind = anyKind();
        tagKestFilterInfo record = {0, 17, below(14), {}, below(100) / 100.0, {}};
        tagKestFilterInfo *const info = chance(8) ? nullptr : &record;
        const int code
            = firstOf(codeOfFilter(kind, info), m_model.edit ? KestOk : int(KestErrorNoEdit));
        QCOMPARE(KestAddFilter(m_engine, kind, info), code);
        if (code == KestOk)
            m_model.edit->draft = record.mode;
    }

    void addKept()
    {
        const int kind = anyKind();
        const int fileId = anyId();
        tagKestFilterInfo record = {0, 17, below(14), {}, below(100) / 100.0, {}};
        tagKestFilterInfo *const info = chance(8) ? nullptr : &record;
        const int code = firstOf(codeOfFilter(kind, info), m_model.codeOfFile(fileId));
        QCOMPARE(KestAddFilter2(m_engine, fileId, kind, info), code);
        if (code != KestOk)
            return;
        m_model.files[fileId].kept = record.mode;
        if (m_model.edit && m_model.edit->fileId == fileId && m_model.edit->named)
            m_model.edit->draft = record.mode;
    }

    /// Compares what a reading call said and wrote with the setting there is, or is not.
    static void compareRead(int code, int expected, const tagKestFilterInfo &record, int mode)
    {
        QCOMPARE(code, expected);
        QCOMPARE(record.mode, expected == KestOk ? mode : 77);
    }

    void readFilter()
    {
        const int kind = anyKind();
        tagKestFilterInfo record = {0, 0, 77, {}, 0, {}};
        tagKestFilterInfo *const info = chance(8) ? nullptr : &record;
        const std::optional<int> draft = m_model.edit ? m_model.edit->draft : std::nullopt;
        const int found = draft ? KestOk : int(KestErrorNoFilter);
        const int expected
            = firstOf(codeOfFilter(kind, info), m_model.edit ? found : int(KestErrorNoEdit));
        compareRead(KestGetFilter(m_engine, kind, info), expected, record, draft.value_or(0));
    }

    void readKept()
    {
        const int kind = anyKind();
        const int fileId = anyId();
        tagKestFilterInfo record = {0, 0, 77, {}, 0, {}};
        tagKestFilterInfo *const info = chance(8) ? nullptr : &record;
        const std::optional<int> kept
            = m_model.files.count(fileId) ? m_model.files[fileId].kept : std::nullopt;
        const int found = kept ? KestOk : int(KestErrorNoFilter);
        const int expected
            = firstOf(codeOfFilter(kind, info), firstOf(m_model.codeOfFile(fileId), found));
        compareRead(KestGetFilter2(m_engine, fileId, kind, info), expected, record,
                    kept.value_or(0));
    }

    void addFile()
    {
        const int fileId = below(idCount - 1);
        if (chance(8)) {
            QCOMPARE(KestAddFile(m_engine, fileId, chance(2) ? "" : nullptr),
                     int(KestErrorArgument));
            return;
        }
        const auto &[path, code] = m_paths[std::size_t(below(m_paths.size()))];
        QCOMPARE(KestAddFile(m_engine, fileId, path.toUtf8().constData()), int(KestOk));
        m_model.files[fileId] = {code, {}};
        if (m_model.edit && m_model.edit->fileId == fileId)
            m_model.edit->named = false;
    }

    void setLayout()
    {
        const int fileId = anyId(), layout = below(12) - 2;
        const bool known
            = layout >= KestLayoutAsTagged && layout <= KestLayoutTopBottomHalfRightFirst;
        QCOMPARE(KestSetStereoLayout(m_engine, fileId, layout),
                 firstOf(m_model.codeOfFile(fileId), known ? KestOk : KestErrorArgument));
    }

    void removeFile()
    {
        if (!chance(4))
            return;
        const int fileId = anyId();
        QCOMPARE(KestRemoveFile(m_engine, fileId), m_model.codeOfFile(fileId));
        if (m_model.edit && m_model.edit->fileId == fileId)
            m_model.endEdit(false);
        m_model.files.erase(fileId);
    }

    void deadHandle()
    {
        void *const handles[] = {nullptr, m_closed == m_engine ? nullptr : m_closed, this};
        void *const dead = handles[below(3)];
        long long duration = 0;
        tagKestFilterInfo info = {};
        const int codes[] = {KestPlay(dead),
                             KestPause(dead),
                             KestSetCurPos(dead, 0),
                             KestChangeVolume(dead, 0),
                             KestGetMediaDuration(dead, 0, &duration),
                             KestEditBegin(dead, nullptr),
                             KestEditEnd(dead, true),
                             KestAddFilter(dead, 9, &info),
                             KestGetFilter2(dead, 0, 9, &info),
                             KestAddFile(dead, 0, "x"),
                             KestRemoveFile(dead, 0)};
        for (const int code : codes)
            QCOMPARE(code, int(KestErrorHandle));
        KestClose(dead);
    }

    static int count(tagKestEvent *, void *) { return 0; }

    Clips m_clips;
    std::vector<std::pair<QString, int>> m_paths;
    std::mt19937 m_random;
    void *m_engine = nullptr;
    void *m_closed = nullptr;
    std::unique_ptr<CVideoWnd> m_window;
    Model m_model;
};

QTEST_MAIN(tst_KestWalk)
#include "tst_kest_walk.moc"
