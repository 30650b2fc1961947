// FileProbe: looks into files one after the other, on a thread and with an engine of its own.
// Not here: what becomes of the facts.
#pragma once

#include "host/mediaengine.h"

#include <QObject>
#include <QThread>

#include <atomic>

/// A file may take seconds to look into, so the GUI thread does not do it.
class FileProbe : public QObject
{
    Q_OBJECT

public:
    explicit FileProbe(QObject *parent = nullptr);

    /// Waits for the file that is being looked into; the others are left.
    ~FileProbe() override;

    /// Answers by examined(), in the order of the calls.
    void examine(int fileId, const QString &path);

Q_SIGNALS:
    void examined(int fileId, const MediaFacts &facts);

private:
    class Worker;

    QThread m_thread;
    Worker *const m_worker;  // lives on the thread, and ends with it
    std::atomic<bool> m_leaving{false};
};
