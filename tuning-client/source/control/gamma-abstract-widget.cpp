#include "tuning-client/source/control/gamma-abstract-widget.h"

#include "tuning-client/source/control/plot.h"
#include "tuning-client/source/shortcut/form.h"
#include "tuning-rest/source/gc.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <algorithm>
#include <cmath>

using CurveAbstract = rest::Gc::Config::CurveAbstract;

namespace
{
constexpr double xMax = 4096;
constexpr double yMax = 1024;
} // namespace

PlotWidget::PlotWidget(QWidget* pParent)
    : QWidget(pParent), pQwtPlot(new QwtPlot), pQwtPlotCurve(plot::transferDress(*pQwtPlot, tr("Curve"), 8))
{
    auto* pLayout = new QHBoxLayout(this);
    pLayout->addWidget(pQwtPlot);
}

GammaAbstractWidget::GammaAbstractWidget(QWidget* parent)
    : QWidget(parent),
      pPlotWidget(new PlotWidget(nullptr)),
      pButtonGroupCurve(new QButtonGroup(this)),
      pGroupBoxCurve(new QGroupBox(tr("Curve"))),
      pGroupBoxUserDefinitions(new QGroupBox(tr("User Definitions")))
{
    new QVBoxLayout(pGroupBoxCurve);
    userDefinitionsBuild();
    auto* pRow = new QHBoxLayout;
    pRow->addWidget(pGroupBoxCurve);
    pRow->addWidget(pGroupBoxUserDefinitions);
    auto* pLayout = new QVBoxLayout(this);
    pLayout->addLayout(pRow);
    pLayout->addWidget(pPlotWidget, 1);
    pPlotWidget->pQwtPlot->setAxisScale(QwtPlot::xBottom, 0, 4100);
    pPlotWidget->pQwtPlot->setAxisScale(QwtPlot::yLeft, -10, 1040);

    const auto change = [this]
    {
        configSet();
        replot();
    };
    connect(pButtonGroupCurve, &QButtonGroup::idClicked, this, change);
    connect(pComboBoxXScale, QOverload<int>::of(&QComboBox::currentIndexChanged), this, change);
    connect(pDoubleSpinBoxGamma->findChild<HeldChange*>(), &HeldChange::committed, this, change);
}

void GammaAbstractWidget::userDefinitionsBuild()
{
    // The page sends, so the rows themselves do nothing.
    shortcut::Form form(nullptr, new QGridLayout(pGroupBoxUserDefinitions), {});
    pComboBoxXScale = form.comboBox(tr("Scaling (x-axis)"), {{tr("Logarithmic"), CurveAbstract::Logarithmic},
                                                             {tr("Equidistant"), CurveAbstract::Equidistant}});
    form.spinBoxes(tr("Gamma"), {&pDoubleSpinBoxGamma}, 1, 4, 2, 0.01);
    form.stretch();
    pGroupBoxUserDefinitions->hide();
}

void GammaAbstractWidget::configSet() { userDefinitionsFollow(); }

void GammaAbstractWidget::userDefinitionsFollow()
{
    pGroupBoxUserDefinitions->setVisible(pButtonGroupCurve->checkedId() == User);
}

void GammaAbstractWidget::replot()
{
    plot::samplesSet(*pPlotWidget->pQwtPlotCurve, points);
    pPlotWidget->pQwtPlot->replot();
}

QRadioButton* GammaAbstractWidget::curveButtonAdd(const QString& text, int id)
{
    auto* pButton = new QRadioButton(text);
    pGroupBoxCurve->layout()->addWidget(pButton);
    pButtonGroupCurve->addButton(pButton, id);
    return pButton;
}

void GammaAbstractWidget::controlsShow(int id, uint32_t xScale, double gamma)
{
    using shortcut::NoSignals;
    NoSignals::setCheckedId(pButtonGroupCurve, id);
    userDefinitionsFollow();
    if (xScale <= CurveAbstract::Equidistant)
        NoSignals::setCurrentIndex(pComboBoxXScale, int(xScale));
    NoSignals::setValue(pDoubleSpinBoxGamma, gamma);
}

void GammaAbstractWidget::xSet(bool isEquidistant, double equidistance, const uint32_t* gammaOutDxLog)
{
    points[0].setX(0);
    for (int i = 1; i < points.size(); ++i)
        points[i].setX(points[i - 1].x() + (isEquidistant ? equidistance : gammaOutDxLog[i - 1]));
}

bool GammaAbstractWidget::isLogarithmicChosen() const { return pComboBoxXScale->currentText() == tr("Logarithmic"); }

double GammaAbstractWidget::formula(double x, double exponent) { return std::pow(x / xMax, exponent) * yMax; }

uint32_t GammaAbstractWidget::output(double y, float limit)
{
    return uint32_t(std::clamp(static_cast<float>(y), 0.0f, limit));
}
