#include "tuning-client/source/finder.h"

#include "tuning-client/source/control/finder-box.h"
#include "tuning-client/source/module/central-widget.h"
#include "tuning-client/source/shortcut/reveal.h"

#include <QMainWindow>
#include <QShortcut>
#include <QStackedWidget>
#include <QTreeView>

Finder::Finder(QMainWindow* pMainWindow_, QTreeView* pTreeViewFeature_)
    : QObject(pMainWindow_), pMainWindow(pMainWindow_), pTreeViewFeature(pTreeViewFeature_)
{
    auto* pShortcut = new QShortcut(QKeySequence(Qt::CTRL + Qt::Key_K), pMainWindow);
    connect(pShortcut, &QShortcut::activated, this, &Finder::open);
}

/// The box is made when it is first asked for, and anew for the pages of another chip.
void Finder::open()
{
    auto* pCentralWidget = qobject_cast<CentralWidget*>(pMainWindow->centralWidget());
    if (!pCentralWidget)
        return;
    if (!pBox || pIndexed != pCentralWidget)
    {
        delete pBox;
        QVector<QWidget*> pages;
        for (int i = 0; i < pCentralWidget->pStackedWidget->count(); ++i)
            pages.append(pCentralWidget->pStackedWidget->widget(i));
        pBox = new FinderBox(pMainWindow, pages);
        pIndexed = pCentralWidget;
        connect(pBox, &FinderBox::chosen, this, &Finder::go);
    }
    pBox->open();
}

void Finder::go(int page, QWidget* pControl)
{
    // The reading of the page may take its control away.
    const QPointer<QWidget> pTarget = pControl;
    pTreeViewFeature->setCurrentIndex(pTreeViewFeature->model()->index(page, 0));
    if (pTarget)
        shortcut::reveal(pTarget);
}
