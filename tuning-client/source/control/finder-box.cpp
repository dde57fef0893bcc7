#include "tuning-client/source/control/finder-box.h"

#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/shortcut/form.h"
#include "tuning-client/source/shortcut/reveal.h"
#include "tuning-client/source/shortcut/tab-order.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSet>
#include <QStringListModel>
#include <QTabWidget>
#include <QVBoxLayout>

namespace
{
constexpr int lines = 12;
constexpr int letters = 90; ///< of the window's font, in a line
constexpr int listed = 100; ///< more would be no help, and cost time at each key

QString withoutMnemonic(QString text) { return text.replace("&&", "\n").remove('&').replace('\n', '&'); }

/// Empty for what only scrolls, or for the second half of a row.
QString labelOf(const QWidget* pControl)
{
    if (qobject_cast<const SliderSpinWidget*>(pControl->parentWidget()) && pControl->inherits("QSlider"))
        return {};
    if (!pControl->accessibleName().isEmpty())
        return pControl->accessibleName();
    if (const auto* pGroupBox = qobject_cast<const QGroupBox*>(pControl))
        return pGroupBox->title();
    if (const auto* pButton = qobject_cast<const QAbstractButton*>(pControl))
        return withoutMnemonic(pButton->text());
    const auto* pLabel = shortcut::labelOf(pControl);
    return pLabel ? withoutMnemonic(pLabel->text()) : QString();
}
} // namespace

FinderBox::FinderBox(QWidget* pWindow, const QVector<QWidget*>& pages)
    : QFrame(pWindow, Qt::Popup), pLineEdit(new QLineEdit), pListView(new QListView), pModel(new QStringListModel(this))
{
    setFrameStyle(QFrame::Box | QFrame::Plain);
    auto* pLayout = new QVBoxLayout(this);
    pLayout->addWidget(pLineEdit);
    pLayout->addWidget(pListView);
    pLineEdit->setAccessibleName(tr("Find"));
    pLineEdit->setPlaceholderText(tr("Find a page or a control"));
    pLineEdit->installEventFilter(this);
    pListView->setAccessibleName(tr("Found"));
    pListView->setFocusPolicy(Qt::NoFocus);
    pListView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    pListView->setUniformItemSizes(true);
    pListView->setTextElideMode(Qt::ElideMiddle);
    pListView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    pListView->setModel(pModel);
    setFocusProxy(pLineEdit);

    for (int i = 0; i < pages.size(); ++i)
        pageAdd(i, pages[i]);
    connect(pLineEdit, &QLineEdit::textChanged, this, &FinderBox::find);
    connect(pLineEdit, &QLineEdit::returnPressed, this, [this] { choose(pListView->currentIndex().row()); });
    connect(pListView, &QListView::clicked, this, [this](const QModelIndex& index) { choose(index.row()); });
}

/// The page itself, its tabs and inner pages before what stands in them, and its controls.
/// Tabs are found by their bar as well, since some hold plots alone.
void FinderBox::pageAdd(int page, QWidget* pPage)
{
    const QStringList start(pPage->accessibleName());
    entryAdd(page, nullptr, start);
    QSet<const QWidget*> leaves;
    const auto pathTo = [&](QWidget* pWidget)
    {
        QVector<QWidget*> around;
        for (; pWidget != pPage; pWidget = pWidget->parentWidget())
            around.prepend(pWidget);
        auto path = start;
        for (auto* pPlace : qAsConst(around))
        {
            const auto title = shortcut::titleOf(pPlace);
            if (title.isEmpty())
                continue;
            path.append(title);
            if (shortcut::isLeaf(pPlace) && !leaves.contains(pPlace))
            {
                leaves.insert(pPlace);
                entryAdd(page, pPlace, path);
            }
        }
        return path;
    };
    for (auto* pControl : shortcut::controlsInOrder(pPage))
    {
        const auto* pTabs = qobject_cast<const QTabWidget*>(pControl->parentWidget());
        for (int i = 0; pTabs && i < pTabs->count(); ++i)
            pathTo(pTabs->widget(i));
        const auto label = labelOf(pControl);
        if (!label.isEmpty())
            entryAdd(page, pControl, pathTo(pControl->parentWidget()) << label);
    }
}

void FinderBox::entryAdd(int page, QWidget* pControl, const QStringList& path)
{
    entries.append({page, !pControl, pControl, path.join(QStringLiteral(" \u203a "))});
    search.add(path);
}

void FinderBox::open()
{
    const auto* pWindow = parentWidget();
    pLineEdit->clear();
    find();
    const int row = qMax(pListView->sizeHintForRow(0), fontMetrics().height());
    pListView->setFixedHeight(lines * row + 2 * pListView->frameWidth());
    const int width = qMin(letters * fontMetrics().averageCharWidth(), pWindow->width() * 9 / 10);
    resize(width, sizeHint().height());
    move(pWindow->mapToGlobal(QPoint((pWindow->width() - width) / 2, pWindow->height() / 10)));
    show();
    pLineEdit->setFocus(Qt::PopupFocusReason);
}

/// Nothing typed lists the pages.
void FinderBox::find()
{
    found.clear();
    const bool isEmpty = pLineEdit->text().trimmed().isEmpty();
    if (isEmpty)
    {
        for (int i = 0; i < entries.size(); ++i)
            if (entries[i].isPage)
                found.append(i);
    }
    else
        found = search.find(pLineEdit->text()).mid(0, listed);

    QStringList texts;
    for (int i : qAsConst(found))
        texts.append(entries[i].text);
    if (texts.isEmpty())
        texts.append(tr("Nothing found"));
    pModel->setStringList(texts);
    if (!isEmpty && !found.isEmpty())
        pListView->setCurrentIndex(pModel->index(0));
}

void FinderBox::choose(int row)
{
    if (row < 0 || row >= found.size())
        return;
    const auto entry = entries[found[row]];
    // First: the reading of the page may take its time.
    close();
    emit chosen(entry.page, entry.pControl);
}

bool FinderBox::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (pEvent->type() == QEvent::KeyPress)
    {
        switch (static_cast<QKeyEvent*>(pEvent)->key())
        {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QApplication::sendEvent(pListView, pEvent);
            return true;
        }
    }
    return QFrame::eventFilter(pWatched, pEvent);
}

/// Some window systems activate a popup, and nothing when it goes.
void FinderBox::hideEvent(QHideEvent* pEvent)
{
    QFrame::hideEvent(pEvent);
    parentWidget()->activateWindow();
}

void FinderBox::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        close();
}
