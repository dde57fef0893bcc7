#pragma once

#include <QVariant>
#include <QVector>

/// A row of `TreeModel`: one value for each column, and the rows below it, which it owns.
class TreeItem
{
public:
    explicit TreeItem(const QVector<QVariant>& data, TreeItem* parent = nullptr);
    ~TreeItem();
    TreeItem(const TreeItem&) = delete;
    TreeItem& operator=(const TreeItem&) = delete;

    /// Takes the child over.
    void appendChild(TreeItem* pChild);

    /// Null outside the range.
    TreeItem* child(int row) const;
    int childCount() const;
    int columnCount() const;

    /// Invalid outside the range.
    QVariant data(int column) const;

    /// The index among the parent's children, 0 for the root.
    int row() const;
    TreeItem* parentItem() const;

private:
    QVector<TreeItem*> childItems;
    QVector<QVariant> itemData;
    TreeItem* pParentItem;
};
