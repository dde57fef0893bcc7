#pragma once

#include "tuning-client/source/shortcut/failure-guard.h"

#include <QJsonValue>
#include <QSize>
#include <QTimer>
#include <QWidget>

class MainWindow;
class QGridLayout;
class QLabel;
class QStatusBar;

namespace t_transfer
{
class ClientHolder;
}

/// Base of every tuning page and of the preference pages: a scrolling grid for the controls, reading when shown,
/// failures in the status bar, and the size of the main window remembered for each page. A page talks to the board only
/// while it is shown. All helpers work without a main window as well.
class AbstractWidget : public QWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name and is the key of the page's stored settings. With `isSetupUi` the page lays
    /// itself out.
    AbstractWidget(QWidget* pParent, const QString& name, bool isSetupUi = false);
    ~AbstractWidget() override;

    MainWindow* mainWindow() const;

    /// Throws t_common::LogicError when there is none.
    t_transfer::ClientHolder& clientHolder() const;

    QStatusBar* statusBar() const;
    QLabel* statusBarLabel(const QString& name) const;
    void statusBarLabelLed(bool isOn, const QString& toolTip);

    /// The page's entry of the stored page settings.
    QJsonValueRef setting() const;

    virtual void configGet();
    virtual void configSet(bool isDefault);
    virtual void settingRestore();
    virtual void settingStore();

    /// Reads the module from the board and shows it. The base only tells the user that a read begins.
    virtual void updateStatus();

    QSize sizeStore;                              ///< of the main window, for this page; invalid until known
    QGridLayout* pGridLayoutScrollArea = nullptr; ///< null when the page lays itself out

signals:
    void refresh();
    void read();
    void write(bool isDefault = false);

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;
    void hideEvent(QHideEvent* pEvent) override;

    /// Runs `action`; a failure becomes a text in the status bar, and the result is false.
    template <class Action>
    bool guarded(Action&& action)
    {
        return shortcut::guarded(this, std::forward<Action>(action));
    }

    /// Connects `signal` to `action` inside the guard.
    template <class Sender, class Signal, class Action>
    void connectGuarded(const Sender* pSender, Signal signal, Action action)
    {
        shortcut::connectGuarded(this, pSender, signal, action);
    }

    /// Runs `action` inside the guard at each tick. After a tick that took long the interval begins anew, so that a
    /// board that is gone leaves the user time between two time limits.
    void connectTick(QTimer* pTimer, const std::function<void()>& action);

    /// The page only holds pages that read for themselves: it announces no reads, so that the LED and the failure text
    /// of those pages stay.
    void containerSet() { isContainer = true; }

private:
    void announceRead();
    void readHandler();
    void readStatus();
    bool isWindowSizeFree() const;

    bool isContainer = false;
    bool isReading = false;
};
