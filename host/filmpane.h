// FilmPane: what stands beside the player: opening, the list of films, where the settings go.
// Not here: what opening and choosing bring about (previewdialog.cpp).
#pragma once

#include <QWidget>

class ElidedLabel;
class FilmList;
class FilmView;
class QHBoxLayout;
class QLabel;
class QToolButton;

class FilmPane : public QWidget
{
    Q_OBJECT

public:
    explicit FilmPane(FilmList *films, QWidget *parent = nullptr);

    FilmView *view() const { return m_view; }

    /// The file that OK writes; empty: none.
    void showSettingsFile(const QString &file);

    /// A line below the list, for what a user should know; empty takes it away.
    void showNotice(const QString &text);

    /// Whether there is a film to export.
    void setExportEnabled(bool enabled);

Q_SIGNALS:
    void filesWanted(const QStringList &paths);
    void settingsFileWanted(const QString &file);
    void exportWanted(const QString &folder);

private:
    QHBoxLayout *makeActions();
    QHBoxLayout *makeSettingsLine();
    void openFiles();
    void openFolder();
    void paste();
    void chooseSettingsFile();
    void chooseExportFolder();

    FilmView *m_view;
    QToolButton *m_export;
    QLabel *m_notice;
    ElidedLabel *m_settingsFile;
};
