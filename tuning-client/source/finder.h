#pragma once

#include <QObject>
#include <QPointer>

class FinderBox;
class QMainWindow;
class QTreeView;
class QWidget;

/// Ctrl+K in the main window: a box that finds a page or a control of the present chip by its words, and goes there
/// through the page's row in the feature tree.
class Finder : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the window.
    Finder(QMainWindow* pMainWindow, QTreeView* pTreeViewFeature);

private:
    void open();
    void go(int page, QWidget* pControl);

    QMainWindow* pMainWindow;
    QTreeView* pTreeViewFeature;
    QPointer<QWidget> pIndexed; ///< the pages that the box knows
    FinderBox* pBox = nullptr;
};
