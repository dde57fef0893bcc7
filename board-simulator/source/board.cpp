#include "board-simulator/source/board.h"

#include "board-simulator/source/data.h"
#include "board-wire/source/json-text.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace board
{

namespace
{

// After this many frames the loop has settled; a board that was left alone for an hour need not make up for it.
constexpr int framesMax = 300;

std::vector<double> binsOf(const Camera::Histogram& histogram, size_t count)
{
    std::vector<double> bins(count);
    for (size_t i = 0; i < histogram.size(); ++i)
        bins[i * count / histogram.size()] += histogram[i];
    return bins;
}

} // namespace

Board::Board(Files& files) : frameTime(std::chrono::steady_clock::now())
{
    const Json::Value services = JsonText().parse(servicesText);
    moduleCommandsAdd(commands, modules);
    pCameraService = std::make_unique<CameraService>(commands, modules, files, services["inputs"]);
    pSensorRegisterService = std::make_unique<SensorRegisterService>(commands, files);
    pRegService = std::make_unique<RegService>(commands, services["modules"]);
    captureCommandAdd(commands, modules, files, camera);
    imageCommandsAdd(commands, modules, files);
    fileCommandsAdd(commands, files);
    cliCommandsAdd(commands, services["versions"]);

    auto fStatusGet = [this](const Json::Value& query, Json::Value& answer)
    {
        Module& module = modules.module("Ae", query);
        exposureStatusUpdate(query["generation"].asInt() == 1);
        module.status.write(answer);
    };
    commands.add("Ae", "statusGet", fStatusGet);
    exposureTake();
}

Json::Value Board::execute(const Json::Value& query)
{
    std::lock_guard lock(mutex);
    timePass();
    exposureGive();
    Json::Value answer = commands.run(query);
    exposureTake();
    return answer;
}

std::string Board::recordGet(const std::string& className, int generation, const std::string& key)
{
    std::lock_guard lock(mutex);
    timePass();
    exposureGive();
    if (className == "Ae" && key == "status")
        exposureStatusUpdate(generation == 1);
    return record(className, generation, key).bytes();
}

void Board::recordSet(const std::string& className, int generation, const std::string& bytes, const std::string& key)
{
    std::lock_guard lock(mutex);
    timePass();
    exposureGive();
    record(className, generation, key).bytesSet(bytes);
    exposureTake();
}

void Board::advance(int frames)
{
    std::lock_guard lock(mutex);
    framesRun(frames);
}

double Board::meanLuminance()
{
    std::lock_guard lock(mutex);
    timePass();
    const Camera::Grid cells = camera.luminance();
    return std::accumulate(cells.begin(), cells.end(), 0.0) / cells.size();
}

RecordBytes& Board::record(const std::string& className, int generation, const std::string& key)
{
    Module& module = modules.module(className, generation);
    RecordBytes* pRecord = module.config.record(key);
    pRecord = pRecord ? pRecord : module.status.record(key);
    if (!pRecord)
        throw std::out_of_range(className + " has no record " + key);
    return *pRecord;
}

void Board::timePass()
{
    const double rate = modules.module("Sensor").config.record("config")->number("framesPerSecond");
    const std::chrono::duration<double> period(1 / std::clamp(rate, 1.0, 1000.0));
    const auto now = std::chrono::steady_clock::now();
    const auto frames = static_cast<int64_t>(std::floor((now - frameTime) / period));
    if (frames > 0)
    {
        frameTime += std::chrono::duration_cast<std::chrono::steady_clock::duration>(period * frames);
        framesRun(static_cast<int>(std::min<int64_t>(frames, framesMax)));
    }
}

void Board::framesRun(int frames)
{
    const ExposureTarget target = exposureTarget();
    const SensorRange range = sensorRange();
    while (frames-- > 0 && camera.step(target, range))
    {
    }
}

/// With auto exposure off, gain and time are what was set by hand; with it on, the loop's own values stay.
void Board::exposureTake()
{
    const RecordBytes& sensor = *modules.module("Sensor").config.record("config");
    camera.isTestPattern = sensor.number("isTestPattern") != 0;
    if (!modules.module("Ae").isEnabled)
        camera.exposureSet(sensor.number("_long.gain"), sensor.number("_long.integrationTime"), sensorRange());
}

void Board::exposureGive()
{
    RecordBytes& sensor = *modules.module("Sensor").config.record("config");
    sensor.numberSet("_long.gain", camera.gain());
    sensor.numberSet("_long.integrationTime", camera.integrationTime());
    modules.each(
        [this](Module& module)
        {
            if (module.status.hasPlain("integration.time"))
            {
                module.status.plainSet("gain", camera.gain());
                module.status.plainSet("integration.time", camera.integrationTime());
            }
        });
}

ExposureTarget Board::exposureTarget()
{
    const Module& module = modules.module("Ae");
    const RecordBytes& config = *modules.module("Ae").config.record("config");
    const double periods[]{0, 1.0 / 100, 1.0 / 120};
    ExposureTarget target;
    target.isAuto = module.isEnabled && config.number("isBypass") == 0;
    target.setPoint = config.number("setPoint");
    target.tolerance = config.number("tolerance");
    target.dampingOver = config.number("dampingOver");
    target.dampingUnder = config.number("dampingUnder");
    const double mode = config.number("mode");
    target.region = mode == 1 ? ExposureTarget::Middle : mode == 2 ? ExposureTarget::Object : ExposureTarget::Whole;
    const double flicker = config.number("ecm.flickerPeriod");
    target.flickerPeriod = flicker == 1 || flicker == 2 ? periods[static_cast<size_t>(flicker)] : 0;
    return target;
}

SensorRange Board::sensorRange()
{
    const RecordBytes& status = *modules.module("Sensor").status.record("status");
    const SensorRange range{status.number("gain.min"), status.number("gain.max"), status.number("integrationTime.min"),
                            status.number("integrationTime.max")};
    // A test may have put anything into the record.
    const bool isSound = range.gainMin > 0 && range.gainMin <= range.gainMax && std::isfinite(range.gainMax) &&
                         range.timeMin > 0 && range.timeMin <= range.timeMax && std::isfinite(range.timeMax);
    return isSound ? range : SensorRange{};
}

void Board::exposureStatusUpdate(bool isV2)
{
    RecordBytes& status = *modules.module("Ae").status.record("status");
    status.bytesSet(std::string(status.bytes().size(), '\0'));
    const Camera::Histogram histogram = camera.histogram();
    const Camera::Grid luminance = camera.luminance();
    if (isV2)
    {
        // The 16 bins stay empty, so that the finer ones are shown.
        const std::vector<double> bins16 = binsOf(histogram, 16);
        status.numbersSet("histogram.v2._64", binsOf(histogram, 32));
        status.numbersSet("histogram.v2._256", binsOf(histogram, 256));
        status.numbersSet("histogram.v2.hdr.green", bins16);
        status.numbersSet("histogram.v2.hdr.blue", bins16);
        status.numbersSet("histogram.v2.hdr.red", bins16);
        status.numbersSet("histogram.v2.hdr.aeData", {luminance.begin(), luminance.end()});
    }
    else
    {
        status.numbersSet("histogram.v1._16", binsOf(histogram, 16));
    }
    status.numbersSet("luminance", {luminance.begin(), luminance.end()});
    status.numbersSet("objectRegion", {camera.objectRegion().begin(), camera.objectRegion().end()});
}

} // namespace board
