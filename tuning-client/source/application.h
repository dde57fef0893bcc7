#pragma once

#include <QApplication>

/// The application, with a net below the failure guards: an exception that slips through one would end the process,
/// here it becomes a text in the status bar.
class Application : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* pReceiver, QEvent* pEvent) override;

    /// How many exceptions reached the net. Each one is a guard that is missing.
    static int slipped();
};
