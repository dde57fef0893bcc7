#include "tuning-client/source/control/dom-tree-widget.h"

#include "tuning-client/source/control/variant-delegate.h"
#include "tuning-common/source/limits.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QQueue>
#include <QStyle>

#include <algorithm>
#include <climits>

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

/// Takes what it shows from its element, as there may be a million of them; what is set on it is its own.
class ElementItem : public QTreeWidgetItem
{
public:
    ElementItem(const QDomElement& element_, const DomTreeWidget& tree_) : element(element_), tree(tree_)
    {
        setFlags(flags() | Qt::ItemIsEditable);
        if (isGroup())
            setChildIndicatorPolicy(ShowIndicator);
    }

    bool isGroup() const { return !element.firstChildElement().isNull(); }

    QVariant data(int column, int role) const override
    {
        const auto own = QTreeWidgetItem::data(column, role);
        return own.isValid() ? own : dataOfElement(column, role);
    }

    /// Makes the items of the children, the last one first, unless they are there or more than `most`.
    void childrenMake(int most)
    {
        if (childCount() > 0)
            return;
        QList<QTreeWidgetItem*> items;
        for (auto child = element.lastChildElement(); !child.isNull(); child = child.previousSiblingElement())
        {
            if (items.size() == most)
                return qDeleteAll(items);
            items.append(new ElementItem(child, tree));
        }
        addChildren(items);
    }

private:
    QVariant dataOfElement(int column, int role) const
    {
        if (column == 0 && role == Qt::UserRole)
            return QVariant::fromValue(element);
        if (column == 0 && role == Qt::DecorationRole)
            return isGroup() ? tree.iconGroup : tree.iconKey;
        if (role != Qt::DisplayRole && role != Qt::EditRole)
            return {};
        if (column == 0)
            return element.tagName();
        return column == 1 && !isGroup() ? text() : QVariant();
    }

    QString text() const
    {
        // A single text is not copied, which may have millions of characters.
        const auto only = element.firstChild();
        return only.isText() && only.nextSibling().isNull() ? only.nodeValue() : element.text();
    }

    const QDomElement element;
    const DomTreeWidget& tree;
};

void childrenMake(const QTreeWidgetItem* pItem, int most = INT_MAX)
{
    if (auto* pElementItem = dynamic_cast<ElementItem*>(const_cast<QTreeWidgetItem*>(pItem)))
        pElementItem->childrenMake(most);
}

/// The groups from an item downwards whose children have items, after making `limit::xmlItems` of these.
QVector<QTreeWidgetItem*> groupsMake(QTreeWidgetItem* pTop)
{
    int left = t_common::limit::xmlItems;
    QVector<QTreeWidgetItem*> groups;
    QQueue<QTreeWidgetItem*> queue;
    queue.enqueue(pTop);
    while (!queue.isEmpty())
    {
        auto* pItem = queue.dequeue();
        const auto before = pItem->childCount();
        childrenMake(pItem, left);
        left -= pItem->childCount() - before;
        if (pItem->childCount() > 0)
            groups.append(pItem);
        for (int i = 0; i < pItem->childCount(); ++i)
            queue.enqueue(pItem->child(i));
    }
    return groups;
}

QTreeWidgetItem* itemAlong(QTreeWidgetItem* pItem, const QVector<int>& places)
{
    for (int i : places)
        if (pItem)
        {
            childrenMake(pItem);
            pItem = pItem->child(i);
        }
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
    connect(this, &QTreeWidget::itemExpanded, this, [](QTreeWidgetItem* pItem) { childrenMake(pItem); });
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

    // Never both at once.
    clear();
    // Not within the tree, which would look at each item as it comes.
    QTreeWidgetItem root;
    updateChildItems(doc.documentElement(), &root);
    QVector<QTreeWidgetItem*> items;
    for (const auto& places : qAsConst(expanded))
        items.append(itemAlong(&root, places));
    auto* pCurrent = current.isEmpty() ? nullptr : itemAlong(&root, current);
    for (const auto* pItem : qAsConst(items))
        childrenMake(pItem);
    addTopLevelItems(root.takeChildren());

    for (auto* pItem : qAsConst(items))
        if (pItem)
            pItem->setExpanded(true);
    if (pCurrent)
        setCurrentItem(pCurrent);
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

void DomTreeWidget::keyPressEvent(QKeyEvent* pEvent)
{
    auto* pItem = currentItem();
    if (pEvent->key() != Qt::Key_Asterisk || !pItem)
        return TextView::keyPressEvent(pEvent);
    // The tree would hold on to every item below, and look at all of them whenever it gets a child.
    childrenMake(pItem);
    const auto groups = groupsMake(pItem);
    scheduleDelayedItemsLayout();
    for (auto* pGroup : groups)
        pGroup->setExpanded(true);
}

int DomTreeWidget::childCount(const QTreeWidgetItem* pParent) const
{
    childrenMake(pParent);
    return pParent ? pParent->childCount() : topLevelItemCount();
}

QTreeWidgetItem* DomTreeWidget::childAt(const QTreeWidgetItem* pParent, int index) const
{
    childrenMake(pParent);
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
    childrenMake(pParent);
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
    auto* pItem = new ElementItem(element, *this);
    pParent->insertChild(0, pItem);
    groupsMake(pItem);
}
