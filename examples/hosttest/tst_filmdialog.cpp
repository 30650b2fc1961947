// How a host tests a dialog with the player in it: what reaches the engine, and what it answers.
// Not here: a real engine; the recording one stands in for it.
#include "filmdialog.h"

#include "engine/mpv/kest_host.h"
#include "fakekest/fakekest.h"

#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTest>

class tst_FilmDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fake.reset(); }

    void opensTheFilmAndPlaysIt();
    void showsTheFilmIn3DAsTold();
    void saysThatTheFilmCannotBeNamed();
    void tellsWhatTheEngineRefused();
    void keepsTheSettingsOnOk();
    void dropsTheSettingsOnCancel();
    void endsTheEditWhenTheFilmEndsLate();
    void waitsForASlowEngine();

private:
    FakeKest &fake = FakeKest::instance();
};

static void press(const FilmDialog &dialog, QDialogButtonBox::StandardButton button)
{
    dialog.player().findChild<QDialogButtonBox *>()->button(button)->click();
}

void tst_FilmDialog::opensTheFilmAndPlaysIt()
{
    FilmDialog dialog(FakeKest::handle());
    fake.setDuration(7, 60000);
    dialog.openFilm(7, "/films/a.mkv", Kest3DTurnOff, 0);
    QCOMPARE(
        fake.takeCalls(),
        QStringList({"KestAddFile(7, \"/films/a.mkv\")", "KestGetMediaDuration(7)",
                     "KestEditBegin(7)", "CVideoWnd::resetSessionState()", "KestGetFilter2(7, 9)",
                     "KestAddFilter2(7, 9, mode 11, depth 0)", "KestAddFilter(9, mode 11, depth 0)",
                     "KestChangeVolume(100)", "KestPlay()"}));
    QCOMPARE(dialog.message(), QString());
}

void tst_FilmDialog::showsTheFilmIn3DAsTold()
{
    FilmDialog dialog(FakeKest::handle());
    dialog.openFilm(7, "/films/a.mkv", Kest3DRedCyan, -0.012);
    QVERIFY(fake.calls().contains("KestAddFilter(9, mode 4, depth -0.012)"));
}

void tst_FilmDialog::saysThatTheFilmCannotBeNamed()
{
    FilmDialog dialog(FakeKest::handle());
    fake.setResult("KestAddFile", KestErrorArgument);
    dialog.openFilm(7, "/films/a.mkv", Kest3DTurnOff, 0);
    QCOMPARE(fake.takeCalls(), QStringList({"KestAddFile(7, \"/films/a.mkv\")"}));
    QCOMPARE(dialog.message(), "The recording engine was told to fail");
}

void tst_FilmDialog::tellsWhatTheEngineRefused()
{
    FilmDialog dialog(FakeKest::handle());
    fake.setResult("KestPlay", KestErrorNotFound);
    dialog.openFilm(7, "/films/a.mkv", Kest3DTurnOff, 0);
    QVERIFY2(dialog.message().contains("KestPlay"), qPrintable(dialog.message()));
    QVERIFY2(dialog.message().contains("-7"), qPrintable(dialog.message()));
}

void tst_FilmDialog::keepsTheSettingsOnOk()
{
    FilmDialog dialog(FakeKest::handle());
    dialog.openFilm(7, "/films/a.mkv", Kest3DRedCyan, -0.012);
    fake.takeCalls();
    press(dialog, QDialogButtonBox::Ok);
    QVERIFY(fake.takeCalls().contains("KestEditEnd(true)"));
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void tst_FilmDialog::dropsTheSettingsOnCancel()
{
    FilmDialog dialog(FakeKest::handle());
    dialog.openFilm(7, "/films/a.mkv", Kest3DRedCyan, -0.012);
    fake.takeCalls();
    press(dialog, QDialogButtonBox::Cancel);
    QVERIFY(fake.takeCalls().contains("KestEditEnd(false)"));
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void tst_FilmDialog::endsTheEditWhenTheFilmEndsLate()
{
    FilmDialog dialog(FakeKest::handle());
    dialog.openFilm(7, "/films/a.mkv", Kest3DTurnOff, 0);
    fake.takeCalls();
    fake.sendEventLater(20, 0, 5, 60000);  // 5: the film has ended
    QCOMPARE(fake.takeCalls(), QStringList());
    QTRY_VERIFY(fake.calls().contains("KestEditEnd(true)"));
}

void tst_FilmDialog::waitsForASlowEngine()
{
    FilmDialog dialog(FakeKest::handle());
    QElapsedTimer clock;
    fake.setDelay("KestEditBegin", 50);
    clock.start();
    dialog.openFilm(7, "/films/a.mkv", Kest3DTurnOff, 0);
    QVERIFY(clock.elapsed() >= 50);
    QCOMPARE(dialog.message(), QString());
}

QTEST_MAIN(tst_FilmDialog)
#include "tst_filmdialog.moc"
