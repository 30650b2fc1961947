// The thread and its one kind of work.
// Not here: the engine (mediaengine.cpp).
#include "host/fileprobe.h"

FileProbe::FileProbe(QObject *parent)
    : QObject(parent)
{
    m_worker.moveToThread(&m_thread);
    // An engine is closed where it was opened.
    connect(
        &m_thread, &QThread::finished, &m_worker, [this] { m_engine.reset(); },
        Qt::DirectConnection);
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
        const MediaFacts facts = factsOf(fileId, path);
        const auto answer = [this, fileId, facts] { Q_EMIT examined(fileId, facts); };
        QMetaObject::invokeMethod(this, answer, Qt::QueuedConnection);
    };
    QMetaObject::invokeMethod(&m_worker, work, Qt::QueuedConnection);
}

MediaFacts FileProbe::factsOf(int fileId, const QString &path)
{
    if (!m_engine)
        m_engine = std::make_unique<MediaEngine>(QStringLiteral("null"));
    m_engine->add(fileId, path);
    return m_engine->examine(fileId);
}
