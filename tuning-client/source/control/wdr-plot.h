#pragma once

#include "tuning-rest/source/wdr.h"

#include <qwt_plot.h>

#include <QVector>

class QwtPlotCurve;

/// The points of a curve.
class WdrCurveData
{
public:
    void append(const double* x, const double* y, int count);

    const double* x() const { return m_x.constData(); }
    const double* y() const { return m_y.constData(); }
    int count() const { return m_count; }
    int size() const { return m_x.size(); }

protected:
    int m_count = 0;
    QVector<double> m_x;
    QVector<double> m_y;
};

/// A tone mapping curve as the board takes it, with its points: the first one stands at the first distance, not at 0.
class WdrCurve : public WdrCurveData
{
public:
    WdrCurve(const QString& name, const QString& title, const rest::CamEngineWdrCurve_t& curve);

    QString name;  ///< of its button
    QString title; ///< of the plot
    QVector<int> dxes;
    rest::CamEngineWdrCurve_t wdrCurve;
};

/// Shows one tone mapping curve: output over input, both of 12 bits.
class WdrPlot : public QwtPlot
{
    Q_OBJECT

public:
    explicit WdrPlot(const QString& title, QWidget* parent = nullptr);

    /// Replaces the curve. There is one only, whatever its orientation.
    void insertCurve(Qt::Orientation orientation, const QColor& color, const QString& title, WdrCurveData* pData);

private:
    QwtPlotCurve* m_CurvePlot;
};
