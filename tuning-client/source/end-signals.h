#pragma once

#include <QObject>

/// While it lives, SIGTERM and SIGINT end the program as a closed window does, so that what is kept at its end is kept,
/// also behind a modal box. A second signal of a kind ends it at once. Needs a live `QApplication`.
class EndSignals : public QObject
{
public:
    EndSignals();
    ~EndSignals() override;

    /// Whether one has come. The event loop that `main` has not reached by then would not know.
    bool isEnding() const { return isEnded; }

private:
    void end();

    bool isEnded = false;
};
