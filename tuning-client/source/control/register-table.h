#pragma once

#include <QTreeView>

class QStandardItemModel;

namespace Json
{
class Value;
}

/// The registers of a module as the board describes them, one a row, coloured by their permission.
class RegisterTable : public QTreeView
{
    Q_OBJECT

public:
    enum Column
    {
        Permission,
        Address,
        Name,
        Default,
        Value,
        Description,
        Sum
    };

    /// `pModel` has the columns above, and outlives the view.
    explicit RegisterTable(QStandardItemModel* pModel);

    /// Throws when a register lacks a field or has one of a wrong type.
    static void check(const Json::Value& jRegisters);

    /// Shows checked registers in place of the last ones.
    void registersShow(const Json::Value& jRegisters);

    int rowCount() const;
    QString text(int row, Column column) const;
    QStringList texts(Column column) const;

    /// Shows the texts in the column "Value" from the first row on, as many as there are rows.
    void valuesShow(const QStringList& texts);

    /// Shows `value` in the rows of that address.
    void valueShow(const QString& address, uint32_t value);

private:
    QStandardItemModel* pStandardItemModel;
};
