#include "tuning-client/source/control/tree-item.h"

TreeItem::TreeItem(const QVector<QVariant>& data, TreeItem* parent) : itemData(data), pParentItem(parent) {}

TreeItem::~TreeItem() { qDeleteAll(childItems); }

void TreeItem::appendChild(TreeItem* pChild) { childItems.append(pChild); }

TreeItem* TreeItem::child(int row) const { return childItems.value(row); }

int TreeItem::childCount() const { return childItems.size(); }

int TreeItem::columnCount() const { return itemData.size(); }

QVariant TreeItem::data(int column) const { return itemData.value(column); }

int TreeItem::row() const { return pParentItem ? pParentItem->childItems.indexOf(const_cast<TreeItem*>(this)) : 0; }

TreeItem* TreeItem::parentItem() const { return pParentItem; }
