#include "tuning-client/source/control/spin-box.h"

#include <QDoubleSpinBox>
#include <QLineEdit>

#include <cmath>

namespace
{
QString tip(const QString& minimum, const QString& maximum, const QString& step, std::optional<double> readValue)
{
    auto text = QObject::tr("Range %1 to %2, step %3").arg(minimum, maximum, step);
    if (readValue)
    {
        // Seven digits are what a float holds; whole numbers have more.
        const bool isWhole = std::trunc(*readValue) == *readValue && std::fabs(*readValue) < 1e15;
        text += QObject::tr("\nAs read: %1").arg(*readValue, 0, isWhole ? 'f' : 'g', isWhole ? 0 : 7);
    }
    return text;
}

// A text that was entered stays marked as modified, so it also has to differ from the value.
bool differs(const QAbstractSpinBox* pBox, const QString& cleanText, const QString& valueText)
{
    return pBox->findChild<QLineEdit*>()->isModified() && cleanText.compare(valueText, Qt::CaseInsensitive) != 0;
}
} // namespace

QString valueTip(const QDoubleSpinBox& box, std::optional<double> readValue)
{
    return tip(box.textFromValue(box.minimum()), box.textFromValue(box.maximum()), QString::number(box.singleStep()),
               readValue);
}

QString valueTip(const QSpinBox& box, std::optional<double> readValue)
{
    return tip(QString::number(box.minimum()), QString::number(box.maximum()), QString::number(box.singleStep()),
               readValue);
}

bool isHalfTyped(const QDoubleSpinBox* pBox)
{
    return differs(pBox, pBox->cleanText(), pBox->textFromValue(pBox->value()));
}

bool isHalfTyped(const QSpinBox* pBox)
{
    const int base = pBox->displayIntegerBase();
    const auto text = base == 10 ? QString::number(pBox->value()) : QString::number(uint(pBox->value()), base);
    return differs(pBox, pBox->cleanText(), text);
}
