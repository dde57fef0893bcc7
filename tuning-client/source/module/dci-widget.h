#pragma once

#include "tuning-client/source/enable-auto-slider-abstract-widget.h"
#include "tuning-client/source/shortcut/record-binding.h"
#include "tuning-rest/source/dci.h"

class Marker;
class MarkerPicker;
class QRadioButton;
class QwtPlot;
class QwtPlotCurve;

/// "Dynamic Contrast Improvement": a curve of two or three sections, with its ends and inflections as markers. The
/// board may also work by a histogram, for which the page has no controls.
class DciWidget : public EnableAutoSliderAbstractWidget
{
    Q_OBJECT

public:
    explicit DciWidget(QWidget* pParent);

    using EnableAutoSliderAbstractWidget::configSet;
    void configSet() override;
    void editTable() override;
    void updateStatus() override;

    /// Shows what the sections need.
    void modeSet(QRadioButton* pRadioButton);

    /// Draws the curve of the controls.
    void replot();

    enum
    {
        ExponentLow,
        ExponentMiddle,
        ExponentHigh,
        Sum
    };

    QwtPlot* pQwtPlot;
    QwtPlotCurve* pQwtPlotCurve;
    MarkerPicker* pMarkerPicker;
    Marker* pMarkerStart;
    Marker* pMarkerInflection;
    Marker* pMarkerInflection2;
    Marker* pMarkerEnd;
    QRadioButton* pRadioButton2Sections;
    QRadioButton* pRadioButton3Sections;

private:
    using Config = rest::Dci::Config;

    struct Point
    {
        Marker* pMarker;
        Config::Point Config::*field;
    };

    void modeBuild();
    void plotBuild();
    Marker* markerAdd(const QColor& color, const QPointF& value, const QRectF& constrain, Config::Point Config::*field);
    bool hasSections() const;
    void sectionsChosen();
    void histogramTell();

    Config config; ///< as read, with what has no control
    QVector<Point> points;
    QButtonGroup* pButtonGroupMode;
    shortcut::RecordBinding<Config> binding;
};
