#pragma once

#include <QObject>

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
    FinderBox* pBox = nullptr;
};
