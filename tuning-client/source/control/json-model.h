#pragma once

#include <QStandardItemModel>

namespace t_json
{
class Value;
}

/// A JSON document as a tree of key, value and type. Edits go straight into the document, which belongs to the caller
/// and has to outlive the model.
class JsonModel : public QStandardItemModel
{
    Q_OBJECT

public:
    enum
    {
        ColumnKey,
        ColumnValue, ///< has the pointer to its value under `Qt::UserRole`
        ColumnType,
        ColumnMax
    };

    JsonModel(t_json::Value* pValue, bool isReadOnly_, QObject* parent);

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& variant, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /// The value of the row; null for the invalid index.
    t_json::Value* value(const QModelIndex& index) const;

    /// Puts a copy of `pValue` in front of the row. The row has to be one of an array; so it is for `erase`.
    void insert(const QModelIndex& index, t_json::Value* pValue);
    void erase(const QModelIndex& index);

signals:
    /// The document has changed, and each row knows its value again.
    void edited();

private:
    void setup(QStandardItem* pItemParent, t_json::Value* pValue);
    QList<QStandardItem*> row(const QString& key, t_json::Value* pValue);
    void sync(QStandardItem* pItemParent, t_json::Value* pValue);
    QStandardItem* parentItem(const QModelIndex& index) const;

    bool isReadOnly;
};
