#pragma once

#include "tuning-client/source/control/tree-item.h"

#include <QAbstractItemModel>

#include <memory>

/// A read-only tree. The root is not shown: its values are the header. Without a root there are no rows and no columns.
class TreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit TreeModel(QObject* parent = nullptr);

    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;

protected:
    std::unique_ptr<TreeItem> pRootItem;

private:
    const TreeItem* item(const QModelIndex& index) const;
};
