#pragma once

#include "tuning-client/source/control/text-delegate.h"
#include "tuning-json/source/value.h"

#include <QRegularExpression>

#include <optional>

/// Edits the values of a `JsonModel`, each as its type allows.
class JsonDelegate : public TextDelegate
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
    /// None for a text that is no such value, and for types whose values are not text.
    std::optional<t_json::Value> valueGet(const QString& text, t_json::ValueType type) const;

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
