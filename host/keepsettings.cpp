// Writing and asking.
// Not here: reading.
#include "host/keepsettings.h"

#include "host/lastfolder.h"
#include "host/plaintip.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KeepSettings)
};

enum Answer { Save, Leave, Discard };

/// `error` is why they could not be saved; empty when there is no file yet.
Answer ask(QWidget *window, const QString &error)
{
    QMessageBox box(window);
    box.setWindowTitle(Text::tr("Settings"));
    box.setIcon(error.isEmpty() ? QMessageBox::Question : QMessageBox::Warning);
    box.setText(error.isEmpty() ? Text::tr("Save the 3D settings?")
                                : Text::tr("The settings could not be saved."));
    box.setInformativeText(
        error.isEmpty() ? Text::tr("With --settings FILE they are read and written without asking.")
                        : plainTip(error));
    const auto *save = box.addButton(Text::tr("Save as…"), QMessageBox::AcceptRole);
    const auto *discard = box.addButton(Text::tr("Do not save"), QMessageBox::DestructiveRole);
    box.setEscapeButton(box.addButton(Text::tr("Go on"), QMessageBox::RejectRole));
    box.exec();
    if (box.clickedButton() == save)
        return Save;
    return box.clickedButton() == discard ? Discard : Leave;
}

QString askForFile(QWidget *window, const QString &file)
{
    const QString proposal = file.isEmpty() ? lastFolder() + QStringLiteral("/films.json") : file;
    const QString chosen = QFileDialog::getSaveFileName(window, Text::tr("Write the settings to"),
                                                        proposal, Text::tr("Settings (*.json)"));
    if (!chosen.isEmpty())
        rememberFolderOf(chosen);
    return chosen;
}

bool anyChanged(const Settings &settings)
{
    return std::any_of(settings.films().begin(), settings.films().end(),
                       [](const FilmSettings &film) { return film.changed; });
}

}  // namespace

bool keepSettings(QWidget *window, const Settings &settings, const Options &options, QString &file,
                  QString &error)
{
    if (file.isEmpty() && (options.json || !anyChanged(settings)))
        return true;
    for (;;) {
        if (!file.isEmpty() && settings.write(file, error)) {
            error.clear();
            return true;
        }
        const Answer answer = ask(window, error);
        if (answer != Save)
            return answer == Discard;
        const QString chosen = askForFile(window, file);
        if (!chosen.isEmpty())
            file = chosen;
    }
}
