// StopSignals: what a terminal, a shell or the session says to end the program.
// Not here: taking half-done things away; whoever does them, does.
#pragma once

#include <QSocketNotifier>

/// While there is one, an interrupt, a hang-up and a request to terminate no longer kill. They end
/// every event loop that runs or begins, so that dialogs return as if they were cancelled; work
/// without an event loop asks whether one has arrived. A signal that is ignored when the program
/// starts, as nohup has it, stays ignored.
class StopSignals : private QSocketNotifier
{
public:
    /// Needs the application, and its thread.
    StopSignals();
    ~StopSignals() override;

    /// In any thread.
    static bool arrived();

private:
    bool event(QEvent *event) override;
};
