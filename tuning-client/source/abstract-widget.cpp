#include "tuning-client/source/abstract-widget.h"

#include "tuning-client/source/config/config.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/main-window.h"
#include "tuning-client/source/shortcut/wheel-filter.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/logic-error.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QStatusBar>

AbstractWidget::AbstractWidget(QWidget* pParent, const QString& name, bool isSetupUi) : QWidget(pParent)
{
    setObjectName(name);
    if (!isSetupUi)
    {
        auto* pLayout = new QGridLayout(this);
        auto* pScrollArea = new QScrollArea(this);
        pScrollArea->setWidgetResizable(true);
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
    AbstractWidget::settingRestore();
}

AbstractWidget::~AbstractWidget() { AbstractWidget::settingStore(); }

MainWindow* AbstractWidget::mainWindow() const
{
    for (auto* pWidget : QApplication::topLevelWidgets())
        if (auto* pMainWindow = qobject_cast<MainWindow*>(pWidget))
            return pMainWindow;
    return nullptr;
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

void AbstractWidget::announceRead()
{
    if (isContainer)
        return;
    if (auto* pStatusBar = statusBar())
        pStatusBar->showMessage(tr("Request update..."), 2000);
    if (auto* pLabel = statusBarLabel("LED"))
    {
        pLabel->setPixmap(QPixmap(":/images/gray.png"));
        pLabel->setToolTip(QString());
    }
}

void AbstractWidget::readHandler()
{
    if (!isVisible() || isReading)
        return;
    guarded([this] { configGet(); });
    AbstractWidget::updateStatus();
    guarded([this] { readStatus(); });
}

// A read that is asked for in the middle of a read would only show the same again.
void AbstractWidget::readStatus()
{
    if (isReading)
        return;
    const QScopedValueRollback<bool> reading(isReading, true);
    updateStatus();
}

bool AbstractWidget::isWindowSizeFree() const
{
    auto* pMainWindow = mainWindow();
    return config.preferences.window.isAutoResize && pMainWindow && !pMainWindow->isMaximized();
}

void AbstractWidget::showEvent(QShowEvent* pEvent)
{
    guarded(
        [this, pEvent]
        {
            QWidget::showEvent(pEvent);
            shortcut::wheelIgnore(this);
            SliderSpinWidget::align(this);
            if (isWindowSizeFree() && sizeStore.isValid())
                mainWindow()->resize(sizeStore);
            AbstractWidget::updateStatus();
            emit read();
            readStatus();
        });
}

void AbstractWidget::hideEvent(QHideEvent* pEvent)
{
    QWidget::hideEvent(pEvent);
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

void AbstractWidget::connectTick(QTimer* pTimer, const std::function<void()>& action)
{
    connect(pTimer, &QTimer::timeout, this,
            [this, pTimer, action]
            {
                QElapsedTimer clock;
                clock.start();
                guarded(action);
                if (pTimer->isActive() && clock.elapsed() > pTimer->interval() / 2)
                    pTimer->start();
            });
}
