// A hundred thousand steps, each a call or more, in a random order with random arguments, against a
// small model of what each must return.
// Not here: what is seen of it, and calls from inside the callback (tst_kest_calls.cpp).
#include "clips.h"
#include "engine/mpv/kest_host.h"
#include "engine/videownd.h"

#include <QApplication>
#include <QtTest>

#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <random>

namespace {

constexpr int stepCount = 100000;
constexpr int idCount = 6;  // of which the last is never given
constexpr int neverGiven = idCount - 1;
constexpr int pictureCount = 10;  // of the film
constexpr std::size_t readerLimit = 3;

using Setting = std::optional<tagKestFilterInfo>;

QByteArray bytesOf(const tagKestFilterInfo &info)
{
    return QByteArray(reinterpret_cast<const char *>(&info), sizeof info).toHex();
}

/// What the engine must remember.
struct Model
{
    struct File
    {
        int code = KestOk;        ///< what playing it answers
        int readerCode = KestOk;  ///< what reading it picture by picture answers
        Setting kept;
    };

    struct Edit
    {
        int fileId = 0;
        int code = KestOk;
        Setting draft;
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

/// A reader that is open. It goes on whatever becomes of its engine and its file's id.
struct Reader
{
    void *handle;
    int picturesRead = 0;
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
        m_paths
            = {{m_clips.path("film.mkv"), {KestOk, KestOk, {}}},
               {m_clips.path("sound.wav"), {KestOk, KestErrorNoPicture, {}}},
               {m_clips.path("missing.mkv"), {KestErrorNotFound, KestErrorNotFound, {}}},
               {m_clips.write("empty.mkv", {}), {KestErrorEmpty, KestErrorEmpty, {}}},
               {m_clips.write("text.mkv", "no film"), {KestErrorNotMedia, KestErrorNotMedia, {}}},
               {m_clips.path("."), {KestErrorNotAFile, KestErrorNotAFile, {}}}};
    }
    void cleanup()
    {
        KestClose(m_engine);
        for (const Reader &reader : m_readers)
            KestReaderClose(reader.handle);
        m_readers.clear();
    }

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
               &tst_KestWalk::openReader,   &tst_KestWalk::readNext,   &tst_KestWalk::closeReader,
               &tst_KestWalk::deadHandle,   &tst_KestWalk::window,     &tst_KestWalk::errorText};
        for (int i = 0; i < stepCount / 4; ++i) {
            (this->*steps[below(std::size(steps))])();
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QString("at step %1").arg(i)));
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

    tagKestFilterInfo anySetting()
    {
        const double depth = (below(401) - 200) / 100.0;
        const double odd[] = {std::numeric_limits<double>::quiet_NaN(),
                              -std::numeric_limits<double>::infinity(), -0.0, 1e300};
        return {0, 17, below(14), {}, chance(16) ? odd[below(4)] : depth, {}};
    }

    static tagKestFilterInfo untouched() { return {-77, -77, -77, {77}, -77, {77}}; }

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
        tagKestFilterInfo record = anySetting();
        tagKestFilterInfo *const info = chance(8) ? nullptr : &record;
        const int code
            = firstOf(codeOfFilter(kind, info), m_model.edit ? KestOk : int(KestErrorNoEdit));
        QCOMPARE(KestAddFilter(m_engine, kind, info), code);
        if (code == KestOk)
            m_model.edit->draft = record;
    }

    void addKept()
    {
        const int kind = anyKind();
        const int fileId = anyId();
        tagKestFilterInfo record = anySetting();
        tagKestFilterInfo *const info = chance(8) ? nullptr : &record;
        const int code = firstOf(codeOfFilter(kind, info), m_model.codeOfFile(fileId));
        QCOMPARE(KestAddFilter2(m_engine, fileId, kind, info), code);
        if (code != KestOk)
            return;
        m_model.files[fileId].kept = record;
        if (m_model.edit && m_model.edit->fileId == fileId && m_model.edit->named)
            m_model.edit->draft = record;
    }

    /// Compares what a reading call said and wrote with the setting there is, or is not.
    static void compareRead(int code, int expected, const tagKestFilterInfo &record,
                            const Setting &setting)
    {
        QCOMPARE(code, expected);
        QCOMPARE(bytesOf(record), bytesOf(expected == KestOk ? *setting : untouched()));
    }

    void readFilter()
    {
        const int kind = anyKind();
        tagKestFilterInfo record = untouched();
        tagKestFilterInfo *const info = chance(8) ? nullptr : &record;
        const Setting draft = m_model.edit ? m_model.edit->draft : std::nullopt;
        const int found = draft ? KestOk : int(KestErrorNoFilter);
        const int expected
            = firstOf(codeOfFilter(kind, info), m_model.edit ? found : int(KestErrorNoEdit));
        compareRead(KestGetFilter(m_engine, kind, info), expected, record, draft);
    }

    void readKept()
    {
        const int kind = anyKind();
        const int fileId = anyId();
        tagKestFilterInfo record = untouched();
        tagKestFilterInfo *const info = chance(8) ? nullptr : &record;
        const Setting kept
            = m_model.files.count(fileId) ? m_model.files[fileId].kept : std::nullopt;
        const int found = kept ? KestOk : int(KestErrorNoFilter);
        const int expected
            = firstOf(codeOfFilter(kind, info), firstOf(m_model.codeOfFile(fileId), found));
        compareRead(KestGetFilter2(m_engine, fileId, kind, info), expected, record, kept);
    }

    void addFile()
    {
        const int fileId = below(neverGiven);
        if (chance(8)) {
            QCOMPARE(KestAddFile(m_engine, fileId, chance(2) ? "" : nullptr),
                     int(KestErrorArgument));
            return;
        }
        const auto &[path, file] = m_paths[std::size_t(below(m_paths.size()))];
        QCOMPARE(KestAddFile(m_engine, fileId, path.toUtf8().constData()), int(KestOk));
        m_model.files[fileId] = file;
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
        const int fileId = chance(4) ? anyId() : neverGiven;  // so that most files stay
        QCOMPARE(KestRemoveFile(m_engine, fileId), m_model.codeOfFile(fileId));
        if (m_model.edit && m_model.edit->fileId == fileId)
            m_model.endEdit(false);
        m_model.files.erase(fileId);
    }

    void openReader()
    {
        const int fileId = anyId();
        const auto found = m_model.files.find(fileId);
        const int answer
            = found == m_model.files.end() ? KestErrorFileId : found->second.readerCode;
        // Few are opened, for each has a player of its own, which comes and goes slowly.
        const bool asked = answer != KestOk || chance(24);
        const int code = asked ? answer : int(KestErrorArgument);
        void *handle = this;
        QCOMPARE(KestReaderOpen(m_engine, fileId, asked ? &handle : nullptr), code);
        QCOMPARE(handle == this, code != KestOk);
        if (code != KestOk)
            return;
        m_readers.push_back({handle});
        if (m_readers.size() > readerLimit)
            close(m_readers.begin());
    }

    void readNext()
    {
        if (m_readers.empty() || chance(8)) {
            KestPicture picture = {};
            QCOMPARE(KestReaderNext(deadReader(), &picture), int(KestErrorHandle));
            return;
        }
        Reader &reader = m_readers[std::size_t(below(m_readers.size()))];
        if (chance(8)) {
            QCOMPARE(KestReaderNext(reader.handle, nullptr), int(KestErrorArgument));
            return;
        }
        const bool more = reader.picturesRead < pictureCount;
        KestPicture picture = {nullptr, 0, 0, 0, -77};
        QCOMPARE(KestReaderNext(reader.handle, &picture), int(more ? KestOk : KestAtEnd));
        QCOMPARE(picture.time, more ? reader.picturesRead * 40000LL : -77LL);
        QCOMPARE(picture.pixels != nullptr, more);
        if (!more)
            return;
        const auto last = std::ptrdiff_t(picture.stride) * (picture.height - 1) + picture.width * 4;
        QCOMPARE(int(picture.pixels[last - 1]), 255);
        ++reader.picturesRead;
    }

    void closeReader()
    {
        if (m_readers.empty() || !chance(16))
            KestReaderClose(deadReader());
        else
            close(m_readers.begin() + below(m_readers.size()));
    }

    void close(std::vector<Reader>::iterator reader)
    {
        m_closedReader = reader->handle;
        KestReaderClose(m_closedReader);
        m_readers.erase(reader);
    }

    void *deadReader()
    {
        void *const handles[] = {nullptr, m_closedReader, m_engine, this};
        return handles[below(4)];
    }

    void window()
    {
        CVideoWnd::tagMsgParams params = {3 + below(3), -1, nullptr, nullptr};
        switch (below(3)) {
        case 0:
            m_window->SendCommand(chance(8) ? nullptr : &params);
            break;
        case 1:
            m_window->UpdateView();
            break;
        default:
            m_window->resetSessionState();
        }
    }

    void errorText()
    {
        const int code = chance(2) ? below(20) - 16 : int(m_random());
        const bool known = code >= KestErrorNoPicture && code <= KestAtEnd;
        const char *const text = KestErrorText(code);
        QVERIFY(text && *text);
        QCOMPARE(text != QByteArray("Unknown error"), known);
    }

    void deadHandle()
    {
        void *const reader = m_readers.empty() ? nullptr : m_readers.front().handle;
        void *const handles[] = {nullptr, m_closed == m_engine ? nullptr : m_closed, this, reader};
        void *const dead = handles[below(4)];
        long long duration = 0;
        void *pointer = nullptr;
        tagKestFilterInfo info = {};
        const int codes[] = {KestPlay(dead),
                             KestPause(dead),
                             KestSetCurPos(dead, 0),
                             KestChangeVolume(dead, 0),
                             KestGetMediaDuration(dead, 0, &duration),
                             KestGetMediaInfo(dead, 0, &pointer),
                             KestEditBegin(dead, nullptr),
                             KestEditEnd(dead, true),
                             KestAddFilter(dead, 9, &info),
                             KestAddFilter2(dead, 0, 9, &info),
                             KestGetFilter(dead, 9, &info),
                             KestGetFilter2(dead, 0, 9, &info),
                             KestAddFile(dead, 0, "x"),
                             KestRemoveFile(dead, 0),
                             KestSetStereoLayout(dead, 0, KestLayoutFlat),
                             KestReaderOpen(dead, 0, &pointer)};
        for (const int code : codes)
            QCOMPARE(code, int(KestErrorHandle));
        KestClose(dead);
    }

    static int count(tagKestEvent *, void *) { return 0; }

    Clips m_clips;
    std::vector<std::pair<QString, Model::File>> m_paths;
    std::mt19937 m_random;
    void *m_engine = nullptr;
    void *m_closed = nullptr;
    std::vector<Reader> m_readers;
    void *m_closedReader = nullptr;
    std::unique_ptr<CVideoWnd> m_window;
    Model m_model;
};

QTEST_MAIN(tst_KestWalk)
#include "tst_kest_walk.moc"
