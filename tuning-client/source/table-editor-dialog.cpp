#include "tuning-client/source/table-editor-dialog.h"

#include "tuning-client/source/control/text-delegate.h"
#include "tuning-client/source/shortcut/message-box.h"
#include "tuning-common/source/limits.h"

#include <QDoubleValidator>
#include <QGridLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QTableWidget>
#include <QTextDocument>
#include <QToolBar>

#include <cmath>
#include <stdexcept>

namespace
{
namespace limit = t_common::limit;

constexpr int labelLimit = 256;

/// Keeps the editor of a cell to numbers, so that a typing error is not sent as 0.
class NumberDelegate : public TextDelegate
{
public:
    using TextDelegate::TextDelegate;

    QWidget* createEditor(QWidget* pParent, const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        return lineEditMake(pParent, new QDoubleValidator, true, tr("A number such as -1.5 or 2e-3"));
    }

    void setModelData(QWidget* pEditor, QAbstractItemModel* pModel, const QModelIndex& index) const override
    {
        if (isEntered(pEditor))
            TextDelegate::setModelData(pEditor, pModel, index);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const override
    {
        TextDelegate::initStyleOption(pOption, index);
        pOption->displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
    }
};

double number(const QString& text)
{
    const auto value = text.toDouble();
    return std::isfinite(value) ? value : 0.0;
}
} // namespace

TableEditorDialog::TableEditorDialog(Json::Value jTableRead, QWidget* pParent)
    : AbstractDialog(pParent, Qt::WindowFlags(), false),
      jTable(std::move(jTableRead)),
      pPushButtonApply(new QPushButton(tr("Apply"))),
      pPushButtonCancel(new QPushButton(tr("Cancel"))),
      pTableWidget(new TextView<QTableWidget>),
      pToolBar(new QToolBar(tr("Command")))
{
    setWindowTitle(tr("Auto Algorithm Table Editor"));
    setupToolBar();
    pGridLayoutScrollArea->addWidget(pToolBar, 0, 0, 1, 3);

    pTableWidget->setAccessibleName(tr("Table"));
    pTableWidget->setItemDelegate(new NumberDelegate(pTableWidget));
    pTableWidget->setAlternatingRowColors(true);
    // Tab leads on to the buttons. Within the grid there are the arrow keys.
    pTableWidget->setTabKeyNavigation(false);
    const auto characterWidth = fontMetrics().averageCharWidth();
    pTableWidget->horizontalHeader()->setMinimumSectionSize(8 * characterWidth);
    pTableWidget->horizontalHeader()->setMaximumSectionSize(40 * characterWidth);
    pTableWidget->horizontalHeader()->setResizeContentsPrecision(32);
    pGridLayoutScrollArea->addWidget(pTableWidget, 1, 0, 1, 3);
    pGridLayoutScrollArea->setRowStretch(1, 1);
    pGridLayoutScrollArea->setColumnStretch(0, 1);

    for (auto pButton : {pPushButtonApply, pPushButtonCancel})
    {
        // The key that ends the edit of a cell must not end the dialog when it is hit twice.
        pButton->setAutoDefault(false);
    }
    pGridLayoutScrollArea->addWidget(pPushButtonApply, 2, 1);
    pGridLayoutScrollArea->addWidget(pPushButtonCancel, 2, 2);
    connect(pPushButtonApply, &QPushButton::clicked, this, &TableEditorDialog::apply);
    connect(pPushButtonCancel, &QPushButton::clicked, this, &QDialog::reject);

    setMinimumWidth(500);
    reloadGuarded();
    resize(std::max(500, 90 * characterWidth), 30 * fontMetrics().lineSpacing());
}

void TableEditorDialog::setupToolBar()
{
    pToolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [this](const char* pIcon, const QString& text, auto action)
    { return pToolBar->addAction(QIcon(QString(":/images/") + pIcon), text, this, action); };

    add("refresh.png", tr("Reload"), &TableEditorDialog::reloadGuarded);
    pToolBar->addSeparator();
    add("Row_Table_New_Add_Create_Insert_Plus-512.png", tr("Insert"), &TableEditorDialog::rowInsert)
        ->setToolTip(tr("Insert Row"));
    add("Row_Table_Remove_Delete_Discard_Minus-512.png", tr("Delete"), &TableEditorDialog::rowDelete)
        ->setToolTip(tr("Delete Row"));
    pToolBar->addSeparator();
    add("remove-disable-deselect-disable-512.png", tr("Reset"), &TableEditorDialog::setCurrentNone)
        ->setToolTip(tr("Clear Selection"));
}

void TableEditorDialog::apply()
{
    for (auto pEditor : pTableWidget->viewport()->findChildren<QLineEdit*>())
    {
        // The table would go without what the user is typing there.
        if (TextDelegate::isKept(pEditor))
            return pEditor->setFocus();
    }
    accept();
}

void TableEditorDialog::setCurrentNone()
{
    pTableWidget->clearSelection();
    pTableWidget->setCurrentCell(-1, -1);
}

void TableEditorDialog::reloadGuarded()
{
    try
    {
        reload();
    }
    catch (const std::exception& exception)
    {
        message_box::warning(this, exception.what());
    }
}

void TableEditorDialog::reload()
{
    setCurrentNone();
    Json::ArrayIndex rowsRead = 0;
    const auto trim = qScopeGuard([&] { pTableWidget->setRowCount(static_cast<int>(rowsRead)); });

    const auto& jColumns = jTable["columns"];
    const auto& jRows = jTable["rows"];
    if (jColumns.size() > limit::tableColumns)
        throw std::runtime_error("Table has more than 256 columns");
    if (jRows.size() > limit::tableCells / std::max(jColumns.size(), 1u))
        throw std::runtime_error("Table has more than 100000 cells");

    setColumns(jColumns);
    pTableWidget->setRowCount(static_cast<int>(jRows.size()));
    while (rowsRead < jRows.size())
    {
        const auto& jRow = jRows[rowsRead];
        setRow(static_cast<int>(rowsRead++), jRow);
    }
    pTableWidget->resizeColumnsToContents();
    for (int column = 0; column < pTableWidget->columnCount(); ++column)
        pTableWidget->setColumnWidth(column, pTableWidget->columnWidth(column) + 2 * fontMetrics().averageCharWidth());
}

void TableEditorDialog::setColumns(const Json::Value& jColumns)
{
    QStringList labels;
    for (Json::ArrayIndex i = 0; i < jColumns.size(); ++i)
        labels << QString::fromStdString(jColumns[i].asString()).left(labelLimit);
    pTableWidget->setColumnCount(labels.size());
    pTableWidget->setHorizontalHeaderLabels(labels);
    for (int i = 0; i < labels.size(); ++i)
        pTableWidget->horizontalHeaderItem(i)->setToolTip(Qt::convertFromPlainText(labels[i]));
}

void TableEditorDialog::setRow(int row, const Json::Value& jRow)
{
    for (int column = 0; column < pTableWidget->columnCount(); ++column)
    {
        const auto text = QString::number(jRow[static_cast<Json::ArrayIndex>(column)].asDouble(), 'g', 6);
        // A new item for each cell costs three times as much as a new text.
        if (auto pItem = pTableWidget->item(row, column))
            pItem->setText(text);
        else
            pTableWidget->setItem(row, column, new QTableWidgetItem(text));
    }
}

void TableEditorDialog::rowInsert()
{
    const auto row = pTableWidget->currentRow();
    pTableWidget->insertRow(row < 0 ? pTableWidget->rowCount() : row);
}

void TableEditorDialog::rowDelete()
{
    const auto current = pTableWidget->currentRow();
    const auto row = current < 0 ? pTableWidget->rowCount() - 1 : current;
    if (row >= 0 && message_box::question(this, tr("Warning"), tr("Are you sure to delete row %1?").arg(row + 1)))
        pTableWidget->removeRow(row);
}

void TableEditorDialog::tableGet(Json::Value& jTableEdited) const
{
    Json::Value jRows;
    for (int row = 0; row < pTableWidget->rowCount(); ++row)
    {
        Json::Value jRow(Json::arrayValue);
        for (int column = 0; column < pTableWidget->columnCount(); ++column)
        {
            const auto pItem = pTableWidget->item(row, column);
            jRow.append(pItem ? Json::Value(number(pItem->text())) : Json::Value(0));
        }
        jRows.append(std::move(jRow));
    }
    jTableEdited["columns"] = jTable.isObject() ? jTable["columns"] : Json::Value();
    jTableEdited["rows"] = std::move(jRows);
}
