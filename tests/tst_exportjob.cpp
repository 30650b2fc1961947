// Several films in a row: which, what is told on the way, and the memory they take.
// Not here: what is in the files (tst_filmexport.cpp).
#include "clips.h"
#include "heap.h"
#include "host/exportconsole.h"
#include "host/mediaengine.h"

#include <QtTest>

namespace {

bool goOn()
{
    return false;
}

}  // namespace

Q_DECLARE_METATYPE(ExportState)

class tst_ExportJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_clips.valid());
        m_film = m_clips.pattern("film.mkv", "320x180", 2);
        QVERIFY(!m_film.isEmpty());
    }

    void filmsWithout3DAreLeftOut()
    {
        const QVector<FilmSettings> some
            = filmsToExport({{"/a", Kest3DTurnOff, 0.0, true}, {"/b", Kest3DRedBlue, 0.0, false}});
        QCOMPARE(some.size(), 1);
        QCOMPARE(some.first().path, QString("/b"));
    }

    void soundAloneIsLeftOut()
    {
        const QString sound = m_clips.make("sound.ogg", "-f lavfi -i sine=d=1 -c:a libvorbis");
        MediaEngine engine("null");
        const ExportSummary summary = exportFilms(
            engine, {{sound, Kest3DRedCyan, 0.0, true}}, {m_clips.path("sound"), false},
            [](const ExportState &) {}, goOn);
        QVERIFY(!sound.isEmpty());
        QCOMPARE(summary.files, QStringList());
        QCOMPARE(failureLines(summary), QStringList());
    }

    void progressCountsAllFilmsTogether()
    {
        QVector<ExportState> states;
        const auto watch = [&states](const ExportState &state) { states.append(state); };
        run("progress", 2, watch);
        QCOMPARE(states.first().number, 1);
        QCOMPARE(states.first().done, 0);
        QCOMPARE(states.last().number, 2);
        QCOMPARE(states.last().count, 2);
        QCOMPARE(states.last().path, m_film);
        for (int i = 1; i < states.size(); ++i)
            QVERIFY(states[i].done >= states[i - 1].done);
        const auto second
            = std::find_if(states.begin(), states.end(),
                           [](const ExportState &state) { return state.number == 2; });
        QVERIFY2(qAbs(second->done - 490) <= 10, qPrintable(QString::number(second->done)));
        QVERIFY2(states.last().done > 980, qPrintable(QString::number(states.last().done)));
    }

    void progressCountsFromTheFirstPictureOn()
    {
        const QString film = m_clips.pattern("late.ts", "320x180", 2, "-output_ts_offset 36000");
        QVector<int> done;
        MediaEngine engine("null");
        const ExportSummary summary = exportFilms(
            engine, {{film, Kest3DRedCyan, 0.02, true}}, {m_clips.path("late"), false},
            [&done](const ExportState &state) { done.append(state.done); }, goOn);
        QCOMPARE(summary.files.size(), 1);
        QCOMPARE(done.value(1), 20);
        QCOMPARE(done.size(), 50);
        QCOMPARE(done.last(), 980);
    }

    void stoppedItWritesNoFurtherFilm()
    {
        int begun = 0;
        const auto watch = [&begun](const ExportState &state) { begun = state.number; };
        MediaEngine engine("null");
        const ExportSummary summary
            = exportFilms(engine, films(3), {m_clips.path("stopped"), false}, watch,
                          [&begun] { return begun == 2; });
        QVERIFY(summary.stopped);
        QCOMPARE(summary.files, QStringList(m_clips.path("stopped/film.red-cyan.mkv")));
        QCOMPARE(failureLines(summary), QStringList("the export was stopped"));
        QCOMPARE(QDir(m_clips.path("stopped")).entryList(QDir::Files),
                 QStringList("film.red-cyan.mkv"));
    }

    void stoppedWhenNothingIsMissingItWasNotStopped()
    {
        const QString sound = m_clips.make("last.ogg", "-f lavfi -i sine=d=1 -c:a libvorbis");
        const QString written = m_clips.path("done/film.red-cyan.mkv");
        MediaEngine engine("null");
        const ExportSummary summary = exportFilms(
            engine, films(1) + QVector<FilmSettings>{{sound, Kest3DRedCyan, 0.0, true}},
            {m_clips.path("done"), false}, [](const ExportState &) {},
            [&written] { return QFile::exists(written); });
        QCOMPARE(summary.files, QStringList(written));
        QVERIFY(!summary.stopped);
        QCOMPARE(failureLines(summary), QStringList());
    }

    void stoppedWhileItLooksIntoTheFilmsItWasStopped()
    {
        MediaEngine engine("null");
        const ExportSummary summary = exportFilms(
            engine, films(1), {m_clips.path("early"), false}, [](const ExportState &) {},
            [] { return true; });
        QVERIFY(summary.stopped);
        QCOMPARE(summary.files, QStringList());
    }

    void lengthsThatAreNoFilmsAreCountedAllTheSame()
    {
        // Matroska keeps it as a number with a fraction, in ms: here 285 000 years.
        QByteArray bytes = Clips::read(m_film);
        const int place = bytes.indexOf(QByteArray::fromHex("448988"));
        QVERIFY(place > 0);
        bytes.replace(place + 3, 8, QByteArray::fromHex("433ff973cafa8000"));
        const QString film = m_clips.write("endless.mkv", bytes);
        QVector<ExportState> states;
        MediaEngine engine("null");
        const ExportSummary summary = exportFilms(
            engine, QVector<FilmSettings>(3, {film, Kest3DRedCyan, 0.02, true}),
            {m_clips.path("endless"), false},
            [&states](const ExportState &state) { states.append(state); }, goOn);
        QCOMPARE(summary.files.size(), 3);
        QCOMPARE(states.last().number, 3);
        QCOMPARE(states.last().done, 666);
    }

    void aLineSaysHowFarItIs_data()
    {
        QTest::addColumn<ExportState>("state");
        QTest::addColumn<QString>("line");
        QTest::newRow("at work") << ExportState{"/a/film.mkv", 1, 2, 345, 7500}
                                 << "1 of 2, film.mkv: 34 %, 7 s left";
        QTest::newRow("not known yet")
            << ExportState{"/a/film.mkv", 1, 2, 0, 0} << "1 of 2, film.mkv: 0 %";
        QTest::newRow("a name with places of its own")
            << ExportState{"/a/%4 %5.mkv", 1, 2, 345, 7500} << "1 of 2, %4 %5.mkv: 34 %, 7 s left";
    }
    void aLineSaysHowFarItIs()
    {
        QFETCH(ExportState, state);
        QFETCH(QString, line);
        QCOMPARE(exportLine(state), line);
    }

    void memoryStaysFlatOverFilmsInARow()
    {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        QSKIP("a sanitizer has an allocator of its own");
#endif
        QVector<qint64> before;  // each film
        run("row", 7, [&before](const ExportState &state) {
            if (state.number > before.size())
                before.append(bytesInUse());
        });
        const qint64 grown = before.at(6) - before.at(2);
        qInfo("after 2 films: %lld kB, after 6: %+lld kB", before.at(2) / 1024, grown / 1024);
        QVERIFY(grown < 320 * 180 * 4 * 2);  // not a picture for each film
    }

private:
    QVector<FilmSettings> films(int count) const
    {
        return QVector<FilmSettings>(count, {m_film, Kest3DRedCyan, 0.02, true});
    }

    void run(const QString &folder, int count, const ExportWatch &watch)
    {
        MediaEngine engine("null");
        const ExportSummary summary
            = exportFilms(engine, films(count), {m_clips.path(folder), false}, watch, goOn);
        QCOMPARE(failureLines(summary), QStringList());
        QCOMPARE(summary.files.size(), count);
    }

    Clips m_clips;
    QString m_film;
};

QTEST_MAIN(tst_ExportJob)
#include "tst_exportjob.moc"
