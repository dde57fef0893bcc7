#include "tuning-client/source/module/register-widget.h"

#include "tuning-rest/source/reg.h"
#include "tuning-rest/source/sensor.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>

#include <limits>
#include <stdexcept>

namespace
{
constexpr auto hexPrefix = "0x";
constexpr int base = 16;

struct Row
{
    QLabel* pLabel;
    HexSpinBox* pBox;
    QPushButton* pButton;
};

void groupFill(QGroupBox* pGroup, std::initializer_list<Row> rows)
{
    auto* pLayout = new QGridLayout(pGroup);
    int line = 0;
    for (const auto& row : rows)
    {
        pLayout->addWidget(row.pLabel, line, 0);
        pLayout->addWidget(row.pBox, line, 1);
        pLayout->addWidget(row.pButton, line++, 2);
        row.pLabel->setBuddy(row.pBox);
        row.pBox->setAccessibleName(pGroup->title() + " " + row.pLabel->text());
        row.pButton->setAccessibleName(pGroup->title() + " " + row.pButton->text());
    }
    pLayout->setColumnStretch(1, 1);
}

QString digitsOf(const QString& text) { return text.startsWith(hexPrefix) ? text.mid(2) : text; }

/// The number as it stands in the box. A box that has been emptied must not send what it held before.
uint32_t numberGet(const HexSpinBox* pBox)
{
    bool isNumber = false;
    const auto number = digitsOf(pBox->text()).toUInt(&isNumber, base);
    if (!isNumber)
        throw std::runtime_error(
            RegisterWidget::tr("%1: no hexadecimal number").arg(pBox->accessibleName()).toStdString());
    return number;
}
} // namespace

HexSpinBox::HexSpinBox(bool isOnly16Bits_, QWidget* parent) : QSpinBox(parent), isOnly16Bits(isOnly16Bits_)
{
    using Limits = std::numeric_limits<int>;
    setPrefix(hexPrefix);
    setDisplayIntegerBase(base);
    isOnly16Bits ? setRange(0, 0xFFFF) : setRange(Limits::min(), Limits::max());
}

unsigned int HexSpinBox::hexValue() const { return unsigned(value()); }

void HexSpinBox::setHexValue(unsigned int value) { setValue(int(value)); }

QValidator::State HexSpinBox::validate(QString& input, int& pos) const
{
    auto digits = digitsOf(input);
    const auto size = digits.size();
    digits = digits.trimmed();
    pos = qMax(0, pos + digits.size() - size);
    if (digits.isEmpty())
        return QValidator::Intermediate;
    input = hexPrefix + digits.toUpper();

    bool isNumber = false;
    const auto number = digits.toUInt(&isNumber, base);
    return isNumber && !(isOnly16Bits && number >= 0x10000) ? QValidator::Acceptable : QValidator::Invalid;
}

int HexSpinBox::valueFromText(const QString& text) const { return int(digitsOf(text).toUInt(nullptr, base)); }

QString HexSpinBox::textFromValue(int value) const { return QString::number(unsigned(value), base).toUpper(); }

RegisterWidget::RegisterWidget(QWidget* pParent)
    : AbstractWidget(pParent, QString(), false),
      pGroupBoxIsp(new QGroupBox(tr("ISP"))),
      pGroupBoxSensor(new QGroupBox(tr("Sensor"))),
      pHexSpinBoxIspAddress(new HexSpinBox(false)),
      pHexSpinBoxIspValue(new HexSpinBox(false)),
      pHexSpinBoxSensorAddress(new HexSpinBox(false)),
      pHexSpinBoxSensorValue(new HexSpinBox(false)),
      pLabelIspAddress(new QLabel(tr("Address"))),
      pLabelIspValue(new QLabel(tr("Value"))),
      pLabelSensorAddress(new QLabel(tr("Address"))),
      pLabelSensorValue(new QLabel(tr("Value"))),
      pPushButtonIspRead(new QPushButton(tr("Read"))),
      pPushButtonIspWrite(new QPushButton(tr("Write"))),
      pPushButtonSensorRead(new QPushButton(tr("Read"))),
      pPushButtonSensorWrite(new QPushButton(tr("Write")))
{
    groupFill(pGroupBoxSensor, {{pLabelSensorAddress, pHexSpinBoxSensorAddress, pPushButtonSensorRead},
                                {pLabelSensorValue, pHexSpinBoxSensorValue, pPushButtonSensorWrite}});
    groupFill(pGroupBoxIsp, {{pLabelIspAddress, pHexSpinBoxIspAddress, pPushButtonIspRead},
                             {pLabelIspValue, pHexSpinBoxIspValue, pPushButtonIspWrite}});
    pGridLayoutScrollArea->addWidget(pGroupBoxSensor, 0, 0);
    pGridLayoutScrollArea->addWidget(pGroupBoxIsp, 0, 1);
    pGridLayoutScrollArea->setRowStretch(1, 1);

    connectAccess(
        pPushButtonSensorRead, pPushButtonSensorWrite, pHexSpinBoxSensorAddress, pHexSpinBoxSensorValue,
        [](uint32_t address, uint32_t& value) { rest::Sensor().registerGet(address, value); },
        [](uint32_t address, uint32_t value) { rest::Sensor().registerSet(address, value); });
    connectAccess(
        pPushButtonIspRead, pPushButtonIspWrite, pHexSpinBoxIspAddress, pHexSpinBoxIspValue,
        [](uint32_t address, uint32_t& value) { rest::Reg().configGet(address, value); },
        [](uint32_t address, uint32_t value) { rest::Reg().configSet(address, value); });
}

void RegisterWidget::connectAccess(QPushButton* pRead, QPushButton* pWrite, HexSpinBox* pAddress, HexSpinBox* pValue,
                                   const Get& fGet, const Set& fSet)
{
    connectGuarded(pRead, &QPushButton::clicked,
                   [=]
                   {
                       const auto address = numberGet(pAddress);
                       uint32_t value = 0;
                       fGet(address, value);
                       pValue->setHexValue(value);
                       okShow(statusBar(), "Read", address, value);
                   });
    connectGuarded(pWrite, &QPushButton::clicked,
                   [=]
                   {
                       const auto address = numberGet(pAddress);
                       const auto value = numberGet(pValue);
                       fSet(address, value);
                       okShow(statusBar(), "Write", address, value);
                   });
}

void okShow(QStatusBar* pStatusBar, const char* verb, uint32_t address, uint32_t value)
{
    if (pStatusBar)
        pStatusBar->showMessage(QString::asprintf("%s 0x%02X = 0x%02X OK", verb, address, value), 2000);
}
