#pragma once

#include "tuning-client/source/abstract-widget.h"

#include <QSpinBox>

#include <cstdint>
#include <functional>

class QGroupBox;
class QPushButton;

/// An unsigned number of 16 or 32 bits, shown and typed as "0x" and upper-case hexadecimal digits. The spin box's own
/// `int` holds the bit pattern.
class HexSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit HexSpinBox(bool isOnly16Bits, QWidget* parent = nullptr);

    unsigned int hexValue() const;
    void setHexValue(unsigned int value);

    bool isOnly16Bits;

protected:
    QValidator::State validate(QString& input, int& pos) const override;
    int valueFromText(const QString& text) const override;
    QString textFromValue(int value) const override;
};

/// Shows for two seconds that a register was read or written.
void okShow(QStatusBar* pStatusBar, const char* verb, uint32_t address, uint32_t value);

/// "Register": single registers of the sensor and of the ISP by their address. Only the buttons talk to the board.
class RegisterWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit RegisterWidget(QWidget* pParent);

    QGroupBox* pGroupBoxIsp;
    QGroupBox* pGroupBoxSensor;
    HexSpinBox* pHexSpinBoxIspAddress;
    HexSpinBox* pHexSpinBoxIspValue;
    HexSpinBox* pHexSpinBoxSensorAddress;
    HexSpinBox* pHexSpinBoxSensorValue;
    QLabel* pLabelIspAddress;
    QLabel* pLabelIspValue;
    QLabel* pLabelSensorAddress;
    QLabel* pLabelSensorValue;
    QPushButton* pPushButtonIspRead;
    QPushButton* pPushButtonIspWrite;
    QPushButton* pPushButtonSensorRead;
    QPushButton* pPushButtonSensorWrite;

private:
    using Get = std::function<void(uint32_t address, uint32_t& value)>;
    using Set = std::function<void(uint32_t address, uint32_t value)>;

    void connectAccess(QPushButton* pRead, QPushButton* pWrite, HexSpinBox* pAddress, HexSpinBox* pValue,
                       const Get& fGet, const Set& fSet);
};
