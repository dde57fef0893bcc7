#include "tuning-client/source/abstract-widget.h"

#include "tuning-client/source/config/config.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/main-window.h"
#include "tuning-client/source/shortcut/changed-rows.h"
#include "tuning-client/source/shortcut/columns.h"
#include "tuning-client/source/shortcut/no-signals.h"
#include "tuning-client/source/shortcut/paint-now.h"
#include "tuning-client/source/shortcut/tab-order.h"
#include "tuning-client/source/shortcut/wheel-filter.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/logic-error.h"
#include "tuning-common/source/no-answer.h"
#include "tuning-rest/source/abstract.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QStatusBar>

#include <algorithm>

AbstractWidget::AbstractWidget(QWidget* pParent, const QString& name, bool isSetupUi, Role role_)
    : QWidget(pParent), role(role_)
{
    setObjectName(name);
    if (!isSetupUi)
    {
        auto* pLayout = new QGridLayout(this);
        auto* pScrollArea = new QScrollArea(this);
        pScrollArea->setWidgetResizable(true);
        // The frame around a part is enough.
        if (role == Role::Part)
            pScrollArea->setFrameShape(QFrame::NoFrame);
        pLayout->addWidget(pScrollArea);
        auto* pContent = new QWidget;
        pScrollArea->setWidget(pContent);
        pGridLayoutScrollArea = new QGridLayout(pContent);
    }

    connect(this, &AbstractWidget::read, this, &AbstractWidget::readHandler);
    if (auto* pMainWindow = mainWindow())
        connect(pMainWindow, &MainWindow::refresh, this, &AbstractWidget::read);
    connectGuarded(this, &AbstractWidget::write, [this](bool isDefault) { configSet(isDefault); });
    connectGuarded(this, &AbstractWidget::refresh,
                   [this]
                   {
                       if (isVisible())
                           readStatus();
                   });
    // A page that is made in another one leaves the size of its name to the page that stands alone.
    isSizeKept = role != Role::Part && !name.isEmpty() && !isInFrame();
    if (isSizeKept)
        AbstractWidget::settingRestore();
}

AbstractWidget::~AbstractWidget()
{
    // A box that goes with the focus in it commits its text, and the page that would send it is gone already.
    for (auto* pChild : findChildren<QObject*>())
        disconnect(pChild, nullptr, this, nullptr);
    if (isSizeKept)
        AbstractWidget::settingStore();
}

MainWindow* AbstractWidget::mainWindow() const
{
    // Kept: the search passes every widget there is, and each page asks at its building, showing and hiding.
    // A window that is being destroyed is none any more, which the cast sees before the pointer does.
    static QPointer<QWidget> pFound;
    if (!qobject_cast<MainWindow*>(pFound))
    {
        const auto widgets = QApplication::topLevelWidgets();
        const auto found = std::find_if(widgets.begin(), widgets.end(),
                                        [](QWidget* pWidget) { return qobject_cast<MainWindow*>(pWidget); });
        pFound = found == widgets.end() ? nullptr : *found;
    }
    return qobject_cast<MainWindow*>(pFound);
}

t_transfer::ClientHolder& AbstractWidget::clientHolder() const
{
    auto* pMainWindow = mainWindow();
    if (!pMainWindow)
        throw t_common::LogicError(t_common::LogicError::NotFound, "pClientHolder is never initialized");
    return pMainWindow->clientHolder();
}

QStatusBar* AbstractWidget::statusBar() const
{
    auto* pMainWindow = mainWindow();
    return pMainWindow ? pMainWindow->statusBar() : nullptr;
}

QLabel* AbstractWidget::statusBarLabel(const QString& name) const
{
    auto* pStatusBar = statusBar();
    return pStatusBar ? pStatusBar->findChild<QLabel*>(name) : nullptr;
}

void AbstractWidget::statusBarLabelLed(bool isOn, const QString& toolTip)
{
    if (auto* pLabel = statusBarLabel("LED"))
    {
        pLabel->setPixmap(QPixmap(isOn ? ":/images/green.png" : ":/images/red.png"));
        pLabel->setToolTip(toolTip);
    }
}

QJsonValueRef AbstractWidget::setting() const { return config.widget.jRoot[objectName()]; }

void AbstractWidget::configGet() { announceRead(); }

void AbstractWidget::configSet(bool) {}

void AbstractWidget::settingRestore()
{
    const auto jSize = setting().toObject()["size"].toObject();
    const QSize size(jSize["width"].toInt(), jSize["height"].toInt());
    if (!jSize.isEmpty() && qMax(size.width(), size.height()) <= t_common::limit::windowSide)
        sizeStore = size;
}

void AbstractWidget::settingStore()
{
    if (!config.preferences.window.isAutoResize || !sizeStore.isValid())
        return;
    auto jSetting = setting().toObject();
    jSetting.insert("size", QJsonObject{{"width", sizeStore.width()}, {"height", sizeStore.height()}});
    setting() = jSetting;
}

void AbstractWidget::updateStatus() { announceRead(); }

void AbstractWidget::ledWordsSet(const QString& on, const QString& off)
{
    ledOn = on;
    ledOff = off;
}

void AbstractWidget::ledShow(bool isOn)
{
    const auto& words = isOn ? ledOn : ledOff;
    if (!words.isEmpty())
        statusBarLabelLed(isOn, words);
}

AbstractWidget* AbstractWidget::around(const QWidget* pWidget)
{
    for (auto* pParent = pWidget->parentWidget(); pParent; pParent = pParent->parentWidget())
        if (auto* pPage = qobject_cast<AbstractWidget*>(pParent))
            return pPage;
    return nullptr;
}

AbstractWidget* AbstractWidget::readerOf(const QWidget* pControl)
{
    auto* pPage = around(pControl);
    while (pPage && pPage->role == Role::Part && pPage->frame())
        pPage = pPage->frame();
    return pPage;
}

AbstractWidget* AbstractWidget::frame() const { return around(this); }

QVector<AbstractWidget*> AbstractWidget::innerPages() const
{
    QVector<AbstractWidget*> pages;
    for (auto* pPage : findChildren<AbstractWidget*>())
        if (pPage->frame() == this)
            pages.append(pPage);
    return pages;
}

/// Whether another page is around this one, and with it the window's size and the LED's failure.
bool AbstractWidget::isInFrame() const
{
    const auto* pFrame = frame();
    return pFrame && !pFrame->objectName().isEmpty();
}

bool AbstractWidget::isWindowSizeFree() const
{
    auto* pMainWindow = mainWindow();
    return isSizeKept && !isInFrame() && config.preferences.window.isAutoResize && pMainWindow &&
           !pMainWindow->isMaximized();
}

bool AbstractWidget::isRead() const { return connection != 0 && connection == rest::Abstract::connection(); }

void AbstractWidget::readInstead()
{
    // One change may come as several signals: none of them is sent.
    isRefused = true;
    QMetaObject::invokeMethod(
        this, [this] { isRefused = false; }, Qt::QueuedConnection);
    const shortcut::WaitCursor waiting;
    announceRead();
    shortcut::paintNow(this);
    readStatus();
    if (auto* pStatusBar = statusBar())
        pStatusBar->showMessage(tr("Not sent: the board's values had not been read yet"), 0);
}

/// A page must not write what it has not read from this board. A part leaves that to its frame.
bool AbstractWidget::isWriteFree()
{
    if (isReading && !isEchoing)
    {
        // The control shows what nobody has sent: once more, when this read is over.
        QMetaObject::invokeMethod(this, &AbstractWidget::refresh, Qt::QueuedConnection);
        return false;
    }
    if (role == Role::Part || isReading || (isRead() && !isRefused))
        return true;
    if (!isRefused)
        readInstead();
    return false;
}

void AbstractWidget::announceRead()
{
    if (role != Role::Page)
        return;
    // The failure of the page around this one stays.
    for (const auto* pFrame = frame(); pFrame; pFrame = pFrame->frame())
        if (pFrame->isStale)
            return;
    if (auto* pStatusBar = statusBar())
        pStatusBar->showMessage(tr("Request update..."), 2000);
    // A page without words would not light it again.
    if (ledNeighbours().isEmpty())
        ledGrey();
}

void AbstractWidget::ledGrey()
{
    auto* pLabel = statusBarLabel("LED");
    if (!pLabel || role != Role::Page)
        return;
    pLabel->setPixmap(QPixmap(":/images/gray.png"));
    pLabel->setToolTip(QString());
}

void AbstractWidget::readHandler()
{
    // The frame's turn came first: where nobody answered it, nobody would answer here.
    const auto* pFrame = frame();
    if (!isVisible() || isReading || (pFrame && pFrame->isSilent && role == Role::Page))
        return;
    const shortcut::WaitCursor waiting;
    guarded([this] { configGet(); });
    AbstractWidget::updateStatus();
    if (role == Role::Page)
        shortcut::paintNow(this);
    guarded([this] { readStatus(); });
}

// A read that is asked for in the middle of a read would only show the same again.
void AbstractWidget::readStatus()
{
    if (isReading)
        return;
    const QScopedValueRollback<bool> reading(isReading, true);
    ++reads;
    isSilent = false;
    if (!isRead())
        for (auto* pRow : shortcut::rowsReadBy(this))
        {
            pRow->firstValueForget();
            connect(pRow, &SliderSpinWidget::menuOpening, this, &AbstractWidget::rowMenuFill, Qt::UniqueConnection);
        }
    const bool wasStale = std::exchange(isStale, true);
    // The text of a failure that is over must not stay.
    if (wasStale)
        announceRead();
    try
    {
        updateStatus();
    }
    catch (const std::exception& exception)
    {
        isSilent = dynamic_cast<const t_common::NoAnswer*>(&exception);
        ledGrey();
        throw;
    }
    isStale = isSkipped && wasStale;
    if (!std::exchange(isSkipped, false))
        connection = rest::Abstract::connection();
    if (wasStale && !isStale)
        for (auto* pPage : ledNeighbours())
            pPage->guarded([pPage] { pPage->readStatus(); });
}

void AbstractWidget::rowMenuFill(QMenu* pMenu) { shortcut::changedRowsOffer(*pMenu, this); }

/// Whose the LED is while this page has no words for it: those beside it in a frame.
QVector<AbstractWidget*> AbstractWidget::ledNeighbours() const
{
    QVector<AbstractWidget*> neighbours;
    if (ledOn.isEmpty() && isInFrame())
        for (auto* pPage : frame()->innerPages())
            if (pPage->isVisible() && !pPage->ledOn.isEmpty())
                neighbours.append(pPage);
    return neighbours;
}

void AbstractWidget::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    // Children are shown before their parents, but the frame's read comes first: it shows its inner pages then.
    auto* pFrame = frame();
    if (pFrame && !pFrame->isShown)
        return;
    // Chosen by the user in a frame that stands: an earlier silence is no reason not to ask.
    if (pFrame)
        pFrame->isSilent = false;
    showRead();
}

void AbstractWidget::showRead()
{
    isShown = true;
    guarded(
        [this]
        {
            const shortcut::WaitCursor waiting;
            // The stack of all pages leaves that to each of them.
            if (role != Role::Container || !objectName().isEmpty())
            {
                shortcut::wheelIgnore(this);
                if (!isInFrame())
                    shortcut::columnsAlign(this);
                shortcut::tabOrderSet(this);
            }
            if (isWindowSizeFree() && sizeStore.isValid())
                mainWindow()->resize(sizeStore);
            AbstractWidget::updateStatus();
            emit read();
            const auto* pFrame = frame();
            if (role != Role::Page || !(isSilent || (pFrame && pFrame->isSilent)))
                readStatus();
        });
    afterShow();
    for (auto* pInner : innerPages())
        if (pInner->isVisible() && !pInner->isShown)
            pInner->showRead();
}

void AbstractWidget::hideEvent(QHideEvent* pEvent)
{
    QWidget::hideEvent(pEvent);
    isShown = false;
    for (const auto& pTimer : qAsConst(ticks))
        if (pTimer)
            pTimer->stop();
    if (isWindowSizeFree())
        sizeStore = mainWindow()->size();
}

void AbstractWidget::paintEvent(QPaintEvent* pEvent)
{
    QWidget::paintEvent(pEvent);
    if (isWindowSizeFree() && !sizeStore.isValid())
    {
        sizeStore = mainWindow()->size() + sizeHint() - size();
        mainWindow()->resize(sizeStore);
    }
}

void AbstractWidget::connectSwitch(QCheckBox* pCheckBox, const std::function<void(bool)>& fEnableSet,
                                   const std::function<void(bool)>& fGrey, shortcut::Grey grey)
{
    connect(pCheckBox, &QCheckBox::toggled, this,
            [this, pCheckBox, fEnableSet, fGrey, grey](bool isEnable)
            {
                if (!isReading && !isRead())
                {
                    // Back first: not every page's read sets its box.
                    shortcut::NoSignals::setChecked(pCheckBox, !isEnable);
                    guarded([this] { readInstead(); });
                    return;
                }
                // Some switches take two commands.
                const shortcut::WaitCursor waiting;
                const bool isDone = guarded([&] { fEnableSet(isEnable); });
                // The command may have set the box back.
                if (isDone)
                    ledShow(pCheckBox->isChecked());
                if (isDone || grey == shortcut::Grey::Always)
                    fGrey(!pCheckBox->isChecked());
            });
}

/// After something that blocked the window, every poll around this page waits its interval, or their turns would fill
/// all the time between two time limits.
void AbstractWidget::ticksDelay()
{
    for (const auto* pPage : window()->findChildren<AbstractWidget*>())
        for (const auto& pTimer : pPage->ticks)
            if (pTimer && pTimer->isActive())
                pTimer->start();
}

/// The board is back: reads what failed before, from the outermost page inwards.
void AbstractWidget::recover(bool hasRead)
{
    QVector<AbstractWidget*> staleFrames;
    for (auto* pFrame = frame(); pFrame; pFrame = pFrame->frame())
        if (pFrame->isStale)
            staleFrames.prepend(pFrame);
    for (auto* pFrame : qAsConst(staleFrames))
        pFrame->readHandler();
    if (!staleFrames.isEmpty() || (isStale && !hasRead))
        readHandler();
}

void AbstractWidget::connectTick(QTimer* pTimer, const std::function<void()>& action)
{
    ticks.append(pTimer);
    connect(pTimer, &QTimer::timeout, this,
            [this, pTimer, action]
            {
                // A change that was committed by the hiding may have started it again.
                if (!isVisible())
                    return pTimer->stop();
                QElapsedTimer clock;
                clock.start();
                const auto readsBefore = reads;
                const bool isGood = guarded(action);
                const bool hasRead = reads != readsBefore;
                if (isGood && !(hasRead && isStale))
                    recover(hasRead);
                isStale = isStale || !isGood;
                if (clock.elapsed() > pTimer->interval() / 2)
                    ticksDelay();
            });
}
