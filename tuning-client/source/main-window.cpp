#include "tuning-client/source/main-window.h"

#include "tuning-client/source/about-dialog.h"
#include "tuning-client/source/chip/chips.h"
#include "tuning-client/source/config/config.h"
#include "tuning-client/source/control/console-widget.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/file/capture.h"
#include "tuning-client/source/finder.h"
#include "tuning-client/source/image-viewer-main-window.h"
#include "tuning-client/source/image/mosaic.h"
#include "tuning-client/source/image/yuv-file.h"
#include "tuning-client/source/module/central-widget.h"
#include "tuning-client/source/module/template-tree-model.h"
#include "tuning-client/source/preferences/preferences-dialog.h"
#include "tuning-client/source/settings-transfer.h"
#include "tuning-client/source/shortcut/failure-guard.h"
#include "tuning-client/source/shortcut/message-box.h"
#include "tuning-client/source/shortcut/wait-cursor.h"
#include "tuning-common/source/logic-error.h"
#include "tuning-rest/source/camera.h"
#include "tuning-rest/source/sensor.h"
#include "tuning-transfer/source/transfer-client.h"

#include <QAction>
#include <QDockWidget>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QTreeView>
#include <QtDebug>

#include <memory>

using t_common::LogicError;
using t_transfer::ClientHolder;

namespace
{
/// Clicks queue up while a capture blocks the window: for so long afterwards they are dropped.
constexpr int clicksDroppedMs = 100;
} // namespace

MainWindow::MainWindow(QWidget* parent, Qt::WindowFlags flags) : QMainWindow(parent, flags)
{
    auto jConfig = serverConfig();
    clientHolderSet(jConfig);
    setWindowIcon(QIcon(":/images/logo.png"));
    setWindowTitle("Orlenta ISP Tuning Tools");
    connect(&chips, &Chips::chipChanged, this, &MainWindow::chipRebuild);
    menusBuild();
    toolBarBuild();
    new Finder(this, pTreeViewFeature);
    connect(this, &MainWindow::captured, this, &MainWindow::showImage);
    connect(statusBar(), &QStatusBar::messageChanged, this, &MainWindow::statusBarColour);
    statusBarBuild();
    firstChipChoose();
    setMinimumSize(qMax(1150, sizeHint().width()), qMax(740, sizeHint().height()));
}

MainWindow::~MainWindow()
{
    if (pClientHolder)
        rest::Abstract::clientHolderForget(*pClientHolder);
    delete pClientHolder;
}

ClientHolder& MainWindow::clientHolder()
{
    if (!pClientHolder)
        throw LogicError(LogicError::NotFound, "pClientHolder is never initialized");
    return *pClientHolder;
}

ConsoleWidget& MainWindow::console()
{
    if (!pConsoleWidget)
        throw LogicError(LogicError::NotFound, "pConsoleWidget is Never initialized");
    return *pConsoleWidget;
}

/// With an empty server list the client exists all the same, without an address: its first command fails.
Json::Value MainWindow::serverConfig()
{
    auto& server = config.preferences.server;
    Json::Value jConfig;
    jConfig["type"] = server.type.toStdString();
    if (server.type == "uart")
        jConfig["port"] = server.uart.port.toStdString();
    else if (server.type == "http")
        shortcut::guarded(this,
                          [&]
                          {
                              const auto& current = server.http.server();
                              jConfig["ip"] = current.first.toStdString();
                              jConfig["port"] = current.second;
                          });
    return jConfig;
}

MainWindow& MainWindow::clientHolderSet(Json::Value& jConfig)
{
    const auto fReport = [this](const std::string& text) { report(text); };
    const auto warn = [this](const QString& text)
    { message_box::warning(message_box::frontGet(isVisible() ? this : nullptr), text); };
    std::unique_ptr<ClientHolder> pNew;
    try
    {
        if (jConfig["type"] == "http")
            pNew = std::make_unique<ClientHolder>(ClientHolder::Http, fReport, jConfig);
        else if (jConfig["type"] == "uart")
            pNew = std::make_unique<ClientHolder>(ClientHolder::Uart, fReport, jConfig);
        else
            warn(tr("Unset client type"));
    }
    catch (const std::exception& exception)
    {
        statusBar()->showMessage(exception.what(), 3000);
        warn(exception.what());
    }
    if (pNew)
    {
        delete pClientHolder;
        pClientHolder = pNew.release();
        rest::Abstract::clientHolderSet(*pClientHolder);
    }
    return *this;
}

/// May run on a worker thread; the console takes text from any.
void MainWindow::report(const std::string& text)
{
    try
    {
        console() << text;
    }
    catch (const std::exception& exception)
    {
        const QString message = exception.what();
        QMetaObject::invokeMethod(this, [this, message] { statusBar()->showMessage(message, 0); });
    }
}

void MainWindow::menusBuild()
{
    pMenuChip = menuBar()->addMenu(tr("&Chip"));
    for (const auto& name : chips.chips.keys())
    {
        auto* pAction = pMenuChip->addAction(name);
        connect(pAction, &QAction::triggered, this, [this, pAction] { chipTriggered(pAction); });
    }

    auto* pMenuFile = menuBar()->addMenu(tr("&File"));
    settingsTransferAdd(this, pMenuFile);
    pMenuFile->addSeparator();
    pMenuFile->addAction(tr("E&xit"), this, &QWidget::close);

    auto* pMenuEdit = menuBar()->addMenu(tr("&Edit"));
    pMenuEdit->addAction(tr("&Preferences"), this, &MainWindow::preferencesShow);

    docksBuild();

    pMenuInput = menuBar()->addMenu(tr("&Sensor"));
    pMenuInput->setObjectName("Sensor Menu");
    pMenuIsp = menuBar()->addMenu(tr("&ISP"));
    pMenuIsp->setObjectName("ISP Menu");

    auto* pMenuHelp = menuBar()->addMenu(tr("&Help"));
    pMenuHelp->addAction(tr("&About ISP Tuning Tools..."), this, [this] { (new AboutDialog(this))->show(); });
}

/// With another board behind the window, what the page shows is no longer true.
void MainWindow::preferencesShow()
{
    const auto connection = rest::Abstract::connection();
    (new PreferencesDialog(nullptr))->exec();
    if (rest::Abstract::connection() != connection)
        emit refresh();
}

void MainWindow::docksBuild()
{
    auto* pMenuView = menuBar()->addMenu(tr("&View"));
    pTreeViewFeature = new QTreeView;
    pTreeViewFeature->setAccessibleName(tr("Template"));
    pTreeViewFeature->setRootIsDecorated(false);
    pTreeViewFeature->setUniformRowHeights(true);
    pDockWidgetTemplate = dockBuild(pMenuView, Qt::LeftDockWidgetArea, tr("Template"), tr("&Template"),
                                    pTreeViewFeature, config.setting.isViewTemplate);
    pConsoleWidget = new ConsoleWidget(nullptr);
    pDockWidgetTransfer = dockBuild(pMenuView, Qt::BottomDockWidgetArea, tr("Transfer"), tr("T&ransfer"),
                                    pConsoleWidget, config.setting.isViewTransfer);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
}

QDockWidget* MainWindow::dockBuild(QMenu* pMenu, Qt::DockWidgetArea area, const QString& title,
                                   const QString& actionText, QWidget* pWidget, bool isShown)
{
    auto* pDock = new QDockWidget(title, this);
    pDock->setObjectName(title);
    pDock->setAllowedAreas(area);
    pDock->setWidget(pWidget);
    addDockWidget(area, pDock);
    pDock->setHidden(!isShown);

    auto* pAction = pMenu->addAction(actionText);
    pAction->setCheckable(true);
    pAction->setChecked(isShown);
    connect(pAction, &QAction::triggered, pDock, [pDock](bool checked) { pDock->setHidden(!checked); });
    connect(pDock, &QDockWidget::visibilityChanged, pAction, &QAction::setChecked);
    return pDock;
}

void MainWindow::toolBarBuild()
{
    auto* pToolBar = addToolBar(tr("Command"));
    pToolBar->setObjectName("Command");
    pToolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    pToolBar->addAction(QIcon(":/images/refresh.png"), tr("Refresh Status"), this, &MainWindow::refresh);
    pToolBar->addSeparator();

    const auto previewAdd = [&](QStyle::StandardPixmap icon, const QString& text, const QString& toolTip, bool isOn)
    {
        auto* pAction = pToolBar->addAction(style()->standardIcon(icon), text);
        pAction->setToolTip(toolTip);
        shortcut::connectGuarded(this, pAction, &QAction::triggered, [isOn] { rest::Camera().preview(isOn); });
    };
    previewAdd(QStyle::SP_MediaPlay, tr("&Start"), tr("Start Preview"), true);
    previewAdd(QStyle::SP_MediaStop, tr("&Stop"), tr("Stop Preview"), false);
    pToolBar->addSeparator();

    auto* pActionCapture = pToolBar->addAction(QIcon(":/images/screenshot.png"), tr("&Capture Image"));
    connect(pActionCapture, &QAction::triggered, this, [this, pActionCapture] { captureTriggered(pActionCapture); });
}

void MainWindow::captureTriggered(QAction* pAction)
{
    const auto capture = config.preferences.capture;
    const auto refuse = [this, &capture](const QString& text)
    {
        message_box::information(this, tr("Select Directory"), text,
                                 tr("%1\nIt is set in Edit > Preferences > Capture Settings.").arg(capture.path));
    };
    if (!QFileInfo(capture.path).isDir())
        return refuse(tr("The directory does not exist."));
    if (capture.path == QDir::currentPath())
        return refuse(tr("The image cannot be saved to the same path as the tuning_client.exe. Select another path"));

    pAction->setEnabled(false);
    captureStart(pAction, capture);
}

/// Two captures of one second would have the same name: the second one is that of the next.
void MainWindow::captureStart(QAction* pAction, const cfg::Capture& capture)
{
    const auto now = QDateTime::currentDateTime();
    if (shortcut::isCaptureNameTaken(capture, now))
        return QTimer::singleShot(1000 - now.time().msec(), Qt::PreciseTimer, pAction,
                                  [=] { captureStart(pAction, capture); });

    QString fileName;
    shortcut::guarded(this,
                      [&]
                      {
                          const shortcut::WaitCursor waiting;
                          fileName = shortcut::captureTake(clientHolder(), capture);
                      });
    if (!fileName.isEmpty())
        emit captured(fileName);
    QTimer::singleShot(clicksDroppedMs, pAction, [pAction] { pAction->setEnabled(true); });
}

void MainWindow::showImage(QString fileName)
{
    shortcut::guarded(this,
                      [&]
                      {
                          if (config.preferences.capture.snapshotType == rest::Camera::Yuv)
                          {
                              const shortcut::WaitCursor waiting;
                              rest::Sensor::Status status;
                              rest::Sensor().statusGet(status);
                              const auto& resolution = status.resolutionCollection.resolution;
                              fileName = yuvFileConvert(fileName, resolution.width, resolution.height);
                          }
                          auto* pViewer = new ImageViewerMainWindow(this);
                          pViewer->show();
                          pViewer->open(QFileInfo(fileName).dir());
                          if (!mosaic::isRawCapture(fileName))
                              return;
                          rest::Sensor::Config sensor;
                          rest::Sensor().configGet(sensor);
                          pViewer->patternSet(fileName, sensor.bayerPattern);
                      });
}

void MainWindow::statusBarBuild()
{
    for (const auto* name : {"Sensor", "Sensor Index", "LED"})
    {
        auto* pLabel = new QLabel;
        pLabel->setObjectName(name);
        pLabel->setAccessibleName(name);
        if (pLabel->objectName() != "Sensor Index")
            pLabel->setMaximumSize(16, 16);
        if (pLabel->objectName() == "LED")
            pLabel->setPixmap(QPixmap(":/images/gray.png"));
        statusBar()->addPermanentWidget(pLabel);
    }
}

void MainWindow::statusBarColour(const QString& message)
{
    const auto m = message.toLower();
    const char* colour = "default";
    if (m.contains("server"))
        colour = "darkMagenta";
    else if (m.contains("failed") || m.contains("error"))
        colour = "darkRed";
    const auto sheet = QString("QStatusBar { color: %1; }").arg(colour);
    // Polishing again costs more than the message itself.
    if (statusBar()->styleSheet() != sheet)
        statusBar()->setStyleSheet(sheet);
}

void MainWindow::firstChipChoose()
{
    const auto actions = pMenuChip->actions();
    const auto& chipName = config.setting.chipName;
    if (chipName.isEmpty() && !actions.isEmpty())
    {
        actions.first()->trigger();
        return;
    }
    for (auto* pAction : actions)
    {
        if (pAction->text() == chipName)
        {
            pAction->trigger();
            return;
        }
    }
}

void MainWindow::chipRebuild()
{
    auto* pOldModel = pTreeViewFeature->model();
    auto* pOldSelection = pTreeViewFeature->selectionModel();
    pTreeViewFeature->setModel(new TemplateTreeModel(chips.chips.value(chips.chip.chipName), pTreeViewFeature));
    delete pOldSelection;
    delete pOldModel;
    // As wide as the longest page name, beside the scroll bar of a long list; beyond that another one reaches its end.
    const QAbstractItemView* pView = pTreeViewFeature;
    const int width = pView->sizeHintForColumn(0);
    pTreeViewFeature->header()->setMinimumSectionSize(width);
    const int letter = pTreeViewFeature->fontMetrics().averageCharWidth();
    const int frame = 2 * pTreeViewFeature->frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    pTreeViewFeature->setMinimumWidth(qMin(width + frame, 40 * letter));
    connect(pTreeViewFeature->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current)
            {
                if (auto* pCentralWidget = qobject_cast<CentralWidget*>(centralWidget()))
                    pCentralWidget->setCurrentIndex(current.row());
            });

    unitMenuRebuild(pMenuInput, tr("Sensor &"), chips.chip.inputMax, &MainWindow::inputTriggered);
    unitMenuRebuild(pMenuIsp, tr("Core &"), chips.chip.ispMax, &MainWindow::ispTriggered);
    setCentralWidget(new CentralWidget(this));
}

void MainWindow::unitMenuRebuild(QMenu* pMenu, const QString& text, int count, void (MainWindow::*fTriggered)(QAction*))
{
    pMenu->clear();
    for (int i = 0; i < count; ++i)
    {
        auto* pAction = pMenu->addAction(text + QString::number(i));
        pAction->setObjectName(QString::number(i));
        connect(pAction, &QAction::triggered, this, [this, pAction, fTriggered] { (this->*fTriggered)(pAction); });
    }
}

// Also for the marked entry: choosing the current chip again builds it anew.
void MainWindow::chipTriggered(QAction* pAction)
{
    shortcut::guarded(this,
                      [this, pAction]
                      {
                          chips.chipSet(pAction->text());
                          mark(pAction, ":/images/chipminimono_105770.png");
                      });
}

void MainWindow::inputTriggered(QAction* pAction)
{
    if (isMarked(pAction))
        return;
    mark(pAction, ":/images/sensor-on.png");

    for (auto* pLabel : statusBar()->findChildren<QLabel*>())
        if (pLabel->objectName() == "Sensor")
            pLabel->setPixmap(QPixmap(":/images/sensor-on.png")
                                  .scaled(pLabel->maximumWidth(), pLabel->maximumHeight(), Qt::KeepAspectRatio,
                                          Qt::FastTransformation));
        else if (pLabel->objectName() == "Sensor Index")
            pLabel->setText(pAction->objectName());

    int32_t inputType = 0;
    std::string driverFileName;
    try
    {
        rest::Camera().inputSwitch(pAction->objectName().toInt(), inputType, driverFileName);
        // What was read first is another sensor's: no way back to that.
        for (auto* pRow : centralWidget()->findChildren<SliderSpinWidget*>())
            pRow->firstValueForget();
    }
    catch (const std::exception& exception)
    {
        qWarning("%s", exception.what());
    }
}

void MainWindow::inputFollow(int index)
{
    const auto actions = pMenuInput->actions();
    if (index >= 0 && index < actions.size())
        actions[index]->trigger();
}

void MainWindow::ispTriggered(QAction* pAction)
{
    if (!isMarked(pAction))
        mark(pAction, ":/images/sensor-on.png");
}

bool MainWindow::isMarked(const QAction* pAction) const { return !pAction->icon().isNull(); }

void MainWindow::mark(QAction* pAction, const QString& icon)
{
    for (auto* pOther : qobject_cast<QMenu*>(pAction->parent())->actions())
        if (isMarked(pOther))
            pOther->setIcon(QIcon());
    // A highlighted entry is as dark as the marks are.
    QPixmap onLight(icon);
    onLight.fill(palette().color(QPalette::Base));
    QPainter(&onLight).drawPixmap(0, 0, QPixmap(icon));
    QIcon markIcon(icon);
    markIcon.addPixmap(onLight, QIcon::Active);
    pAction->setIcon(markIcon);
}

// Entries of menus have no tips. An empty one would clear the status bar, and with it the text of a failure.
bool MainWindow::event(QEvent* pEvent)
{
    const bool isEmptyTip =
        pEvent->type() == QEvent::StatusTip && static_cast<QStatusTipEvent*>(pEvent)->tip().isEmpty();
    return isEmptyTip || QMainWindow::event(pEvent);
}

void MainWindow::closeEvent(QCloseEvent* pEvent)
{
    QMainWindow::closeEvent(pEvent);
    config.setting.isViewTemplate = !pDockWidgetTemplate->isHidden();
    config.setting.isViewTransfer = !pDockWidgetTransfer->isHidden();
}

void MainWindow::showEvent(QShowEvent* pEvent) { QMainWindow::showEvent(pEvent); }
