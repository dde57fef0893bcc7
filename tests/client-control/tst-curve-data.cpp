#include "tuning-client/source/control/curve-data.h"

#include <QRectF>
#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <thread>

namespace
{
std::vector<double> xs(CurveData& data)
{
    const std::lock_guard locker(data);
    std::vector<double> values;
    for (size_t i = 0; i < data.size(); ++i)
        values.push_back(data.sample(i).x());
    return values;
}

using Xs = std::vector<double>;
} // namespace

TEST(CurveData, KeepsAPointThatFindsTheSeriesLockedForTheNextOne)
{
    CurveData data;
    data.append({0, 5});
    data.lock();
    data.append({1, 7});
    data.append({2, -7});
    EXPECT_EQ(data.size(), 1u);
    data.unlock();
    data.append({3, 6});
    EXPECT_EQ(xs(data), (Xs{0, 1, 2, 3}));
    EXPECT_EQ(data.boundingRect(), QRectF(QPointF(0, -7), QPointF(3, 7)));

    data.lock();
    data.append({4, 0});
    data.unlock();
    data.clear();
    data.append({5, 0});
    EXPECT_EQ(xs(data), Xs{5});
    EXPECT_EQ(data.boundingRect(), QRectF(5, 0, 0, 0));
}

TEST(CurveData, DropsStalePointsButForTheNewestAndTheVeryLast)
{
    struct
    {
        double limit;
        int count;
        Xs left;
    } const cases[] = {
        {3, 6, {2, 3, 4}},
        {2.5, 6, {2, 3, 4}},
        {0, 6, {0, 1, 2, 3, 4}},
        {1, 6, {0, 1, 2, 3, 4}},
        {9, 6, {5}},
        {9, 1, {}},
        {0, 1, {}},
        {9, 0, {}},
    };
    for (const auto& [limit, count, left] : cases)
    {
        CurveData data;
        for (int i = 0; i < count; ++i)
            data.append({double(i), -double(i)});
        data.clear(limit);
        EXPECT_EQ(xs(data), left) << limit << " of " << count;
        const auto rect = data.boundingRect();
        EXPECT_EQ(rect.width() < 0, left.empty());
        EXPECT_TRUE(left.empty() ||
                    rect == QRectF(QPointF(left.front(), -left.back()), QPointF(left.back(), -left.front())));
    }
}

TEST(CurveData, LosesNothingBetweenTwoThreads)
{
    CurveData data;
    std::atomic<bool> isDone{false};
    std::thread writer(
        [&]
        {
            for (int i = 0; i < 20000; ++i)
                data.append({double(i), 0});
            isDone = true;
        });
    while (!isDone)
    {
        const auto values = xs(data);
        for (size_t i = 0; i < values.size(); ++i)
            ASSERT_EQ(values[i], double(i));
    }
    writer.join();
    data.append({20000, 0});
    EXPECT_EQ(xs(data).size(), 20001u);
}
