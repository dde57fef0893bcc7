#include "tuning-client/source/control/cac-plot.h"

#include <qwt_plot_curve.h>

#include <gtest/gtest.h>

namespace
{
struct Row
{
    double coeffs[3];
    int width, offset;
    double y[5]; ///< at these samples
};

constexpr int samples[] = {0, 128, 256, 320, 512};

// Computed with exact fractions by another program: l x + s |x| x + c x^3 for the coefficients l, s and c, where x is
// sample / 256 - 1, shifted by offset * 513 / width / 256.
constexpr Row rows[] = {
    {{1, 0, 0}, 1, 0, {-1, -0.5, 0, 0.25, 1}},
    {{0, 1, 0}, 1, 0, {-1, -0.25, 0, 0.0625, 1}},
    {{0, 0, 1}, 1, 0, {-1, -0.125, 0, 0.015625, 1}},
    {{1, 0, 0}, 513, 256, {0, 0.5, 1, 1.25, 2}},
    {{1.5, -2.25, 2}, 1920, 960, {0.00292111933, 0.43896772, 1.2558737, 2.27589895, 10.0322638}},
    {{-1.25, 1.75, -1.5}, 1920, 40, {0.910750724, 0.349669776, -0.0492441286, -0.252979488, -1.09883522}},
    {{2, -0.5, 0.25}, 0, 700, {-1.75, -0.90625, 0, 0.47265625, 1.75}},
};
} // namespace

TEST(CacPlot, DrawsOddPolynomialsOverTheWidth)
{
    CacPlot plot(nullptr);
    EXPECT_EQ(plot.curve->pen().color(), QColor(Qt::blue));
    EXPECT_EQ(plot.curve->sample(1), QPointF(-0.8, -0.3));
    EXPECT_EQ(plot.curve1->pen().color(), QColor(Qt::red));
    EXPECT_EQ(plot.curve1->sample(1), QPointF(-0.8, 0.9));
    for (const auto& row : rows)
        for (const bool isRed : {true, false})
        {
            const auto& [linear, square, cubical] = row.coeffs;
            isRed ? plot.plot(linear, square, cubical, 7, 7, 7, row.width, row.offset)
                  : plot.plot(7, 7, 7, linear, square, cubical, row.width, row.offset);
            const auto& curve = isRed ? *plot.curve : *plot.curve1;
            EXPECT_EQ(curve.pen().color(), QColor(isRed ? Qt::red : Qt::blue));
            ASSERT_EQ(curve.dataSize(), 513u);
            for (size_t i = 0; i < std::size(samples); ++i)
            {
                EXPECT_EQ(curve.sample(samples[i]).x(), samples[i] / 256.0 - 1) << "over the place, not shifted";
                EXPECT_NEAR(curve.sample(samples[i]).y(), row.y[i], 1e-8 * (1 + std::abs(row.y[i])));
            }
        }
}
