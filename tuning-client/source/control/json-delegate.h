#pragma once

#include <QRegularExpression>
#include <QStyledItemDelegate>

/// Edits the values of a `JsonModel`, each as its type allows.
class JsonDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit JsonDelegate(QObject* parent);

    void paint(QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* pParent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* pEditor, const QModelIndex& index) const override;

    /// Leaves the value alone when the text is no value of its type, or a number that does not fit.
    void setModelData(QWidget* pEditor, QAbstractItemModel* pModel, const QModelIndex& index) const override;

    /// What a cell shows: as much of the text as anybody can see.
    QString displayText(const QVariant& value, const QLocale& locale) const override;

private:
    enum Column
    {
        ColumnKey,
        ColumnValue,
        ColumnType,
        ColumnMax
    };

    QRegularExpression regexBool;
    QRegularExpression regexDouble;
    QRegularExpression regexInt;
    QRegularExpression regexUInt;
};
