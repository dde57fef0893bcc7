#include "tuning-client/source/finder.h"

#include "tuning-client/source/control/finder-box.h"
#include "tuning-client/source/module/central-widget.h"
#include "tuning-client/source/shortcut/reveal.h"

#include <QMainWindow>
#include <QPointer>
#include <QShortcut>
#include <QStackedWidget>
#include <QTreeView>

Finder::Finder(QMainWindow* pMainWindow_, QTreeView* pTreeViewFeature_)
    : QObject(pMainWindow_), pMainWindow(pMainWindow_), pTreeViewFeature(pTreeViewFeature_)
{
    auto* pShortcut = new QShortcut(QKeySequence(Qt::CTRL + Qt::Key_K), pMainWindow);
    connect(pShortcut, &QShortcut::activated, this, &Finder::open);
}

/// The box is made anew each time, in some 10 ms: the pages may be those of another chip, and what stands on a page and
/// how it is called changes as well.
void Finder::open()
{
    auto* pCentralWidget = qobject_cast<CentralWidget*>(pMainWindow->centralWidget());
    if (!pCentralWidget)
        return;
    QVector<QWidget*> pages;
    for (int i = 0; i < pCentralWidget->pStackedWidget->count(); ++i)
        pages.append(pCentralWidget->pStackedWidget->widget(i));
    if (pBox)
        pBox->deleteLater();
    pBox = new FinderBox(pMainWindow, pages);
    connect(pBox, &FinderBox::chosen, this, &Finder::go);
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
