#include "tuning-client/source/control/json-delegate.h"

#include "tuning-client/source/control/json-model.h"

#include <QComboBox>
#include <QLineEdit>

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
    : TextDelegate(parent),
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
    TextDelegate::paint(pPainter, shown, index);
}

QString JsonDelegate::displayText(const QVariant& value, const QLocale& locale) const
{
    // Six digits, as without this, would contradict the editor and the file.
    if (value.userType() == QMetaType::Double)
        return locale.toString(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    return TextDelegate::displayText(value, locale);
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
    const auto type = pValue->type();
    const auto make = [&](const QRegularExpression& expression, bool isNumber, const QString& expected)
    {
        const auto isValue = [this, type, isNumber](const QString& text) { return !isNumber || valueGet(text, type); };
        return lineEditMake(pParent, new ValueValidator(expression, isValue), isNumber, expected);
    };
    switch (type)
    {
    case t_json::ValueTypeDouble:
        return make(regexDouble, true, tr("A number with a point and digits behind it, such as 12.0, or one digit"));
    case t_json::ValueTypeInt:
    case t_json::ValueTypeUInt:
        return make(type == t_json::ValueTypeInt ? regexInt : regexUInt, true,
                    type == t_json::ValueTypeInt ? tr("A whole number of 64 bits, such as -12")
                                                 : tr("A whole number of 64 bits, such as 12"));
    default:
        return make(QRegularExpression(), false, tr("Any text"));
    }
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
        pComboBox->setCurrentText(text);
    else if (auto* pLineEdit = qobject_cast<QLineEdit*>(pEditor))
        textShow(pLineEdit, text);
}

void JsonDelegate::setModelData(QWidget* pEditor, QAbstractItemModel* pModel, const QModelIndex& index) const
{
    auto* pValue = valueOf(index);
    const auto* pComboBox = qobject_cast<QComboBox*>(pEditor);
    if (!pValue || !(pComboBox || isEntered(pEditor)))
        return;
    const auto text = pComboBox ? pComboBox->currentText() : qobject_cast<QLineEdit*>(pEditor)->text();
    auto value = valueGet(text, pValue->type());
    if (!value)
        return;
    *pValue = std::move(*value);
    pModel->setData(index, text, Qt::DisplayRole);
}

std::optional<Value> JsonDelegate::valueGet(const QString& text, t_json::ValueType type) const
{
    const auto captured = [&](const QRegularExpression& regex) { return regex.match(text).captured(); };
    // An empty field, or a sign alone, is 0.
    const auto whole = [](const QString& digits, auto parse) -> std::optional<Value>
    {
        bool isSound = true;
        const auto number = (digits.*parse)(&isSound, 10);
        return isSound || digits.isEmpty() || digits == "-" ? std::optional<Value>(number) : std::nullopt;
    };
    switch (type)
    {
    case t_json::ValueTypeBoolean:
        return captured(regexBool) == "true";
    case t_json::ValueTypeDouble:
    {
        bool isSound = false;
        const auto number = captured(regexDouble).toDouble(&isSound);
        return isSound ? std::optional<Value>(number) : std::nullopt;
    }
    case t_json::ValueTypeInt:
        return whole(captured(regexInt), &QString::toLongLong);
    case t_json::ValueTypeUInt:
        return whole(captured(regexUInt), &QString::toULongLong);
    case t_json::ValueTypeString:
        return text.toStdString();
    default:
        return std::nullopt;
    }
}
