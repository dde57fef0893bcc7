#pragma once

#include <QMainWindow>

#include <json/value.h>

#include <functional>

class ConsoleWidget;
class QAction;
class QDockWidget;
class QMenu;
class QTreeView;

namespace cfg
{
struct Capture;
}

namespace t_transfer
{
class ClientHolder;
}

/// The one top-level window: the connection to the board, menus, docks, tool bar and status bar, and the pages of the
/// chosen chip.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr, Qt::WindowFlags flags = {});
    ~MainWindow() override;

    /// Throws t_common::LogicError code 9 when there is none.
    t_transfer::ClientHolder& clientHolder();

    /// Throws t_common::LogicError code 9 when there is none.
    ConsoleWidget& console();

    /// Makes a new client from `jConfig` ("type", "ip", "port") and puts it in place. When that fails the user is told
    /// and the present client stays.
    MainWindow& clientHolderSet(Json::Value& jConfig);

    /// Chooses the entry of the board's present input, which tells the board where it is not the marked one. An index
    /// without an entry changes nothing.
    void inputFollow(int index);

signals:
    /// All pages connect to it; the visible one reads.
    void refresh();

    /// A capture was stored as `fileName`.
    void captured(QString fileName);

public slots:
    /// Shows a capture in a viewer of its own, one in YUV through a PPM file beside it.
    void showImage(QString fileName);

protected:
    bool event(QEvent* pEvent) override;
    void closeEvent(QCloseEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;

private:
    Json::Value serverConfig();
    void menusBuild();
    void preferencesShow();
    void docksBuild();
    QDockWidget* dockBuild(QMenu* pMenu, Qt::DockWidgetArea area, const QString& title, const QString& actionText,
                           QWidget* pWidget, bool isShown);
    void toolBarBuild();
    void statusBarBuild();
    void statusBarColour(const QString& message);
    void firstChipChoose();
    void chipRebuild();
    void unitMenuRebuild(QMenu* pMenu, const QString& text, int count, void (MainWindow::*fTriggered)(QAction*));
    void captureTriggered(QAction* pAction);
    void captureStart(QAction* pAction, const cfg::Capture& capture);
    void chipTriggered(QAction* pAction);
    void inputTriggered(QAction* pAction);
    void ispTriggered(QAction* pAction);
    bool isMarked(const QAction* pAction) const;
    void mark(QAction* pAction, const QString& icon);
    void report(const std::string& text);

    t_transfer::ClientHolder* pClientHolder = nullptr;
    ConsoleWidget* pConsoleWidget = nullptr;
    QDockWidget* pDockWidgetTemplate = nullptr;
    QDockWidget* pDockWidgetTransfer = nullptr;
    QMenu* pMenuChip = nullptr;
    QMenu* pMenuInput = nullptr;
    QMenu* pMenuIsp = nullptr;
    QTreeView* pTreeViewFeature = nullptr;
};
