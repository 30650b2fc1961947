// Session: one opened engine: its files, its one edit, and the player that serves both.
// Not here: handles and the checking of pointers (kest_mpv.cpp).
#pragma once

#include "engine/mpv/filmreader.h"
#include "engine/mpv/filterstore.h"
#include "engine/mpv/mailbox.h"
#include "engine/mpv/mediaprobe.h"
#include "engine/mpv/mpvcore.h"
#include "engine/mpv/renderthread.h"

#include <QElapsedTimer>
#include <QObject>

#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <string>

/// All on the thread that opened it. The functions return a KestResult.
///
/// The player below is one for all files. A file is loaded only after the player has let go of the
/// one before, down to its video output: so a picture that comes after a load is the new file's.
///
/// What an edit does at the edges:
/// - It is loaded paused at KestEditBegin, and shows its first picture as soon as there is one.
/// - At the end of the film it reports the end, once, and stays open, paused on its last picture.
///   From there a seek moves it, and KestPlay goes on from where a seek has put it, or else from
///   the start. It reports the end again when it gets there again.
/// - A seek to the end or beyond shows the last picture; while playing, that is the end.
/// - Of seeks that come faster than the player can follow, the latest is carried out.
/// - When the player fails on the way, the edit reports the end; KestPlay then tells the failure.
class Session : public std::enable_shared_from_this<Session>
{
public:
    // session.cpp: down from the host to the player
    /// Null when the player cannot be started.
    static std::shared_ptr<Session> open(const char *audioOutput);
    ~Session();

    /// Nothing works from here on, and no callback is entered.
    void close();

    int addFile(int fileId, const char *utf8Path);
    int removeFile(int fileId);
    int setLayout(int fileId, int name);
    int duration(int fileId, long long *milliseconds);
    int mediaInfo(int fileId, void **records);

    /// What it takes to read the file picture by picture.
    int film(int fileId, FilmReader::Film *film);

    int beginEdit(const EditBeginParams &params);
    int endEdit(bool save);
    int play();
    int pause();
    int seek(unsigned int position);
    int changeVolume(int volume);

    int setDraft(StereoSetting setting);
    int setKept(int fileId, StereoSetting setting);
    int draft(StereoSetting *setting) const;
    int kept(int fileId, StereoSetting *setting) const;

private:
    /// The states that an event carries.
    enum State { Playing = 1, Ended = 5 };

    /// What the player is doing, as far as its events have told.
    enum class Player { Idle, Starting, Opening, Ready, Leaving };

    struct File
    {
        std::string path;
        std::optional<StereoLayout> layout = {};  // none: as the file says
    };

    struct Edit
    {
        quint64 serial;
        int fileId;
        File file;
        ProbedFile facts;
        KestEventCallback callback;
        void *userData;
        bool playing = false;
        bool ended = false;  // at the end of the film, and not moved since
        bool failed = false;
        bool seeking = false;   // a seek is with the player
        bool arriving = false;  // it is done, and the position asked for is on its way
        std::optional<unsigned int> nextSeek = {};
        unsigned int reported = 0;
        QElapsedTimer sinceReport = {};
    };

    /// What the player's threads ring, for the session's own to answer.
    class Bell : public QObject
    {
    public:
        explicit Bell(Session &session)
            : m_session(session)
        { }

    protected:
        bool event(QEvent *event) override;

    private:
        Session &m_session;
    };

    Session() = default;
    bool start(const char *audioOutput);
    int editCode() const;
    bool playerHasEdit() const;
    PictureShape shape() const;
    static PictureShape shapeOf(const File &file, const ProbedFile &facts);
    void showIn(CVideoWnd *window);
    void dropEdit(bool save);
    void advance();
    void sendSeek();
    unsigned int withinFilm(long long position) const;

    // session_events.cpp: up from the player to the host
    static void wake(void *session);
    void drain();
    void take(const mpv_event &event);
    void takeReply(const mpv_event &event);
    void takeProperty(const mpv_event &event, bool asked);
    void takePosition(double seconds, bool asked, bool arrived);
    void takeAtEnd(bool atEnd, bool asked);
    void takeShape(const mpv_node &params);
    void playbackSettled();
    void fileEnded();
    void fileFailed();
    void report(int state, unsigned int position);

    std::map<int, File> m_files;
    FilterStore m_filters;
    MediaProbe m_probe;
    std::optional<Edit> m_edit;
    quint64 m_editCount = 0;
    QMetaObject::Connection m_windowGone;
    Player m_player = Player::Idle;
    quint64 m_playerEdit = 0;  // serial of the edit that the player's file was loaded for

    const std::shared_ptr<Mailbox> m_mailbox = std::make_shared<Mailbox>();
    std::shared_ptr<MpvCore> m_core;  // null once closed
    std::unique_ptr<RenderThread> m_renderThread;

    // --- read by the player's own threads
    Bell m_bell{*this};
    std::atomic<bool> m_woken{false};
};
