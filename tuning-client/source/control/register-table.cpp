#include "tuning-client/source/control/register-table.h"

#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"
#include "tuning-rest/source/answer.h"

#include <QStandardItemModel>

namespace
{
using rest::answerGet;

constexpr const char* textKeys[] = {"address", "name", "value.default", "value", "description"};

QString permissionText(int permission) { return permission == 1 ? "R/W" : permission == 2 ? "W" : "R"; }

QColor permissionColor(const QString& permission)
{
    if (permission == "R")
        return {155, 0, 0, 255};
    if (permission == "R/W")
        return {0, 0, 155, 255};
    if (permission == "W")
        return {0, 155, 0, 255};
    return {0, 0, 0, 255};
}

QString cellText(const std::string& text)
{
    return QString::fromStdString(t_common::printable(text, t_common::limit::cellText));
}
} // namespace

RegisterTable::RegisterTable(QStandardItemModel* pModel) : pStandardItemModel(pModel)
{
    pStandardItemModel->setHorizontalHeaderLabels(
        {tr("Permission"), tr("Address"), tr("Name"), tr("Default"), tr("Value"), tr("Description")});
    setModel(pStandardItemModel);
    delete selectionModel();
    setSelectionModel(new QItemSelectionModel(pStandardItemModel, this));
    setRootIsDecorated(false);
    setAlternatingRowColors(true);
    setUniformRowHeights(true);
    setAccessibleName(tr("Registers"));
}

void RegisterTable::check(const Json::Value& jRegisters)
{
    for (const auto& jRegister : jRegisters)
    {
        answerGet<int32_t>(jRegister, "permission");
        for (const auto* key : textKeys)
            answerGet<std::string>(jRegister, key);
    }
}

void RegisterTable::registersShow(const Json::Value& jRegisters)
{
    pStandardItemModel->setRowCount(0);
    for (const auto& jRegister : jRegisters)
    {
        const auto permission = permissionText(answerGet<int32_t>(jRegister, "permission"));
        QList<QStandardItem*> items{new QStandardItem(permission)};
        for (const auto* key : textKeys)
            items.append(new QStandardItem(cellText(answerGet<std::string>(jRegister, key))));
        for (auto* pItem : qAsConst(items))
        {
            pItem->setEditable(false);
            pItem->setForeground(permissionColor(permission));
        }
        pStandardItemModel->appendRow(items);
    }
    for (int column = 0; column < Sum; ++column)
        resizeColumnToContents(column);
}

int RegisterTable::rowCount() const { return pStandardItemModel->rowCount(); }

QString RegisterTable::text(int row, Column column) const { return pStandardItemModel->item(row, column)->text(); }

QStringList RegisterTable::texts(Column column) const
{
    QStringList texts;
    for (int row = 0; row < rowCount(); ++row)
        texts.append(text(row, column));
    return texts;
}

void RegisterTable::valuesShow(const QStringList& texts)
{
    for (int row = 0; row < qMin(rowCount(), texts.size()); ++row)
        pStandardItemModel->item(row, Value)->setData(cellText(texts[row].toStdString()), Qt::EditRole);
}

void RegisterTable::valueShow(const QString& address, uint32_t value)
{
    for (const auto* pItem : pStandardItemModel->findItems(address, Qt::MatchFixedString, Address))
        pStandardItemModel->item(pItem->row(), Value)->setText(QString::asprintf("0x%08x", value));
}
