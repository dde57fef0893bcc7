#include "tuning-client/source/control/json-model.h"

#include "tuning-json/source/value.h"

using t_json::Value;

Q_DECLARE_METATYPE(t_json::Value*)

namespace
{
QString typeText(t_json::ValueType type)
{
    switch (type)
    {
    case t_json::ValueTypeNull:
        return JsonModel::tr("Null");
    case t_json::ValueTypeArray:
        return JsonModel::tr("Array");
    case t_json::ValueTypeBoolean:
        return JsonModel::tr("Bool");
    case t_json::ValueTypeDouble:
        return JsonModel::tr("Double");
    case t_json::ValueTypeInt:
        return JsonModel::tr("Int");
    case t_json::ValueTypeObject:
        return JsonModel::tr("Object");
    case t_json::ValueTypeString:
        return JsonModel::tr("String");
    case t_json::ValueTypeUInt:
        return JsonModel::tr("UInt");
    }
    return JsonModel::tr("Unknown");
}

template <class Number>
Number get(const Value& value)
{
    Number number{};
    value >> number;
    return number;
}

/// Invalid for an array and an object.
QVariant shown(const Value& value)
{
    switch (value.type())
    {
    case t_json::ValueTypeNull:
        return "null";
    case t_json::ValueTypeBoolean:
        return get<bool>(value);
    case t_json::ValueTypeDouble:
        return get<double>(value);
    case t_json::ValueTypeInt:
        return get<long long>(value);
    case t_json::ValueTypeString:
        return QString::fromStdString(get<std::string>(value));
    case t_json::ValueTypeUInt:
        return get<unsigned long long>(value);
    default:
        return {};
    }
}

/// Calls `action` with the text of the key and the value of each member or element, in the order of the rows.
template <class Action>
void each(Value& value, Action action)
{
    if (value.type() == t_json::ValueTypeObject)
        for (const auto& key : value.members())
            action(QString::fromStdString(key), &value[key]);
    else if (value.type() == t_json::ValueTypeArray)
        for (int i = 0; i < value.size(); ++i)
            action(QString::number(i), &value[i]);
}
} // namespace

JsonModel::JsonModel(Value* pValue, bool isReadOnly_, QObject* parent)
    : QStandardItemModel(parent), isReadOnly(isReadOnly_)
{
    setColumnCount(ColumnMax);
    setup(invisibleRootItem(), pValue);
}

void JsonModel::setup(QStandardItem* pItemParent, Value* pValue)
{
    each(*pValue, [&](const QString& key, Value* pChild) { pItemParent->appendRow(row(key, pChild)); });
}

QList<QStandardItem*> JsonModel::row(const QString& key, Value* pValue)
{
    auto* pItemKey = new QStandardItem(key);
    pItemKey->setEditable(false);
    setup(pItemKey, pValue);
    auto* pItemValue = new QStandardItem;
    pItemValue->setData(QVariant::fromValue(pValue), Qt::UserRole);
    pItemValue->setEditable(!isReadOnly);
    auto* pItemType = new QStandardItem;
    pItemType->setEditable(false);
    return {pItemKey, pItemValue, pItemType};
}

Value* JsonModel::value(const QModelIndex& index) const
{
    return index.sibling(index.row(), ColumnValue).data(Qt::UserRole).value<Value*>();
}

QVariant JsonModel::data(const QModelIndex& index, int role) const
{
    const auto* pValue = role == Qt::DisplayRole ? value(index) : nullptr;
    if (pValue && index.column() == ColumnType)
        return typeText(pValue->type());
    if (pValue && index.column() == ColumnValue)
    {
        const auto variant = shown(*pValue);
        if (variant.isValid())
            return variant;
    }
    return QStandardItemModel::data(index, role);
}

bool JsonModel::setData(const QModelIndex& index, const QVariant& variant, int role)
{
    auto* pValue = role == Qt::UserRole ? index.data(Qt::UserRole).value<Value*>() : nullptr;
    switch (pValue ? pValue->type() : t_json::ValueTypeNull)
    {
    case t_json::ValueTypeBoolean:
        *pValue = variant.toBool();
        break;
    case t_json::ValueTypeDouble:
        *pValue = variant.toDouble();
        break;
    case t_json::ValueTypeInt:
        *pValue = variant.toLongLong();
        break;
    case t_json::ValueTypeString:
        *pValue = variant.toString().toStdString();
        break;
    case t_json::ValueTypeUInt:
        *pValue = variant.toULongLong();
        break;
    default:
    {
        const bool isSet = QStandardItemModel::setData(index, variant, role);
        emit edited();
        return isSet;
    }
    }
    emit dataChanged(index, index);
    emit edited();
    return true;
}

QVariant JsonModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section)
    {
    case ColumnKey:
        return tr("Key");
    case ColumnValue:
        return tr("Value");
    case ColumnType:
        return tr("Type");
    default:
        return {};
    }
}

QStandardItem* JsonModel::parentItem(const QModelIndex& index) const
{
    const auto parent = index.parent();
    return parent.isValid() ? itemFromIndex(parent) : invisibleRootItem();
}

void JsonModel::insert(const QModelIndex& index, Value* pValue)
{
    auto* pValueParent = value(index.parent());
    const int place = index.row();
    pValueParent->insert(place, *pValue);
    auto* pItemParent = parentItem(index);
    pItemParent->insertRow(place, row(QString::number(place), &(*pValueParent)[place]));
    sync(pItemParent, pValueParent);
    emit edited();
}

void JsonModel::erase(const QModelIndex& index)
{
    auto* pValueParent = value(index.parent());
    auto* pItemParent = parentItem(index);
    const int place = index.row();
    pItemParent->removeRow(place);
    pValueParent->erase(place);
    sync(pItemParent, pValueParent);
    emit edited();
}

/// A change has moved the elements in memory: tells the rows where their values are now.
void JsonModel::sync(QStandardItem* pItemParent, Value* pValue)
{
    int place = 0;
    each(*pValue,
         [&](const QString& key, Value* pChild)
         {
             auto* pItemValue = pItemParent->child(place, ColumnValue);
             pItemValue->setData(QVariant::fromValue(pChild), Qt::UserRole);
             pItemValue->setEditable(!isReadOnly);
             // Only now: views ask for the whole row when one of its items changes.
             auto* pItemKey = pItemParent->child(place++, ColumnKey);
             pItemKey->setText(key);
             sync(pItemKey, pChild);
         });
}
