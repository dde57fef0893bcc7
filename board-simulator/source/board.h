#pragma once

#include "board-simulator/source/camera.h"
#include "board-simulator/source/services.h"

#include <chrono>
#include <memory>
#include <mutex>

namespace board
{

/// The board without its lines to the outside: runs commands, keeps the settings, lets the camera run. Thread-safe.
class Board
{
public:
    explicit Board(Files& files);
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;

    /// Runs one command. Never throws for a wrong command: the answer says what is wrong.
    Json::Value execute(const Json::Value& query);

    /// The bytes of a record of a class: a configuration or, failing that, a status, by its key. Throws
    /// `std::out_of_range` if there is none.
    std::string recordGet(const std::string& className, int generation, const std::string& key);
    /// Throws `Failure` for bytes of the wrong number.
    void recordSet(const std::string& className, int generation, const std::string& bytes, const std::string& key);

    /// Frames of the exposure loop at once, without waiting for real time.
    void advance(int frames);
    /// The mean of the picture, 0 to 255.
    double meanLuminance();

private:
    void timePass();
    void framesRun(int frames);
    void exposureTake();
    void exposureGive();
    ExposureTarget exposureTarget();
    SensorRange sensorRange();
    void exposureStatusUpdate(bool isV2);
    RecordBytes& record(const std::string& className, int generation, const std::string& key);

    std::mutex mutex;
    Modules modules;
    CommandTable commands;
    Camera camera;
    std::chrono::steady_clock::time_point frameTime;
    std::unique_ptr<CameraService> pCameraService;
    std::unique_ptr<SensorRegisterService> pSensorRegisterService;
    std::unique_ptr<RegService> pRegService;
};

} // namespace board
