#pragma once

#include "tuning-client/source/enable-slider-abstract-widget.h"

#include <json/value.h>

#include <functional>

class QComboBox;

/// A tuning page whose module can also be driven by the board, from a gain table: a Manual or Auto selector, a button
/// that opens the table, and a timer that keeps the visible page up to date while the board drives.
///
/// What a page looks like in each state:
///
/// | module | mode   | timer               | sliders                          | table button | Level          |
/// |--------|--------|---------------------|----------------------------------|--------------|----------------|
/// | any    | Manual | stopped             | follow `childrenWidgetsEnableSet` | hidden       | hidden         |
/// | off    | Auto   | stopped             | disabled                         | shown        | shown          |
/// | on     | Auto   | runs while shown    | disabled                         | shown        | shown, usable  |
class EnableAutoSliderAbstractWidget : public EnableSliderAbstractWidget
{
    Q_OBJECT

public:
    EnableAutoSliderAbstractWidget(QWidget* pParent, const QString& name, int count);

    /// Opens the module's table; a page calls `tableEdit` in it.
    virtual void editTable();

    /// Shows what the mode offers: the table button in Auto, the sliders in Manual.
    virtual void workModeChanged(bool isAuto);

    /// In Auto the sliders stay disabled whatever is freed.
    void childrenWidgetsEnableSet(bool isEnable) override;
    void enableSet(bool isEnable) override;
    void updateStatus() override;

    QComboBox* pComboBoxWorkMode; ///< 0 "Manual", 1 "Auto"
    QPushButton* pPushButtonEditTable;
    QTimer* pTimer;

protected:
    void afterShow() override;

    bool isAuto() const;

    /// For a module without a table: the button that opens it is never shown.
    void tableHide();

    /// Shows the mode as read, without the combo box's signals.
    void workModeShow(bool isAuto);

    /// What a read shows of switch and mode, in the usual order: the box, the greying, the LED, the mode and the timer.
    /// In Manual the sliders of a running module are free then; a page that greys last calls the steps instead.
    void stateShow(bool isEnable, bool isAuto);

    /// Fetches the table, lets the user edit it, and sends it back if he applied it.
    template <class Service, class... Generation>
    void tableEdit(Generation... generation)
    {
        tableEdit([=](Json::Value& jTable) { Service().tableGet(jTable, generation...); },
                  [=](const Json::Value& jTable) { Service().tableSet(jTable, generation...); });
    }

private:
    void tableEdit(const std::function<void(Json::Value&)>& fTableGet,
                   const std::function<void(const Json::Value&)>& fTableSet);
    void stateFollow(bool isAuto);
    void timerSet(bool isRunning);

    bool hasTable = true;
};
