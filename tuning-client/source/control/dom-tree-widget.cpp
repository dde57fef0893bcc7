#include "tuning-client/source/control/dom-tree-widget.h"

#include "tuning-client/source/control/variant-delegate.h"

#include <QEvent>
#include <QHeaderView>
#include <QStyle>

#include <algorithm>

namespace
{
/// The way from the top level down to an item.
QVector<int> path(const QTreeWidgetItem* pItem, const QTreeWidgetItem* pRoot)
{
    QVector<int> places;
    for (; pItem; pItem = pItem->parent())
        places.prepend((pItem->parent() ? pItem->parent() : pRoot)->indexOfChild(const_cast<QTreeWidgetItem*>(pItem)));
    return places;
}

/// By index: to ask an item costs a search among its siblings.
void pathsExpandedCollect(const QTreeView& tree, const QModelIndex& parent, const QVector<int>& places,
                          QVector<QVector<int>>& found)
{
    for (int i = 0; i < tree.model()->rowCount(parent); ++i)
    {
        const auto index = tree.model()->index(i, 0, parent);
        if (tree.isExpanded(index))
        {
            const auto path = places + QVector<int>{i};
            found.append(path);
            pathsExpandedCollect(tree, index, path, found);
        }
    }
}

QTreeWidgetItem* itemAlong(QTreeWidgetItem* pItem, const QVector<int>& places)
{
    for (int i : places)
        pItem = pItem ? pItem->child(i) : nullptr;
    return pItem;
}
} // namespace

DomTreeWidget::DomTreeWidget(QWidget* pParent) : TextView(pParent)
{
    setItemDelegate(new VariantDelegate(this));
    setHeaderLabels({tr("Key"), tr("Value")});
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(1, QHeaderView::Stretch);
    setUniformRowHeights(true);

    iconGroup.addPixmap(style()->standardPixmap(QStyle::SP_DirClosedIcon), QIcon::Normal, QIcon::Off);
    iconGroup.addPixmap(style()->standardPixmap(QStyle::SP_DirOpenIcon), QIcon::Normal, QIcon::On);
    iconKey.addPixmap(style()->standardPixmap(QStyle::SP_FileIcon), QIcon::Normal, QIcon::Off);
}

void DomTreeWidget::domBinding(QDomDocument& document)
{
    clear();
    doc = document;
    if (!doc.isNull())
        refresh();
}

void DomTreeWidget::refresh()
{
    if (doc.isNull())
        return;
    disconnect(this, &QTreeWidget::itemChanged, this, &DomTreeWidget::updateDom);
    QVector<QVector<int>> expanded;
    pathsExpandedCollect(*this, {}, {}, expanded);
    const auto current = path(currentItem(), invisibleRootItem());

    // Not within the tree, which would look at each item as it comes.
    QTreeWidgetItem root;
    updateChildItems(doc.documentElement(), &root);
    clear();
    addTopLevelItems(root.takeChildren());

    for (const auto& places : qAsConst(expanded))
        if (auto* pItem = itemAlong(invisibleRootItem(), places))
            pItem->setExpanded(true);
    if (!current.isEmpty())
        setCurrentItem(itemAlong(invisibleRootItem(), current));
    connect(this, &QTreeWidget::itemChanged, this, &DomTreeWidget::updateDom);
}

void DomTreeWidget::refreshMaybe()
{
    if (state() != EditingState)
        refresh();
}

bool DomTreeWidget::event(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::WindowActivate && isActiveWindow())
        refreshMaybe();
    return QTreeWidget::event(pEvent);
}

int DomTreeWidget::childCount(const QTreeWidgetItem* pParent) const
{
    return pParent ? pParent->childCount() : topLevelItemCount();
}

QTreeWidgetItem* DomTreeWidget::childAt(const QTreeWidgetItem* pParent, int index) const
{
    return pParent ? pParent->child(index) : topLevelItem(index);
}

int DomTreeWidget::childFind(const QTreeWidgetItem* pParent, const QString& text, int startIndex) const
{
    for (int i = std::max(startIndex, 0); i < childCount(pParent); ++i)
        if (childAt(pParent, i)->text(0) == text)
            return i;
    return -1;
}

QTreeWidgetItem* DomTreeWidget::childCreate(const QString& text, QTreeWidgetItem* pParent, int index)
{
    auto* pItem = new QTreeWidgetItem;
    pItem->setText(0, text);
    pItem->setFlags(pItem->flags() | Qt::ItemIsEditable);
    (pParent ? pParent : invisibleRootItem())->insertChild(index, pItem);
    return pItem;
}

void DomTreeWidget::updateDom(QTreeWidgetItem* pItem)
{
    auto element = pItem->data(0, Qt::UserRole).value<QDomElement>();
    element.setNodeValue(pItem->text(1));
    emit domChanged();
}

void DomTreeWidget::updateChildItems(const QDomElement& element, QTreeWidgetItem* pParent)
{
    if (element.isNull())
        return;
    auto* pItem = childCreate(element.tagName(), pParent, 0);
    bool hasChildren = false;
    for (auto child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
    {
        updateChildItems(child, pItem);
        hasChildren = true;
    }
    pItem->setIcon(0, hasChildren ? iconGroup : iconKey);
    if (!hasChildren)
        pItem->setText(1, element.text());
    pItem->setData(0, Qt::UserRole, QVariant::fromValue(element));
}
