#pragma once

#include "tuning-client/source/enable-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/ae.h"

class ExposurePlot;
class HistPlot;
class QTabWidget;
class Scene;

/// "Auto Exposure": runs the board's auto exposure and watches it.
class AeWidget : public EnableSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit AeWidget(QWidget* pParent);

    void configSet() override;
    void enableSet(bool isEnable) override;
    void reset() override;
    void updateStatus() override;

    /// Takes one sample of histogram, luminance and exposure and shows it.
    virtual void updateStatusPlot();

    QCheckBox* pCheckBoxAfps;
    QComboBox* pComboBoxMode;
    QComboBox* pComboBoxFlickerPeriod;
    SliderSpinWidget* pSliderSpinWidgetSampleInterval;
    QTabWidget* pTabWidget;
    QTimer* pTimer; ///< sampling
    rest::Ae::Config config;
    HistPlot* pHistPlot;
    Scene* pScene;
    ExposurePlot* pExposurePlot;

protected:
    /// For another generation of the module, with its words for the LED.
    AeWidget(QWidget* pParent, rest::Ae::Generation generation, const QString& on, const QString& off);

    /// Without the plots, which are never greyed.
    QVector<QWidget*> childrenWidgets() const override;

    /// Luminance grid and exposure chart, alike in both generations.
    void sampleShow(const rest::Ae::Status& status);

private:
    void controlsBuild();
    void plotsBuild();

    enum
    {
        SetPoint,
        Tolerance,
        DampingOver,
        DampingUnder,
        Sum
    };

    const rest::Ae::Generation generation;
    shortcut::RecordBinding<rest::Ae::Config::V1> binding;
};
