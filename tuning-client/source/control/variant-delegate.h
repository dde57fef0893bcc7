#pragma once

#include "tuning-client/source/control/text-delegate.h"

#include <QRegularExpression>

/// Shows and edits the values of column 1, whatever their type, as text. The value itself is under `Qt::UserRole`.
class VariantDelegate : public TextDelegate
{
    Q_OBJECT

public:
    explicit VariantDelegate(QObject* parent);

    void paint(QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* pParent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* pEditor, const QModelIndex& index) const override;

    /// Leaves the value alone when the text is no value of its type.
    void setModelData(QWidget* pEditor, QAbstractItemModel* pModel, const QModelIndex& index) const override;

    /// Whether values of that `QMetaType` can be edited.
    static bool isSupportedType(int type);

    using TextDelegate::displayText;
    static QString displayText(const QVariant& value);

private:
    QRegularExpression expression(int type) const;
    QVariant valueGet(const QString& text, const QVariant& old) const;

    QRegularExpression boolExp;
    QRegularExpression byteArrayExp;
    QRegularExpression charExp;
    QRegularExpression colorExp;
    QRegularExpression dateExp;
    QRegularExpression dateTimeExp;
    QRegularExpression doubleExp;
    QRegularExpression pointExp;
    QRegularExpression rectExp;
    QRegularExpression signedIntegerExp;
    QRegularExpression sizeExp;
    QRegularExpression timeExp;
    QRegularExpression unsignedIntegerExp;
};
