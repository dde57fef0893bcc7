#include "tests/simulator/fixture.h"

#include "board-wire/source/record-bytes.h"

#include <cmath>
#include <numeric>

namespace
{

class CameraTest : public BoardTest
{
protected:
    CameraTest()
    {
        // The loop then moves by `advance` only as far as these tests can tell.
        sensorSet("framesPerSecond", 1);
    }

    static board::RecordBytes record(const std::string& name, const std::string& bytes)
    {
        const board::Record& layout = board::Wire::instance().record(name);
        board::RecordBytes record(layout, layout.layout());
        record.bytesSet(bytes);
        return record;
    }

    void set(const std::string& className, const std::string& field, double value)
    {
        auto config = record("rest::" + className + "::Config", simulator->recordGet(className, 0));
        config.numberSet(field, value);
        simulator->recordSet(className, 0, config.bytes());
    }

    void aeSet(const std::string& field, double value) { set("Ae", field, value); }

    void sensorSet(const std::string& field, double value) { set("Sensor", field, value); }

    double sensor(const std::string& field)
    {
        return record("rest::Sensor::Config", simulator->recordGet("Sensor", 0)).number(field);
    }

    double sensorLimit(const std::string& field)
    {
        return record("rest::Sensor::Status", simulator->recordGet("Sensor", 0, "status")).number(field);
    }

    std::vector<double> status(int generation, const std::string& field, size_t count)
    {
        const auto bytes = record("rest::Ae::Status", simulator->recordGet("Ae", generation, "status"));
        std::vector<double> values;
        for (size_t i = 0; i < count; ++i)
            values.push_back(bytes.number(field, i));
        return values;
    }

    void enable(bool isEnable)
    {
        ASSERT_EQ(run("Ae", "enableSet", 1, isEnable ? R"({"enable":true})" : R"({"enable":false})")["error"], 0);
    }
};

double mean(const std::vector<double>& values)
{
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

} // namespace

TEST_F(CameraTest, LoopReachesTheSetPoint)
{
    for (double setPoint : {20.0, 150.0, 60.0})
    {
        for (int flicker : {0, 1, 2})
        {
            SCOPED_TRACE(testing::Message() << setPoint << " flicker " << flicker);
            aeSet("setPoint", setPoint);
            aeSet("tolerance", 2);
            aeSet("ecm.flickerPeriod", flicker);
            simulator->advance(300);
            EXPECT_NEAR(mean(status(1, "luminance", 25)), setPoint, 2.5);
            const double time = sensor("_long.integrationTime");
            EXPECT_GE(sensor("_long.gain"), sensorLimit("gain.min"));
            EXPECT_LE(sensor("_long.gain"), sensorLimit("gain.max"));
            EXPECT_LE(time, sensorLimit("integrationTime.max"));
            if (flicker && time > 0.01)
            {
                const double periods = time * (flicker == 1 ? 100 : 120);
                EXPECT_NEAR(periods, std::round(periods), 1e-3);
            }
        }
    }
    aeSet("mode", 1);
    aeSet("setPoint", 120);
    simulator->advance(300);
    const auto cells = status(0, "luminance", 25);
    EXPECT_NEAR(mean({cells[6], cells[7], cells[8], cells[11], cells[12], cells[13], cells[16], cells[17], cells[18]}),
                120, 2.5);
    aeSet("setPoint", 255);
    aeSet("tolerance", 0);
    simulator->advance(1000);
    EXPECT_FLOAT_EQ(sensor("_long.gain"), sensorLimit("gain.max"));
}

TEST_F(CameraTest, DampingSlowsTheLoop)
{
    auto stepWith = [&](double damping)
    {
        enable(false);
        sensorSet("_long.gain", 1);
        sensorSet("_long.integrationTime", 0.005);
        aeSet("dampingUnder", damping);
        enable(true);
        simulator->advance(1);
        return sensor("_long.gain") * sensor("_long.integrationTime");
    };
    EXPECT_FLOAT_EQ(stepWith(1), 0.005);
    EXPECT_GT(stepWith(0.9), 0.0051);
    EXPECT_GT(stepWith(0.2), stepWith(0.9) * 1.5);
    for (double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e30})
    {
        for (const char* field : {"setPoint", "tolerance", "dampingUnder", "dampingOver"})
        {
            run("Ae", "reset", 0);
            aeSet(field, bad);
            simulator->advance(50);
            EXPECT_TRUE(std::isfinite(sensor("_long.gain")));
        }
    }
}

TEST_F(CameraTest, ExposureByHandCountsWhileTheLoopIsOff)
{
    enable(false);
    sensorSet("_long.gain", 2);
    sensorSet("_long.integrationTime", 0.002);
    const double dark = simulator->meanLuminance();
    sensorSet("_long.integrationTime", 0.004);
    simulator->advance(100);
    EXPECT_NEAR(simulator->meanLuminance(), 2 * dark, 2);
    EXPECT_FLOAT_EQ(sensor("_long.integrationTime"), 0.004f);

    sensorSet("_long.gain", std::nan(""));
    sensorSet("_long.integrationTime", 99);
    EXPECT_FLOAT_EQ(sensor("_long.gain"), 2);
    EXPECT_FLOAT_EQ(sensor("_long.integrationTime"), sensorLimit("integrationTime.max"));

    enable(true);
    simulator->advance(300);
    const double settled = sensor("_long.gain");
    sensorSet("_long.gain", 16);
    EXPECT_EQ(sensor("_long.gain"), settled);
}

TEST_F(CameraTest, LoopRunsWithRealTime)
{
    enable(false);
    sensorSet("framesPerSecond", 1000);
    sensorSet("_long.gain", 1);
    sensorSet("_long.integrationTime", 0.0001);
    aeSet("setPoint", 80);
    enable(true);
    EXPECT_TRUE(await([&] { return simulator->meanLuminance() >= 70; }));
}

TEST_F(CameraTest, HistogramsCountEveryPixel)
{
    simulator->advance(300);
    const auto v1 = status(0, "histogram.v1._16", 16);
    const auto v2 = status(1, "histogram.v2._256", 256);
    EXPECT_EQ(mean(v1) * 16, mean(v2) * 256);
    EXPECT_GT(mean(v1), 0);
    EXPECT_EQ(std::accumulate(v2.begin(), v2.begin() + 16, 0.0), v1[0]);
    // A page shows the 16 bins unless they are empty.
    EXPECT_EQ(mean(status(1, "histogram.v2._16", 16)), 0);
    const double covered = mean(status(1, "objectRegion", 25));
    EXPECT_GT(covered, 0);
    EXPECT_LT(covered, 1);
}
