#include "tuning-client/source/control/tree-model.h"

TreeModel::TreeModel(QObject* parent) : QAbstractItemModel(parent) {}

const TreeItem* TreeModel::item(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<const TreeItem*>(index.internalPointer()) : pRootItem.get();
}

int TreeModel::columnCount(const QModelIndex& parent) const
{
    const auto pItem = item(parent);
    return pItem ? pItem->columnCount() : 0;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const
{
    return index.isValid() && role == Qt::DisplayRole ? item(index)->data(index.column()) : QVariant();
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? QAbstractItemModel::flags(index) : Qt::NoItemFlags;
}

QVariant TreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return pRootItem && orientation == Qt::Horizontal && role == Qt::DisplayRole ? pRootItem->data(section)
                                                                                 : QVariant();
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const
{
    const auto pChild = hasIndex(row, column, parent) ? item(parent)->child(row) : nullptr;
    return pChild ? createIndex(row, column, pChild) : QModelIndex();
}

QModelIndex TreeModel::parent(const QModelIndex& index) const
{
    const auto pParent = index.isValid() ? item(index)->parentItem() : nullptr;
    return pParent && pParent != pRootItem.get() ? createIndex(pParent->row(), 0, pParent) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const
{
    const auto pItem = item(parent);
    return pItem && parent.column() <= 0 ? pItem->childCount() : 0;
}
