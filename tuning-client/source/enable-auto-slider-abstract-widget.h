#pragma once

#include "tuning-client/source/enable-slider-abstract-widget.h"

#include <json/value.h>

#include <functional>

class QComboBox;

/// A tuning page whose module can also be driven by the board, from a gain table: a Manual or Auto selector, a button
/// that opens the table, and a timer that keeps the visible page up to date while the board drives.
class EnableAutoSliderAbstractWidget : public EnableSliderAbstractWidget
{
    Q_OBJECT

public:
    EnableAutoSliderAbstractWidget(QWidget* pParent, const QString& name, int count);

    /// Opens the module's table; a page calls `tableEdit` in it.
    virtual void editTable();

    /// Shows what the mode offers: the table button in Auto, the sliders in Manual.
    virtual void workModeChanged(bool isAuto);

    void enableSet(bool isEnable) override;
    void updateStatus() override;

    QComboBox* pComboBoxWorkMode; ///< 0 "Manual", 1 "Auto"
    QPushButton* pPushButtonEditTable;
    QTimer* pTimer;

protected:
    void showEvent(QShowEvent* pEvent) override;
    void hideEvent(QHideEvent* pEvent) override;

    bool isAuto() const;

    /// Starts the timer if the module is on and the board drives it, else stops it.
    void timerSet(bool isEnable, bool isAuto);

    /// Shows the mode as read, without the combo box's signals.
    void workModeShow(bool isAuto);

    /// Fetches the table, lets the user edit it, and sends it back if he applied it.
    void tableEdit(const std::function<void(Json::Value&)>& fTableGet,
                   const std::function<void(const Json::Value&)>& fTableSet);
};
