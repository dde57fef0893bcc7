#pragma once

#include "tuning-client/source/shortcut/enable-box.h"
#include "tuning-client/source/shortcut/failure-guard.h"
#include "tuning-client/source/shortcut/wait-cursor.h"

#include <QJsonValue>
#include <QPointer>
#include <QScopedValueRollback>
#include <QSize>
#include <QTimer>
#include <QVector>
#include <QWidget>

#include <cstdint>

class MainWindow;
class QCheckBox;
class QGridLayout;
class QLabel;
class QMenu;
class QStatusBar;

namespace t_transfer
{
class ClientHolder;
}

/// Base of every tuning page and of the preference pages: a scrolling grid for the controls, reading when shown,
/// failures in the status bar, and the size of the main window remembered for each page. A page talks to the board only
/// while it is shown. All helpers work without a main window as well.
///
/// Who reads when, from the user down to the board:
///
/// | name                  | called by                                              | does                         |
/// |-----------------------|--------------------------------------------------------|------------------------------|
/// | MainWindow::refresh() | "Refresh Status", "Activate", another board            | emits each page's `read()`   |
/// | read()                | that signal, `showEvent`                               | runs `readHandler()`         |
/// | readHandler()         | `read()`, the first good tick after a failure          | announces; `readStatus()`    |
/// | refresh()             | a page after a reset or another mode, a tick in Auto   | `readStatus()`               |
/// | readStatus()          | these; a reset; a write that no read came before       | runs `updateStatus()`, keeps |
/// |                       |                                                        | how it ended                 |
/// | updateStatus()        | `readStatus()`                                         | asks the board, shows        |
/// | announceRead()        | the base's `configGet()` and `updateStatus()`          | "Request update...", grey LED|
///
/// `readHandler()` and `refresh()` do nothing on a page that is not visible.
class AbstractWidget : public QWidget
{
    Q_OBJECT

public:
    /// What a page is to the window around it.
    enum class Role
    {
        Page,      ///< reads for itself and announces it; remembers a size of the main window
        Container, ///< holds pages that read for themselves; announces no read
        Part       ///< a tab on another page's record, or a page without commands: no read and no size either
    };

    /// `name` becomes the object name and is the key of the page's stored settings; a page without a name has none.
    /// With `isSetupUi` the page lays itself out.
    AbstractWidget(QWidget* pParent, const QString& name, bool isSetupUi = false, Role role = Role::Page);
    ~AbstractWidget() override;

    /// The page that a control or a page stands in, null for none.
    static AbstractWidget* around(const QWidget* pWidget);

    /// The page that reads what a control shows; a part leaves that to its frame.
    static AbstractWidget* readerOf(const QWidget* pControl);

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

    /// Runs `action`, which writes values of this page, inside the guard. If they do not come from the board that is
    /// connected now, nothing is written: the page reads and shows them instead, and says so.
    template <class Action>
    void writeGuarded(Action&& action)
    {
        guarded(
            [&]
            {
                if (isWriteFree())
                    action();
            });
    }

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

    /// Connects `signal` to `action` inside the guard: for what reads, resets or opens.
    template <class Sender, class Signal, class Action>
    void connectGuarded(const Sender* pSender, Signal signal, Action action)
    {
        shortcut::connectGuarded(this, pSender, signal, action);
    }

    /// The same for what may take longer than two seconds, such as a command and a read: with the wait cursor.
    template <class Sender, class Signal, class Action>
    void connectLong(const Sender* pSender, Signal signal, Action action)
    {
        connectGuarded(pSender, signal,
                       [action]
                       {
                           const shortcut::WaitCursor waiting;
                           action();
                       });
    }

    /// Connects `signal` to `action`, which writes values of the page: see `writeGuarded`.
    template <class Sender, class Signal, class Action>
    void connectWrite(const Sender* pSender, Signal signal, Action action)
    {
        shortcut::connectGuarded(this, pSender, signal,
                                 [this, action](auto... arguments)
                                 {
                                     if (isWriteFree())
                                         shortcut::call(action, arguments...);
                                 });
    }

    /// Reads by `updateStatus()` and remembers how that ended: what was read may be written, what was silent is not
    /// asked again at once. Throws what `updateStatus()` throws.
    void readStatus();

    /// Whether what the page shows comes from the board that is connected now.
    bool isRead() const;

    /// Runs `action` in the middle of a read: what its controls send by their own signals goes out, since it is what
    /// was read. Nothing else does, such as a half-typed text that greying commits.
    template <class Action>
    void echo(Action&& action)
    {
        const QScopedValueRollback<bool> echoing(isEchoing, true);
        action();
    }

    /// For an `updateStatus()` that asked the board for nothing: it does not count as a read.
    void readSkip() { isSkipped = true; }

    /// Called at the end of each show, after its reads: for timers that run during a visit.
    virtual void afterShow() {}

    /// Connects the box that switches a module: it runs `fEnableSet`, then the LED says what the board does now, and
    /// `fGrey` enables the module's controls while it is off.
    void connectSwitch(QCheckBox* pCheckBox, const std::function<void(bool)>& fEnableSet,
                       const std::function<void(bool)>& fGrey, shortcut::Grey grey = shortcut::Grey::AfterSuccess);

    /// Runs `action` inside the guard at each tick while the page is shown; hiding the page stops the timer. After a
    /// tick that took long the interval begins anew, so that a board that is gone leaves the user time between two time
    /// limits. The first good tick after a failure reads the page.
    void connectTick(QTimer* pTimer, const std::function<void()>& action);

    /// The words of the LED's tool tip. A page without words leaves the LED alone.
    void ledWordsSet(const QString& on, const QString& off);

    /// The LED in the page's words.
    void ledShow(bool isOn);

    bool isEchoing = false; ///< in the middle of `echo()`

private:
    AbstractWidget* frame() const;
    QVector<AbstractWidget*> innerPages() const;
    bool isWindowSizeFree() const;
    bool isInFrame() const;
    void readInstead();
    bool isWriteFree();
    void rowMenuFill(QMenu* pMenu);
    void announceRead();
    void ledGrey();
    QVector<AbstractWidget*> ledNeighbours() const;
    void ticksDelay();
    void recover(bool hasRead);
    void readHandler();
    void showRead();

    const Role role;
    bool isSizeKept = false;      ///< the window's size belongs to this page
    bool isShown = false;         ///< its show has been worked off
    bool isReading = false;       ///< in the middle of `readStatus()`
    bool isSilent = false;        ///< the last read ended without an answer
    bool isSkipped = false;       ///< the read that is running asks for nothing
    bool isRefused = false;       ///< this turn of the event loop has read instead of writing
    bool isStale = false;         ///< the last read or tick failed
    unsigned reads = 0;           ///< calls of `readStatus()`
    std::uint64_t connection = 0; ///< the one that the last good read came through; 0 for none
    QString ledOn;
    QString ledOff;
    QVector<QPointer<QTimer>> ticks;
};
