// SignalCut: keeps a signal from its slot while a control is brought into line with its model.
// Not here: which signals are cut, and when.
#pragma once

#include <QObject>

/// Disconnects a signal from a slot for its own life-time and connects them again at the end. The
/// connection is a plain one: two cuts of the same signal, one inside the other, leave it connected
/// twice until the next cut removes both.
class SignalCut
{
public:
    SignalCut(QObject *sender, const char *signal, QObject *receiver, const char *slot)
        : m_sender(sender)
        , m_signal(signal)
        , m_receiver(receiver)
        , m_slot(slot)
    {
        QObject::disconnect(m_sender, m_signal, m_receiver, m_slot);
    }
    ~SignalCut() { QObject::connect(m_sender, m_signal, m_receiver, m_slot); }
    Q_DISABLE_COPY(SignalCut)

private:
    QObject *m_sender;
    const char *m_signal;
    QObject *m_receiver;
    const char *m_slot;
};
