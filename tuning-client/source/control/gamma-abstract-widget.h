#pragma once

#include <QPointF>
#include <QVector>
#include <QWidget>

#include <cstdint>

class QButtonGroup;
class QComboBox;
class QDoubleSpinBox;
class QGroupBox;
class QRadioButton;
class QwtPlot;
class QwtPlotCurve;

/// A plot with one curve whose points are seen.
class PlotWidget : public QWidget
{
    Q_OBJECT

public:
    explicit PlotWidget(QWidget* pParent);

    QwtPlot* pQwtPlot;
    QwtPlotCurve* pQwtPlotCurve;
};

/// What both gamma editors have: a choice of curves, the user's own definitions, and the curve. An editor writes into
/// the record of its page and tells so; what a read shows tells nothing.
class GammaAbstractWidget : public QWidget
{
    Q_OBJECT

public:
    explicit GammaAbstractWidget(QWidget* parent);

    /// Forms the curve in the record by the controls.
    virtual void configSet();

    /// Draws `points`; those that are not finite are left out.
    void replot();

    QVector<QPointF> points;
    PlotWidget* pPlotWidget;
    QButtonGroup* pButtonGroupCurve; ///< the ids do not follow the order of the rows
    QRadioButton* pRadioButtonStandard = nullptr;
    QRadioButton* pRadioButtonExp13_G45 = nullptr;
    QRadioButton* pRadioButtonG45_G8 = nullptr;
    QRadioButton* pRadioButtonUser = nullptr;
    QComboBox* pComboBoxXScale;
    QDoubleSpinBox* pDoubleSpinBoxGamma;
    QGroupBox* pGroupBoxCurve;
    QGroupBox* pGroupBoxUserDefinitions;

signals:
    /// The user has changed the record.
    void valueChanged();

protected:
    /// Ids of the buttons.
    enum
    {
        Standard = 0,
        G45_G8 = 1,
        Exp13_G45 = 2,
        User = 3
    };

    QRadioButton* curveButtonAdd(const QString& text, int id);

    /// The controls as read, without their signals.
    void controlsShow(int id, uint32_t xScale, double gamma);

    /// Sets the x of all points: one `equidistance` apart, or by the intervals of the logarithmic scale.
    void xSet(bool isEquidistant, double equidistance, const uint32_t* gammaOutDxLog);

    bool isLogarithmicChosen() const;

    /// The height of the curve at `x`.
    static double formula(double x, double exponent);

    /// An output value as the board takes it: in single precision, limited, truncated.
    static uint32_t output(double y, float limit);

private:
    void userDefinitionsBuild();
    void userDefinitionsFollow();
};
