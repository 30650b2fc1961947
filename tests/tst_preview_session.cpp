// Whole sessions in the host program's dialog: a real window, real input, the real engine.
// Not here: the program around the dialog (tst_preview_program.cpp).
#include "engine/mpv/kest_host.h"
#include "host/filmview.h"
#include "host/previewdialog.h"
#include "playwidget/playwidget.h"
#include "realinput.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDrag>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

#include <memory>

/// A window that a file can be dragged out of, as out of a file manager.
class DragSource : public QWidget
{
public:
    explicit DragSource(const QString &file)
        : m_file(file)
    {
        resize(100, 100);
    }

protected:
    void mouseMoveEvent(QMouseEvent *) override
    {
        auto *drag = new QDrag(this);
        auto *data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(m_file)});
        drag->setMimeData(data);
        drag->exec(Qt::CopyAction);
    }

private:
    QString m_file;
};

/// Says "Go on" to every message box, and counts them.
class BoxCounter : public QObject
{
public:
    BoxCounter() { qApp->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        auto *box = qobject_cast<QMessageBox *>(object);
        if (box && event->type() == QEvent::Show) {
            ++count;
            QTimer::singleShot(0, box, &QMessageBox::reject);
        }
        return false;
    }
};

class tst_PreviewSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void okKeepsTheSettingsAndAppliesThemToAll();
    void okAsksOnceWhereToSave();
    void cancelBringsEveryFileBack();
    void escapeBringsEveryFileBack();
    void hidingStopsAndDropsTheEdit();
    void soundOnlyFileStandsOnBlackAfterAFilm();

    void doubleClickLeavesAPausedFilmWithItsSettings();
    void returnInTheListPlaysAndDoesNotAccept();
    void brokenFilmSaysWhyAndCannotBeChosen();
    void aFilmThatIsNotLookedIntoYetIsExportedAsWell();
    void aFilmIsListedOnce();
    void aNameThatLooksLikeMarkupIsToldAsItIs();
    void droppedFilmsAreListed();
    void pastedPathsAreListed();
    void listShowsTheSettingsAsTheyChange();

private:
    template <typename Widget> Widget *child(const char *name) const
    {
        return m_dialog->findChild<Widget *>(QLatin1String(name));
    }
    static QPoint middle(const QWidget *widget)
    {
        return widget->mapToGlobal(widget->rect().center());
    }
    void showOverlay() const;
    void chooseRedCyan() const;
    void dragDepth() const;
    void step(const char *button, const QString &arrivesAt) const;
    void editTwoFiles() const;
    tagKestFilterInfo kept(int fileId) const;
    void compareKept(int fileId, int mode, double depth) const;
    void compareSettings(int mode, double depth, bool changed) const;
    FilmView *list() const { return m_dialog->findChild<FilmView *>(); }
    QPoint row(int filmId) const
    {
        const QRect place = list()->visualRect(m_dialog->films().indexOf(filmId));
        return list()->viewport()->mapToGlobal(place.center());
    }
    QString copyOfFilm(const QString &name) const;
    void openWindow(const Options &options);

    QTemporaryDir m_folder;
    std::unique_ptr<MediaEngine> m_engine;
    std::unique_ptr<PreviewDialog> m_dialog;
};

void tst_PreviewSession::initTestCase()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    QVERIFY(QFile::copy(QStringLiteral(SAMPLES "/depth.mkv"),
                        m_folder.filePath(QStringLiteral("other.mkv"))));
}

void tst_PreviewSession::init()
{
    Options options;
    options.json = true;  // OK has somewhere to put the settings, and asks nothing
    openWindow(options);
}

void tst_PreviewSession::openWindow(const Options &options)
{
    cleanup();
    m_engine = std::make_unique<MediaEngine>(QStringLiteral("null"));
    QVERIFY(m_engine->handle());
    m_dialog = std::make_unique<PreviewDialog>(*m_engine, options, Settings());
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    RealInput::focus(m_dialog->winId());
    m_dialog->open({QStringLiteral(SAMPLES "/depth.mkv"), QStringLiteral(SAMPLES "/tone.ogg"),
                    m_folder.filePath(QStringLiteral("other.mkv"))});
    QTRY_COMPARE(child<QLabel>("lblFileName")->text(), QStringLiteral("depth.mkv"));
    QTRY_VERIFY(m_dialog->films().film(3)->isPlayable());
    QVERIFY(m_dialog->films().film(2)->facts.audioOnly);
}

void tst_PreviewSession::cleanup()
{
    RealInput::keepPictureOfFailure();
    m_dialog.reset();
    m_engine.reset();
}

void tst_PreviewSession::showOverlay() const
{
    RealInput::moveTo(m_dialog->mapToGlobal(QPoint(100, 100)));
    RealInput::moveTo(m_dialog->mapToGlobal(QPoint(110, 110)));
    QTRY_VERIFY(child<QWidget>("panPlayControl")->isVisible());
}

void tst_PreviewSession::chooseRedCyan() const
{
    auto *modes = child<QComboBox>("cbx3DMode");
    RealInput::click(middle(modes));
    QTRY_VERIFY(QApplication::activePopupWidget());
    RealInput::key(QStringLiteral("Down"));
    RealInput::key(QStringLiteral("Return"));
    QTRY_COMPARE(modes->currentText(), QStringLiteral("Red/Cyan"));
}

void tst_PreviewSession::dragDepth() const
{
    auto *slider = child<QSlider>("effectTracker");
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.maximum = slider->maximum();
    option.sliderPosition = option.sliderValue = slider->value();
    const QPoint handle
        = slider->style()
              ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider)
              .center();
    RealInput::drag(slider->mapToGlobal(handle), slider->mapToGlobal(handle + QPoint(30, 0)));
}

void tst_PreviewSession::step(const char *button, const QString &arrivesAt) const
{
    showOverlay();
    RealInput::click(middle(child<QToolButton>(button)));
    QTRY_COMPARE(child<QLabel>("lblFileName")->text(), arrivesAt);
}

// Leaves the first file edited and kept, by stepping away, and the panel showing it again.
void tst_PreviewSession::editTwoFiles() const
{
    chooseRedCyan();
    QCOMPARE(child<QSpinBox>("edt3DPos")->value(), -2);
    QCOMPARE(child<QSlider>("effectTracker")->value(), 48);

    dragDepth();
    const int steps = child<QSpinBox>("edt3DPos")->value();
    QVERIFY(steps > 5);
    QCOMPARE(child<QSlider>("effectTracker")->value(), steps + 50);
    tagKestFilterInfo draft = {};
    QTRY_VERIFY(KestGetFilter(m_engine->handle(), 9, &draft) == KestOk
                && draft.depth == steps * 0.006);  // the second sending brings the new depth
    QCOMPARE(draft.mode, int(Kest3DRedCyan));

    step("btnNextFile", QStringLiteral("tone.ogg"));
    QCOMPARE(child<QComboBox>("cbx3DMode")->currentText(), QStringLiteral("3D off"));
    step("btnPriorFile", QStringLiteral("depth.mkv"));
    QCOMPARE(child<QComboBox>("cbx3DMode")->currentText(), QStringLiteral("Red/Cyan"));
    QCOMPARE(child<QSpinBox>("edt3DPos")->value(), steps);
    QTest::qWait(250);  // a change is sent again within 200 ms, and a way out must not overtake it
}

tagKestFilterInfo tst_PreviewSession::kept(int fileId) const
{
    tagKestFilterInfo info = {};
    KestGetFilter2(m_engine->handle(), fileId, 9, &info);
    return info;
}

void tst_PreviewSession::compareKept(int fileId, int mode, double depth) const
{
    const tagKestFilterInfo info = kept(fileId);
    QCOMPARE(info.mode, mode);
    QCOMPARE(double(info.depth), depth);
}

void tst_PreviewSession::compareSettings(int mode, double depth, bool changed) const
{
    const Settings settings = m_dialog->settings();
    QCOMPARE(settings.films().size(), 3);
    for (const FilmSettings &film : settings.films()) {
        QCOMPARE(film.mode, mode);
        QCOMPARE(film.depth, depth);
        QCOMPARE(film.changed, changed);
    }
}

void tst_PreviewSession::okKeepsTheSettingsAndAppliesThemToAll()
{
    editTwoFiles();
    const double depth = child<QSpinBox>("edt3DPos")->value() * 0.006;
    RealInput::click(m_dialog->mapToGlobal(
        child<QCheckBox>("chxApplyToAll")->mapTo(m_dialog.get(), QPoint(10, 10))));
    QTRY_VERIFY(child<QCheckBox>("chxApplyToAll")->isChecked());
    QSignalSpy accepted(m_dialog->player(), &PlayWidget::accepted);
    RealInput::click(middle(child<QDialogButtonBox>("buttonBox")->button(QDialogButtonBox::Ok)));
    QTRY_COMPARE(accepted.count(), 1);

    for (int fileId : {1, 2, 3})
        compareKept(fileId, Kest3DRedCyan, depth);
    compareSettings(Kest3DRedCyan, depth, true);
    QCOMPARE(m_dialog->errors(), QStringList());
}

void tst_PreviewSession::okAsksOnceWhereToSave()
{
    openWindow({});
    chooseRedCyan();
    QTRY_VERIFY(m_dialog->settings().films().at(0).changed);
    BoxCounter boxes;
    RealInput::click(middle(child<QDialogButtonBox>("buttonBox")->button(QDialogButtonBox::Ok)));
    QTRY_VERIFY(boxes.count > 0);
    QCOMPARE(boxes.count, 1);
    QVERIFY(m_dialog->isVisible());
}

void tst_PreviewSession::cancelBringsEveryFileBack()
{
    editTwoFiles();
    QSignalSpy rejected(m_dialog.get(), &QDialog::rejected);
    RealInput::click(
        middle(child<QDialogButtonBox>("buttonBox")->button(QDialogButtonBox::Cancel)));
    QTRY_COMPARE(rejected.count(), 1);

    compareKept(1, Kest3DTurnOff, 0.0);
    compareKept(2, Kest3DTurnOff, 0.0);
    compareSettings(Kest3DTurnOff, 0.0, false);
    QCOMPARE(m_dialog->errors(), QStringList());
}

void tst_PreviewSession::escapeBringsEveryFileBack()
{
    editTwoFiles();
    QSignalSpy rejected(m_dialog.get(), &QDialog::rejected);
    RealInput::key(QStringLiteral("Escape"));
    QTRY_VERIFY(rejected.count() >= 1);

    compareKept(1, Kest3DTurnOff, 0.0);
    compareSettings(Kest3DTurnOff, 0.0, false);
    QCOMPARE(m_dialog->errors(), QStringList());
}

void tst_PreviewSession::hidingStopsAndDropsTheEdit()
{
    chooseRedCyan();
    QTest::qWait(250);
    m_dialog->hide();

    QCOMPARE(KestPause(m_engine->handle()), int(KestErrorNoEdit));
    compareKept(1, Kest3DTurnOff, 0.0);  // the edit is dropped
    QTRY_COMPARE(m_dialog->settings().films().at(0).mode, int(Kest3DRedCyan));
    QCOMPARE(m_dialog->settings().films().at(0).depth, -0.012);
    QCOMPARE(m_dialog->errors(), QStringList());
}

// The music picture covers a part of the video only, and the bar over it is translucent: whatever
// is not painted afresh shows through.
void tst_PreviewSession::soundOnlyFileStandsOnBlackAfterAFilm()
{
    const auto corner = [this] { return m_dialog->grab().toImage().pixel(20, 300); };
    QTRY_VERIFY(corner() != qRgb(0, 0, 0));
    step("btnNextFile", QStringLiteral("tone.ogg"));
    QTRY_COMPARE(corner(), qRgb(0, 0, 0));
}

// A player that is paused would go on with its film.
void tst_PreviewSession::doubleClickLeavesAPausedFilmWithItsSettings()
{
    chooseRedCyan();
    QTest::qWait(250);  // until the change has been sent again
    showOverlay();
    RealInput::click(middle(child<QToolButton>("btnPlay")));
    QTRY_COMPARE(KestPause(m_engine->handle()), int(KestOk));
    RealInput::doubleClick(row(3));
    QTRY_COMPARE(child<QLabel>("lblFileName")->text(), QStringLiteral("other.mkv"));
    QCOMPARE(child<QComboBox>("cbx3DMode")->currentText(), QStringLiteral("3D off"));
    QCOMPARE(m_dialog->films().playing(), 3);
    compareKept(1, Kest3DRedCyan, -0.012);

    RealInput::doubleClick(row(1));
    QTRY_COMPARE(child<QLabel>("lblFileName")->text(), QStringLiteral("depth.mkv"));
    QCOMPARE(child<QComboBox>("cbx3DMode")->currentText(), QStringLiteral("Red/Cyan"));
    QVERIFY(m_dialog->films().film(1)->now.changed);
    QCOMPARE(m_dialog->errors(), QStringList());
}

void tst_PreviewSession::returnInTheListPlaysAndDoesNotAccept()
{
    QSignalSpy finished(m_dialog.get(), &QDialog::finished);
    RealInput::click(row(2));
    RealInput::key(QStringLiteral("Return"));
    QTRY_COMPARE(child<QLabel>("lblFileName")->text(), QStringLiteral("tone.ogg"));
    QCOMPARE(finished.count(), 0);
}

void tst_PreviewSession::brokenFilmSaysWhyAndCannotBeChosen()
{
    const QString path = m_folder.filePath(QStringLiteral("broken.mkv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no film") == 7);
    file.close();
    m_dialog->open({path});
    QTRY_COMPARE(m_dialog->films().film(4)->facts.error,
                 QStringLiteral("The file holds no film and no sound that can be played"));
    RealInput::doubleClick(row(4));
    RealInput::doubleClick(row(3));
    QTRY_COMPARE(child<QLabel>("lblFileName")->text(), QStringLiteral("other.mkv"));
    QCOMPARE(m_dialog->settings().films().size(), 3);

    QVERIFY(QFile::remove(path) && QFile::copy(QStringLiteral(SAMPLES "/depth.mkv"), path));
    m_dialog->open({path});  // named again, it is looked into again
    QTRY_VERIFY(m_dialog->films().film(4)->isPlayable());
    RealInput::doubleClick(row(4));
    QTRY_COMPARE(child<QLabel>("lblFileName")->text(), QStringLiteral("broken.mkv"));
    QVERIFY(QFile::remove(path));
}

void tst_PreviewSession::aFilmThatIsNotLookedIntoYetIsExportedAsWell()
{
    Options options;
    options.json = true;
    options.mode = Kest3DRedCyan;
    openWindow(options);
    const QString path = copyOfFilm(QStringLiteral("fourth.mkv"));
    m_dialog->open({path});
    QVERIFY(!m_dialog->films().film(4)->examined);
    QCOMPARE(m_dialog->filmsToExport().size(), 3);  // all but the one with sound alone
    QCOMPARE(m_dialog->filmsToExport().last().path, path);
    QTRY_VERIFY(m_dialog->films().film(4)->isPlayable());
}

void tst_PreviewSession::aFilmIsListedOnce()
{
    m_dialog->open({QStringLiteral(SAMPLES "/../samples/depth.mkv"),
                    copyOfFilm(QStringLiteral("fourth.mkv"))});
    QTRY_VERIFY(m_dialog->films().film(4) && m_dialog->films().film(4)->isPlayable());
    QCOMPARE(m_dialog->films().films().size(), 4);
}

void tst_PreviewSession::aNameThatLooksLikeMarkupIsToldAsItIs()
{
    const QString path = copyOfFilm(QStringLiteral("a <b>bold &amp; odd.mkv"));
    m_dialog->open({path});
    const QString tip = m_dialog->films().indexOf(4).data(Qt::ToolTipRole).toString();
    QVERIFY(Qt::mightBeRichText(tip));
    QCOMPARE(QTextDocumentFragment::fromHtml(tip).toPlainText(), path);
    QTRY_VERIFY(m_dialog->films().film(4)->isPlayable());
}

QString tst_PreviewSession::copyOfFilm(const QString &name) const
{
    const QString path = m_folder.filePath(name);
    QFile::copy(QStringLiteral(SAMPLES "/depth.mkv"), path);
    return path;
}

void tst_PreviewSession::droppedFilmsAreListed()
{
    DragSource source(copyOfFilm(QStringLiteral("fourth.mkv")));
    source.move(20, 800);
    source.show();
    QVERIFY(QTest::qWaitForWindowExposed(&source));
    RealInput::dragSlowly(middle(&source), middle(m_dialog->player()));
    QTRY_COMPARE(m_dialog->films().films().size(), 4);
    QTRY_VERIFY(m_dialog->films().film(4)->isPlayable());
}

void tst_PreviewSession::pastedPathsAreListed()
{
    QGuiApplication::clipboard()->setText(copyOfFilm(QStringLiteral("fourth.mkv"))
                                          + QStringLiteral("\n/no/such/fifth.mkv\n"));
    RealInput::key(QStringLiteral("ctrl+v"));
    QTRY_COMPARE(m_dialog->films().films().size(), 5);
    QTRY_COMPARE(m_dialog->films().film(5)->facts.error, QStringLiteral("The file does not exist"));
}

void tst_PreviewSession::listShowsTheSettingsAsTheyChange()
{
    chooseRedCyan();
    QTRY_COMPARE(settingsText(m_dialog->films().film(1)->now),
                 QStringLiteral("Red/Cyan, depth -2"));
    QVERIFY(m_dialog->films().film(1)->now.changed);
    QVERIFY(!m_dialog->films().film(3)->now.changed);
}

QTEST_MAIN(tst_PreviewSession)
#include "tst_preview_session.moc"
