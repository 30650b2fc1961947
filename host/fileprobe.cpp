// The thread and its one kind of work.
// Not here: the engine (mediaengine.cpp).
#include "host/fileprobe.h"

#include <memory>

/// An engine is closed where it was opened, so it is nobody else's.
class FileProbe::Worker : public QObject
{
public:
    MediaFacts factsOf(int fileId, const QString &path)
    {
        if (!m_engine)
            m_engine = std::make_unique<MediaEngine>(QStringLiteral("null"));
        m_engine->add(fileId, path);
        return m_engine->examine(fileId);
    }

private:
    std::unique_ptr<MediaEngine> m_engine;
};

FileProbe::FileProbe(QObject *parent)
    : QObject(parent)
    , m_worker(new Worker)
{
    m_worker->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    m_thread.start();
}

FileProbe::~FileProbe()
{
    m_leaving = true;
    m_thread.quit();
    m_thread.wait();
}

void FileProbe::examine(int fileId, const QString &path)
{
    const auto work = [this, fileId, path] {
        if (m_leaving)
            return;
        const MediaFacts facts = m_worker->factsOf(fileId, path);
        const auto answer = [this, fileId, facts] { Q_EMIT examined(fileId, facts); };
        QMetaObject::invokeMethod(this, answer, Qt::QueuedConnection);
    };
    QMetaObject::invokeMethod(m_worker, work, Qt::QueuedConnection);
}
