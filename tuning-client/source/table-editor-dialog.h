#pragma once

#include "tuning-client/source/abstract-dialog.h"

#include <json/json.h>

class QPushButton;
class QTableWidget;
class QToolBar;

/// Edits an auto table: a grid of numbers that only the board understands. Numbers are shown, and go back, with six
/// significant digits.
class TableEditorDialog : public AbstractDialog
{
    Q_OBJECT

public:
    /// Shows the table at once. One that cannot be read opens a warning; the dialog then has what was read before.
    TableEditorDialog(Json::Value jTableRead, QWidget* pParent);

    /// Fills in `columns` as they came and `rows` as edited. A cell without a number is 0.
    void tableGet(Json::Value& jTableEdited) const;

    /// Goes back to the table as it came. Throws `std::exception` for a table of wrong types or beyond the limits.
    void reload();

private:
    void setupToolBar();
    void apply();
    void setColumns(const Json::Value& jColumns);
    void setRow(int row, const Json::Value& jRow);
    void setCurrentNone();
    void reloadGuarded();
    void rowInsert();
    void rowDelete();

    const Json::Value jTable;
    QPushButton* pPushButtonApply;
    QPushButton* pPushButtonCancel;
    QTableWidget* pTableWidget;
    QToolBar* pToolBar;
};
