// The curves of gamma, colour adjustment and contrast. What is expected was computed by another program, in Python.

#include "tests/support/qt-main.h"
#include "tuning-client/source/control/gamma-channel-widget.h"
#include "tuning-client/source/control/gamma2-channel-widget.h"
#include "tuning-client/source/control/transfer-curve-data.h"

#include <qwt_plot_curve.h>

#include <functional>
#include <limits>
#include <memory>

using Curve = rest::Gc::Config::Curve;
using Curve2 = rest::Gc::Config::Curve2;
using Values = std::vector<uint32_t>;

TEST(TransferCurves, FollowTheirFormulasToBothEnds)
{
    const double xs[] = {0, 9, 20, 31, 47, 63, 64};
    using Ys = std::vector<double>;
    const std::pair<std::shared_ptr<TransferCurveData>, Ys> rows[] = {
        {std::make_shared<CaCurveParabolicData>(1.5), {-512, 230.5, 808, 1022.5, 686.5, -417.5, -512}},
        {std::make_shared<CaCurveSData>(24, 3), {0, 20.25, 222.2222222, 664.63, 974.87, 1023.99, 1024}},
        {std::make_shared<CaCurveSData>(64, 5),
         {0, 0.05631351471, 3.051757812, 27.30288601, 218.7204428, 946.4612417, 1024}},
        {std::make_shared<CaCurveSData>(0, 2), {0, 267.75, 540, 751.75, 951.75, 1023.75, 1024}},
        {std::make_shared<DciCurve2SectionData>(.6, 1.7, 20, 300, 40, 900),
         {40, 201.0277988, 300, 532.0783043, 780.8634919, 899.0355456, 900}},
        {std::make_shared<DciCurve2SectionData>(.6, 1.7, 64, 300, 40, 900),
         {40, 120.1329017, 169.3848304, 208.2993272, 256.0349806, 297.5548267, 900}},
        {std::make_shared<DciCurve3SectionData>(.6, 1.4, .3, 20, 300, 40, 900, 45, 500),
         {40, 201.0277988, 300, 411.1835862, 703.5836562, 893.5642689, 900}},
        {std::make_shared<DciCurve3SectionData>(.6, 1.4, .3, 20, 300, 40, 900, 64, 500),
         {40, 201.0277988, 300, 366.3048157, 447.1767962, 498.999548, 500}},
        {std::make_shared<DciCurve3SectionData>(.6, 1.4, .3, 45, 300, 40, 900, 20, 500),
         {40, 138.9900048, 199.832038, 247.9040052, 845.4882786, 897.2507493, 900}},
    };
    for (const auto& [pCurve, ys] : rows)
    {
        pCurve->setRectOfInterest({0, 0, 64, 1024});
        EXPECT_EQ(pCurve->size(), 65u);
        for (size_t i = 0; i < ys.size(); ++i)
        {
            const auto point = pCurve->sample(size_t(xs[i]));
            EXPECT_EQ(point.x(), xs[i]);
            EXPECT_NEAR(point.y(), ys[i], 1e-6) << "the curve that ends at " << ys.back() << ", x " << xs[i];
        }
    }
}

namespace
{
/// An editor with its record, which counts what it tells.
template <class Widget, class Record>
struct Editing
{
    Editing()
    {
        widget.init();
        QObject::connect(&widget, &GammaAbstractWidget::valueChanged, [this] { ++told; });
    }

    /// The user's curve; the numbers of the record.
    Values user(int xScale, double gamma)
    {
        widget.pRadioButtonUser->click();
        widget.pComboBoxXScale->setCurrentIndex(xScale);
        widget.pDoubleSpinBoxGamma->setValue(gamma);
        return y();
    }

    Values y() const { return Values(std::begin(record.y), std::end(record.y)); }

    QPointF shown(int i) const { return widget.pPlotWidget->pQwtPlotCurve->sample(i); }

    Record record = rest::recordZero<Record>();
    Widget widget{record, nullptr};
    int told = 0;
};
} // namespace

TEST(GammaEditor, FormsACurveOf17Points)
{
    Editing<GammaChannelWidget, Curve> editing;
    EXPECT_EQ(editing.user(Curve::Logarithmic, 1),
              Values({0, 16, 32, 48, 64, 96, 128, 160, 192, 256, 320, 384, 512, 640, 768, 896, 1023}));
    EXPECT_EQ(editing.shown(16), QPointF(4096, 1024)) << "the plot has no limit";
    EXPECT_EQ(editing.user(Curve::Logarithmic, 1.25)[2], 64u) << "63 in double precision";
    EXPECT_EQ(editing.user(Curve::Equidistant, 1.5),
              Values({0, 161, 256, 335, 406, 471, 532, 590, 645, 697, 748, 797, 845, 891, 936, 980, 1023}));
    EXPECT_EQ(editing.shown(3).x(), 768);
    EXPECT_EQ(editing.record.mode, Curve::User);
    EXPECT_TRUE(editing.widget.pGroupBoxUserDefinitions->isVisibleTo(&editing.widget));

    // A table brings its scale and no gamma; the standard curve keeps both.
    editing.told = 0;
    editing.widget.pRadioButtonG45_G8->click();
    EXPECT_EQ(editing.y(), Values({0, 30, 68, 148, 220, 340, 426, 486, 540, 620, 690, 745, 830, 900, 950, 990, 1023}));
    EXPECT_EQ(editing.shown(2), QPointF(128, 68));
    editing.widget.pRadioButtonExp13_G45->click();
    EXPECT_EQ(editing.y(), Values({0, 92, 150, 198, 240, 311, 372, 425, 473, 556, 627, 689, 792, 874, 940, 991, 1023}));
    EXPECT_EQ(editing.record.mode, Curve::Exp13_G45);
    EXPECT_EQ(editing.record.xScale, Curve::Logarithmic);
    EXPECT_FALSE(editing.widget.pGroupBoxUserDefinitions->isVisibleTo(&editing.widget));
    editing.widget.pRadioButtonStandard->click();
    EXPECT_EQ(editing.y(),
              Values({0, 154, 211, 254, 290, 349, 397, 440, 478, 545, 603, 655, 747, 827, 898, 963, 1023}));
    EXPECT_EQ(editing.record.gamma, -1);
    EXPECT_EQ(editing.told, 3);
}

TEST(GammaEditor, FormsACurveOf64Points)
{
    Editing<Gamma2ChannelWidget, Curve2> editing;
    EXPECT_EQ(editing.widget.pComboBoxXScale->currentText(), "Equidistant");
    EXPECT_FALSE(editing.widget.pComboBoxXScale->isEnabled());
    EXPECT_EQ(editing.user(Curve2::Equidistant, 1)[63], 1008u);
    EXPECT_EQ(editing.record.x[63], 4032u);
    EXPECT_EQ(editing.user(Curve2::Logarithmic, 1)[63], 1024u);
    EXPECT_EQ(editing.user(Curve2::Logarithmic, 1.8),
              Values({0,   31,  46,  58,  69,  78,  86,  94,  101, 108, 114, 121, 127, 138, 149, 159,
                      168, 177, 186, 195, 203, 211, 219, 226, 233, 247, 261, 274, 286, 298, 310, 321,
                      333, 343, 354, 364, 374, 384, 403, 421, 439, 456, 473, 489, 505, 520, 535, 550,
                      564, 592, 619, 645, 671, 695, 719, 742, 765, 787, 830, 871, 910, 949, 986, 1022}));
    EXPECT_EQ(editing.record.mode, Curve2::User);
    std::fill(std::begin(editing.record.pX), std::end(editing.record.pX), 77);
    editing.widget.pRadioButtonStandard->click();
    EXPECT_EQ(editing.y(), Values({0,   59,  82,  98,  112, 124, 135, 145, 154, 162, 170, 178, 185, 199, 211, 223,
                                   234, 244, 254, 263, 272, 281, 289, 297, 305, 320, 334, 348, 361, 373, 385, 397,
                                   408, 418, 429, 439, 449, 458, 477, 495, 512, 528, 544, 559, 574, 588, 602, 615,
                                   628, 654, 678, 701, 724, 745, 766, 786, 806, 825, 861, 896, 929, 961, 992, 1021}));
    EXPECT_EQ(editing.record.gamma, 2.2);
    EXPECT_EQ(editing.widget.pDoubleSpinBoxGamma->value(), 1.8) << "until the next read";
    EXPECT_EQ(editing.record.pX[63], 77u);
    EXPECT_EQ(editing.shown(63), QPointF(4096, 1024));
}

TEST(GammaEditor, ShowsARecordAndTellsNothing)
{
    Editing<GammaChannelWidget, Curve> editing;
    auto& record = editing.record;
    record.mode = Curve::G45_G8;
    record.gamma = -1;
    record.y[5] = 333;
    editing.widget.updateStatus();
    EXPECT_TRUE(editing.widget.pRadioButtonG45_G8->isChecked());
    EXPECT_EQ(editing.shown(5), QPointF(384, 333));
    EXPECT_EQ(editing.widget.pDoubleSpinBoxGamma->value(), 1);
    record.mode = Curve::User;
    record.xScale = Curve::Equidistant;
    editing.widget.updateStatus();
    EXPECT_EQ(editing.widget.pPlotWidget->pQwtPlotCurve->dataSize(), 16u) << "infinite at 0";
    EXPECT_EQ(editing.shown(0).x(), 256);
    EXPECT_EQ(editing.widget.pComboBoxXScale->currentIndex(), 1);
    record.mode = Curve::Mode(9);
    record.xScale = Curve::XScale(9);
    record.gamma = std::numeric_limits<double>::quiet_NaN();
    editing.widget.updateStatus();
    EXPECT_TRUE(editing.widget.pRadioButtonUser->isChecked());
    EXPECT_EQ(editing.widget.pComboBoxXScale->currentIndex(), 1);
    EXPECT_EQ(editing.told, 0);

    Editing<Gamma2ChannelWidget, Curve2> editing2;
    editing2.record.gamma = 2;
    editing2.widget.updateStatus();
    EXPECT_TRUE(editing2.widget.pRadioButtonStandard->isChecked());
    EXPECT_EQ(editing2.widget.pComboBoxXScale->currentText(), "Logarithmic");
    EXPECT_EQ(editing2.shown(42), QPointF(1024, 512));
    editing2.record.mode = Curve2::User;
    editing2.widget.updateStatus();
    EXPECT_TRUE(editing2.widget.pRadioButtonUser->isChecked());
    EXPECT_EQ(editing2.told, 0);
}
