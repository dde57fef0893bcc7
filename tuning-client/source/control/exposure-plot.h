#pragma once

#include <qwt_interval.h>
#include <qwt_plot.h>
#include <qwt_system_clock.h>

class CurveData;
class QwtPlotCurve;
class QwtPlotDirectPainter;
class QwtPlotMarker;

/// A running chart of integration time and gain, drawn like an oscilloscope: new stretches only, and a new page when
/// the time has run through the window. Each show begins a new chart.
class ExposurePlot : public QwtPlot
{
    Q_OBJECT

public:
    explicit ExposurePlot(QWidget* parent = nullptr);

    /// Takes a sample at this moment; the drawing timer shows it. A pair with a value that is not finite is left out.
    void append(float gain, float itime);
    void clear();

    void replot() override;

public slots:
    /// The length of the time window in seconds.
    void setIntervalLength(int interval);

protected:
    void showEvent(QShowEvent* pEvent) override;
    void hideEvent(QHideEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void timerEvent(QTimerEvent* pEvent) override;

private:
    void incrementInterval();
    void updateCurve();
    bool drawNewPoints();

    QwtPlotMarker* m_origin;
    QwtPlotCurve* m_itimeCurve;
    QwtPlotCurve* m_gainCurve;
    QwtPlotDirectPainter* m_directPainter;
    int m_paintedPoints = 0;
    QwtInterval m_interval{0.0, 20.0};
    int m_timerId = -1;
    QwtSystemClock m_clock;
};
