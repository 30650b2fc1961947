// Any filter record, setting and file name, through the engine that keeps them and the composer that
// uses them. Not here: what is in a file (fuzz_media.cpp).
#include "engine/mpv/kest_host.h"
#include "engine/mpv/stereocomposer.h"
#include "fuzz/bytes.h"
#include "fuzz/offscreen.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <filesystem>

namespace {

constexpr int filterKind = 9;
constexpr int patienceMilliseconds = 10000;

bool isCode(int code)
{
    return code <= KestOk && code >= KestErrorPlayer;
}

bool sameBits(double one, double other)
{
    return std::memcmp(&one, &other, sizeof one) == 0;
}

/// Whether a folder can hold a file of this name.
bool isFileName(const std::string &name)
{
    return !name.empty() && name != "." && name != ".."
        && name.find_first_of(std::string("/\0", 2)) == std::string::npos;
}

/// A film of this name, as long as it is needed; none where the disk does not take the name.
class NamedFilm
{
public:
    explicit NamedFilm(const std::string &name)
    {
        static const QTemporaryDir folder;
        m_path = folder.path().toStdString() + '/' + name;
        m_exists = isFileName(name) && std::filesystem::copy_file(FILM, m_path, m_error);
    }
    ~NamedFilm()
    {
        if (m_exists)
            std::filesystem::remove(m_path, m_error);
    }

    bool exists() const { return m_exists; }
    const char *path() const { return m_path.c_str(); }

private:
    std::filesystem::path m_path;
    std::error_code m_error;
    bool m_exists = false;
};

class Engine
{
public:
    explicit Engine(Bytes bytes)
        : m_bytes(bytes)
    { }

    void run()
    {
        using Step = void (Engine::*)();
        static constexpr Step steps[] = {&Engine::keep,           &Engine::edit,   &Engine::name,
                                         &Engine::composePicture, &Engine::layOut, &Engine::play};
        while (!m_bytes.atEnd())
            (this->*steps[m_bytes.below(std::size(steps))])();
    }

private:
    void keep()
    {
        const int fileId = m_bytes.take<int>();
        KestAddFile(m_engine, fileId, "film");
        auto given = m_bytes.take<tagKestFilterInfo>();
        REQUIRE(KestAddFilter2(m_engine, fileId, filterKind, &given) == KestOk);
        tagKestFilterInfo read = {};
        REQUIRE(KestGetFilter2(m_engine, fileId, filterKind, &read) == KestOk);
        REQUIRE(read.mode == given.mode && sameBits(read.depth, given.depth));
        const int kind = m_bytes.take<int>();
        REQUIRE(kind == filterKind
                || KestAddFilter2(m_engine, fileId, kind, &given) == KestErrorFilterKind);
        KestRemoveFile(m_engine, fileId);
        REQUIRE(KestGetFilter2(m_engine, fileId, filterKind, &read) == KestErrorFileId);
    }

    /// What is set during an edit is kept when it ends with save, and only then.
    void edit()
    {
        KestAddFile(m_engine, 1, "film");
        EditBeginParams params = {};
        params.fileId = 1;
        REQUIRE(KestEditBegin(m_engine, &params) == KestOk);
        auto given = m_bytes.take<tagKestFilterInfo>();
        REQUIRE(KestAddFilter(m_engine, filterKind, &given) == KestOk);
        const bool save = m_bytes.flag();
        KestSetCurPos(m_engine, m_bytes.take<unsigned>());
        KestChangeVolume(m_engine, m_bytes.take<int>());
        REQUIRE(KestEditEnd(m_engine, save) == KestOk);
        tagKestFilterInfo read = {};
        const int code = KestGetFilter2(m_engine, 1, filterKind, &read);
        REQUIRE(code == (save ? KestOk : KestErrorNoFilter));
        REQUIRE(!save || (read.mode == given.mode && sameBits(read.depth, given.depth)));
        KestRemoveFile(m_engine, 1);
    }

    void name()
    {
        const std::string path = m_bytes.text();
        const int code = KestAddFile(m_engine, 1, path.c_str());
        REQUIRE(code == (*path.c_str() ? KestOk : KestErrorArgument));
        long long duration = -77;
        const int found = KestGetMediaDuration(m_engine, 1, &duration);
        REQUIRE(isCode(found));
        REQUIRE((found == KestOk) == (duration != -77));
        REQUIRE(*KestErrorText(m_bytes.take<int>()) != 0);
        KestRemoveFile(m_engine, 1);
    }

    void composePicture()
    {
        const int width = m_bytes.below(48);
        const int height = m_bytes.below(12);
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(m_bytes.take<unsigned>());
        const int mode = m_bytes.flag() ? m_bytes.below(14) : m_bytes.take<int>();
        const StereoSetting setting = {mode, m_bytes.take<double>()};
        const Frame frame = {picture, 7, 8, m_bytes.flag() ? picture.mirrored() : QImage()};
        const Frame first = compose(frame, setting);
        REQUIRE(first.time == 7 && first.serial == 8);
        REQUIRE(first.picture.size() == picture.size());
        REQUIRE(first.picture == compose(frame, setting).picture);
    }

    void layOut()
    {
        const int fileId = m_bytes.take<int>();
        KestAddFile(m_engine, fileId, "film");
        const int layout = m_bytes.flag() ? m_bytes.below(12) - 2 : m_bytes.take<int>();
        const bool known
            = layout >= KestLayoutAsTagged && layout <= KestLayoutTopBottomHalfRightFirst;
        REQUIRE(KestSetStereoLayout(m_engine, fileId, layout)
                == (known ? KestOk : KestErrorArgument));
        KestRemoveFile(m_engine, fileId);
    }

    /// A film plays under any name. Seldom, for it takes as long as a hundred other steps.
    void play()
    {
        const bool seldom = m_bytes.take<std::uint8_t>() == 1;
        const std::string name = m_bytes.text();
        if (!seldom)
            return;
        const NamedFilm film(name);
        if (!film.exists())
            return;
        REQUIRE(KestAddFile(m_engine, 1, film.path()) == KestOk);
        long long duration = 0;
        REQUIRE(KestGetMediaDuration(m_engine, 1, &duration) == KestOk && duration == 400);
        reach(200);
        KestRemoveFile(m_engine, 1);
    }

    void reach(unsigned position)
    {
        unsigned reached = 0;
        EditBeginParams params = {};
        params.fileId = 1;
        params.callback = &Engine::takePosition;
        params.userData = &reached;
        REQUIRE(KestEditBegin(m_engine, &params) == KestOk);
        REQUIRE(KestPlay(m_engine) == KestOk);
        REQUIRE(KestSetCurPos(m_engine, position) == KestOk);
        QElapsedTimer time;
        for (time.start(); reached == 0 && time.elapsed() < patienceMilliseconds;)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        REQUIRE(reached >= position);
        REQUIRE(KestEditEnd(m_engine, false) == KestOk);
    }

    static int takePosition(tagKestEvent *event, void *position)
    {
        *static_cast<unsigned *>(position) = event->time;
        return 0;
    }

    /// One for all inputs, for opening takes longer than all that is done with it here.
    static void *open()
    {
        static void *const engine = KestOpen("null");
        return engine;
    }

    Bytes m_bytes;
    void *const m_engine = open();
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    Engine engine(Bytes(bytes, size));
    engine.run();
    return 0;
}
