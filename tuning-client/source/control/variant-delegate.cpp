#include "tuning-client/source/control/variant-delegate.h"

#include <QColor>
#include <QDateTime>
#include <QLineEdit>
#include <QRect>

namespace
{
constexpr int exampleLength = 40;

bool isNumber(int type)
{
    switch (type)
    {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

template <class... Numbers>
QString tuple(Numbers... numbers)
{
    return "(" + QStringList{QString::number(numbers)...}.join(",") + ")";
}

/// A rectangle holds its far corner, which has to be a number as well.
QVariant rect(int x, int y, int width, int height)
{
    const auto isCorner = [](qint64 corner) { return corner == qint64(int(corner)); };
    const bool isRect = isCorner(qint64(x) + width - 1) && isCorner(qint64(y) + height - 1);
    return isRect ? QRect(QPoint(x, y), QPoint(int(qint64(x) + width - 1), int(qint64(y) + height - 1))) : QVariant();
}
} // namespace

VariantDelegate::VariantDelegate(QObject* parent)
    : TextDelegate(parent),
      boolExp("true|false", QRegularExpression::CaseInsensitiveOption),
      byteArrayExp(R"([\x00-\xff]*)"),
      charExp("."),
      colorExp(R"(^\(([0-9]*),([0-9]*),([0-9]*),([0-9]*)\)$)"),
      // The 0 cannot be left out: some versions of the engine take "{,4}" as it stands.
      dateExp("([0-9]{0,4})-([0-9]{0,2})-([0-9]{0,2})"),
      pointExp(R"(^\((-?[0-9]*),(-?[0-9]*)\)$)"),
      rectExp(R"(^\((-?[0-9]*),(-?[0-9]*),(-?[0-9]*),(-?[0-9]*)\)$)"),
      signedIntegerExp("-?[0-9]*"),
      sizeExp(pointExp),
      timeExp("([0-9]{0,2}):([0-9]{0,2}):([0-9]{0,2})"),
      unsignedIntegerExp("[0-9]*")
{
    dateTimeExp.setPattern(dateExp.pattern() + "T" + timeExp.pattern());
}

bool VariantDelegate::isSupportedType(int type)
{
    switch (type)
    {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QChar:
    case QMetaType::QString:
    case QMetaType::QStringList:
    case QMetaType::QByteArray:
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QDateTime:
    case QMetaType::QRect:
    case QMetaType::QSize:
    case QMetaType::QPoint:
    case QMetaType::QColor:
        return true;
    default:
        return false;
    }
}

QString VariantDelegate::displayText(const QVariant& value)
{
    switch (value.userType())
    {
    case QMetaType::UnknownType:
        return "<Invalid>";
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QChar:
    case QMetaType::QString:
    case QMetaType::QByteArray:
        return value.toString();
    case QMetaType::QStringList:
        return value.toStringList().join(",");
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    case QMetaType::QTime:
        return value.toTime().toString(Qt::ISODate);
    case QMetaType::QDateTime:
        return value.toDateTime().toString(Qt::ISODate);
    case QMetaType::QRect:
    {
        const auto rect = value.toRect();
        return tuple(rect.x(), rect.y(), rect.width(), rect.height());
    }
    case QMetaType::QSize:
        return tuple(value.toSize().width(), value.toSize().height());
    case QMetaType::QPoint:
        return tuple(value.toPoint().x(), value.toPoint().y());
    case QMetaType::QColor:
    {
        const auto color = value.value<QColor>();
        return tuple(color.red(), color.green(), color.blue(), color.alpha());
    }
    default:
        return QString("<%1>").arg(value.typeName());
    }
}

void VariantDelegate::paint(QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    auto shown = option;
    if (index.column() == 1 && !isSupportedType(index.data(Qt::UserRole).userType()))
        shown.state &= ~QStyle::State_Enabled;
    TextDelegate::paint(pPainter, shown, index);
}

QRegularExpression VariantDelegate::expression(int type) const
{
    switch (type)
    {
    case QMetaType::Bool:
        return boolExp;
    case QMetaType::Int:
    case QMetaType::LongLong:
        return signedIntegerExp;
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return unsignedIntegerExp;
    case QMetaType::Double:
        return doubleExp;
    case QMetaType::QChar:
        return charExp;
    case QMetaType::QByteArray:
        return byteArrayExp;
    case QMetaType::QDate:
        return dateExp;
    case QMetaType::QTime:
        return timeExp;
    case QMetaType::QDateTime:
        return dateTimeExp;
    case QMetaType::QRect:
        return rectExp;
    case QMetaType::QSize:
        return sizeExp;
    case QMetaType::QPoint:
        return pointExp;
    case QMetaType::QColor:
        return colorExp;
    default:
        return QRegularExpression();
    }
}

QWidget* VariantDelegate::createEditor(QWidget* pParent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const auto old = index.data(Qt::UserRole);
    const auto type = old.userType();
    if (index.column() != 1 || !isSupportedType(type))
        return nullptr;
    const auto isValue = [this, old](const QString& text) { return valueGet(text, old).isValid(); };
    return lineEditMake(pParent, new ValueValidator(expression(type), isValue), isNumber(type),
                        tr("A value as %1").arg(displayText(old).left(exampleLength)));
}

void VariantDelegate::setEditorData(QWidget* pEditor, const QModelIndex& index) const
{
    if (auto* pLineEdit = qobject_cast<QLineEdit*>(pEditor))
        textShow(pLineEdit, displayText(index.data(Qt::UserRole)));
}

void VariantDelegate::setModelData(QWidget* pEditor, QAbstractItemModel* pModel, const QModelIndex& index) const
{
    if (!isEntered(pEditor))
        return;
    const auto value = valueGet(qobject_cast<QLineEdit*>(pEditor)->text(), index.data(Qt::UserRole));
    pModel->setData(index, displayText(value), Qt::DisplayRole);
    pModel->setData(index, value, Qt::UserRole);
}

/// Invalid when the text is no such value.
QVariant VariantDelegate::valueGet(const QString& text, const QVariant& old) const
{
    const auto captured = [&](const QRegularExpression& exp)
    {
        const auto texts = exp.match(text).capturedTexts();
        return [texts](int i) { return texts.value(i + 1).toInt(); };
    };
    const auto ifValid = [](const auto& parsed) { return parsed.isValid() ? QVariant(parsed) : QVariant(); };
    bool isNumber = false;
    switch (old.userType())
    {
    // The general conversion would cut a number that is too long.
    case QMetaType::Int:
    {
        const auto number = text.toInt(&isNumber);
        return isNumber ? number : QVariant();
    }
    case QMetaType::UInt:
    {
        const auto number = text.toUInt(&isNumber);
        return isNumber ? number : QVariant();
    }
    case QMetaType::QChar:
        return text.at(0);
    case QMetaType::QStringList:
        return text.split(',');
    case QMetaType::QDate:
        return ifValid(QDate::fromString(text, Qt::ISODate));
    case QMetaType::QTime:
        return ifValid(QTime::fromString(text, Qt::ISODate));
    case QMetaType::QDateTime:
        return ifValid(QDateTime::fromString(text, Qt::ISODate));
    case QMetaType::QRect:
    {
        const auto number = captured(rectExp);
        return rect(number(0), number(1), number(2), number(3));
    }
    case QMetaType::QSize:
    {
        const auto number = captured(sizeExp);
        return QSize(number(0), number(1));
    }
    case QMetaType::QPoint:
    {
        const auto number = captured(pointExp);
        return QPoint(number(0), number(1));
    }
    case QMetaType::QColor:
    {
        const auto texts = colorExp.match(text).capturedTexts();
        const auto channel = [&](int i) { return int(qMin(255.0, texts.value(i).toDouble())); };
        return QColor(channel(1), channel(2), channel(3), channel(4));
    }
    default:
    {
        QVariant value = text;
        return value.convert(old.userType()) ? value : QVariant();
    }
    }
}
