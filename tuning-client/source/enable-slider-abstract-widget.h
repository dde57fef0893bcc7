#pragma once

#include "tuning-client/source/abstract-widget.h"

#include <QVector>

class QCheckBox;
class QPushButton;
class SliderSpinWidget;

/// A tuning page with a box that switches the module on, a Reset button and a column of sliders. Each change of a
/// control sends at once.
class EnableSliderAbstractWidget : public AbstractWidget
{
    Q_OBJECT

public:
    /// Makes `count` sliders; the page gives each its text and range with `slider()`.
    EnableSliderAbstractWidget(QWidget* pParent, const QString& name, int count);

    /// Greys or frees all controls but the enable box.
    virtual void childrenWidgetsEnableSet(bool isEnable);

    /// Copies the controls into the record and sends it.
    virtual void configSet();

    /// Sends the module's switch. A running module shows its values, so the controls are greyed while it is on.
    virtual void enableSet(bool isEnable);

    virtual void reset();

    QCheckBox* pCheckBoxEnable;
    QPushButton* pPushButtonRest; // The official spelling.
    QGridLayout* pGridLayoutReserved;
    QGridLayout* pGridLayoutSliderSpinWidgetCollection;
    QVector<SliderSpinWidget*> sliderSpinWidgets;

protected:
    /// Gives slider `index` its text, range and decimals.
    SliderSpinWidget* slider(int index, const QString& text, double min, double max, int decimals = 0);

    /// A labelled control in the next row of `pGridLayout`.
    void controlAdd(QGridLayout* pGridLayout, const QString& text, QWidget* pControl);

    /// Shows the switch as read: the box, the greying and the LED.
    void enableShow(bool isEnable, const QString& textOn, const QString& textOff);

    /// All controls of the page but the enable box.
    QVector<QWidget*> childrenWidgets() const;
};
