#include "tuning-client/source/control/json-delegate.h"

#include "tuning-client/source/control/json-model.h"
#include "tuning-common/source/limits.h"
#include "tuning-json/source/value.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRegularExpressionValidator>

using t_json::Value;

namespace
{
Value* valueOf(const QModelIndex& index)
{
    const auto* pModel = qobject_cast<const JsonModel*>(index.model());
    return pModel ? pModel->value(index) : nullptr;
}
} // namespace

JsonDelegate::JsonDelegate(QObject* parent)
    : QStyledItemDelegate(parent),
      regexBool("true|false", QRegularExpression::CaseInsensitiveOption),
      regexDouble(R"(^(-?\d+)(.\d+)|(-?[0-9])$)"),
      regexInt("-?[0-9]*"),
      regexUInt("[0-9]*")
{
}

void JsonDelegate::paint(QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    auto shown = option;
    if (index.column() == ColumnType)
        shown.state &= ~QStyle::State_Enabled;
    QStyledItemDelegate::paint(pPainter, shown, index);
}

QString JsonDelegate::displayText(const QVariant& value, const QLocale& locale) const
{
    // Six digits, as without this, would contradict the editor and the file.
    if (value.userType() == QMetaType::Double)
        return locale.toString(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    const bool isText = value.userType() == QMetaType::QString;
    return QStyledItemDelegate::displayText(isText ? value.toString().left(t_common::limit::cellText) : value, locale);
}

QWidget* JsonDelegate::createEditor(QWidget* pParent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const auto* pValue = valueOf(index);
    if (index.column() != ColumnValue || !pValue)
        return nullptr;
    if (pValue->type() == t_json::ValueTypeBoolean)
    {
        auto* pComboBox = new QComboBox(pParent);
        pComboBox->setFrame(false);
        pComboBox->setAccessibleName(tr("Value"));
        pComboBox->addItems({"false", "true"});
        return pComboBox;
    }
    auto* pLineEdit = new QLineEdit(pParent);
    pLineEdit->setFrame(false);
    pLineEdit->setAccessibleName(tr("Value"));
    const auto regex = pValue->type() == t_json::ValueTypeDouble ? regexDouble
                       : pValue->type() == t_json::ValueTypeInt  ? regexInt
                       : pValue->type() == t_json::ValueTypeUInt ? regexUInt
                                                                 : QRegularExpression();
    pLineEdit->setValidator(new QRegularExpressionValidator(regex, pLineEdit));
    return pLineEdit;
}

void JsonDelegate::setEditorData(QWidget* pEditor, const QModelIndex& index) const
{
    const auto* pValue = valueOf(index);
    if (!pValue)
        return;
    std::string string;
    *pValue >> string;
    const auto text = QString::fromStdString(string);
    if (auto* pComboBox = qobject_cast<QComboBox*>(pEditor))
    {
        pComboBox->setCurrentText(text);
    }
    else if (auto* pLineEdit = qobject_cast<QLineEdit*>(pEditor))
    {
        // A longer text than usual must not come back cut.
        pLineEdit->setMaxLength(qMax(pLineEdit->maxLength(), text.size() + 1000));
        pLineEdit->setText(text);
    }
}

void JsonDelegate::setModelData(QWidget* pEditor, QAbstractItemModel* pModel, const QModelIndex& index) const
{
    auto* pValue = valueOf(index);
    if (!pValue)
        return;
    QString text;
    if (const auto* pComboBox = qobject_cast<QComboBox*>(pEditor))
    {
        text = pComboBox->currentText();
    }
    else
    {
        const auto* pLineEdit = qobject_cast<QLineEdit*>(pEditor);
        if (!pLineEdit || !pLineEdit->isModified() || !pLineEdit->hasAcceptableInput())
            return;
        text = pLineEdit->text();
    }

    // An empty field, or a sign alone, is 0.
    bool isSound = true;
    const auto captured = [&](const QRegularExpression& regex) { return regex.match(text).captured(); };
    const auto isEmpty = [](const QString& number) { return number.isEmpty() || number == "-"; };
    switch (pValue->type())
    {
    case t_json::ValueTypeBoolean:
        *pValue = captured(regexBool) == "true";
        break;
    case t_json::ValueTypeDouble:
    {
        const auto number = captured(regexDouble).toDouble(&isSound);
        if (isSound)
            *pValue = number;
        break;
    }
    case t_json::ValueTypeInt:
    {
        const auto digits = captured(regexInt);
        const auto number = digits.toLongLong(&isSound, 10);
        isSound = isSound || isEmpty(digits);
        if (isSound)
            *pValue = number;
        break;
    }
    case t_json::ValueTypeUInt:
    {
        const auto digits = captured(regexUInt);
        const auto number = digits.toULongLong(&isSound, 10);
        isSound = isSound || isEmpty(digits);
        if (isSound)
            *pValue = number;
        break;
    }
    case t_json::ValueTypeString:
        *pValue = text.toStdString();
        break;
    default:
        // What is shown of them does not come from here.
        return;
    }
    if (isSound)
        pModel->setData(index, text, Qt::DisplayRole);
}
