#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/shortcut/form.h"

#include <QVector>

class QCheckBox;
class QPushButton;

/// A tuning page with a box that switches the module on, a Reset button and a column of sliders. Each change of a
/// control sends at once.
class EnableSliderAbstractWidget : public AbstractWidget
{
    Q_OBJECT

public:
    /// Makes `count` sliders; the page gives each its text and range with `slider()`.
    EnableSliderAbstractWidget(QWidget* pParent, const QString& name, int count);

    using AbstractWidget::configSet;

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

    /// Rows on `pGrid` that send the record when they change.
    shortcut::Form form(QGridLayout* pGrid);

    /// A control of `form` was changed: sends the record.
    virtual void changed(QObject* pControl);

    /// What `childrenWidgetsEnableSet` greys: all controls of the page but the enable box.
    virtual QVector<QWidget*> childrenWidgets() const;

    /// The box as read, without its signal.
    void enableBoxShow(bool isEnable);

    /// What a read shows of the switch, in the usual order: the box, the greying and the LED. A page that mixes them
    /// in its own order calls the steps.
    void enableShow(bool isEnable);

    /// The usual `enableSet`: the command, then the greying.
    template <class Service, class... Generation>
    void enableSend(bool isEnable, Generation... generation)
    {
        Service().enableSet(isEnable, generation...);
        childrenWidgetsEnableSet(!isEnable);
    }

    /// The usual `reset`: the command, then a read.
    template <class Service, class... Generation>
    void resetSend(Generation... generation)
    {
        Service().reset(generation...);
        readStatus();
    }
};
