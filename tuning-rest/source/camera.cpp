#include "tuning-rest/source/camera.h"

#include "tuning-common/source/file-system.h"

#include <ctime>

namespace rest
{
namespace
{
std::string localTime()
{
    const auto now = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    char text[32];
    return std::string(text, std::strftime(text, sizeof text, "%Y-%m-%d_%H-%M-%S", &local));
}
} // namespace

Camera& Camera::calibrationGet(std::string& fileName, bool isBlockSignal)
{
    return read(*this, COMMAND(10001).with("block.signal", isBlockSignal).with("time", localTime()), "calib.file",
                fileName);
}

Camera& Camera::calibrationSet(const std::string& fileName, bool isBlockSignal)
{
    return send(*this, COMMAND(10002).with("block.signal", isBlockSignal).with("calib.file", fileName), TimeoutLong);
}

Camera& Camera::capture(const std::string& path, SnapshotType snapshotType, uint32_t lockType,
                        const std::function<void(const Json::Value&)>& fComplete)
{
    const auto command = COMMAND(10003)
                             .with("file.name", t_common::FileSystem::filenameGetFromPath(path))
                             .with("snapshot.type", int32_t(snapshotType))
                             .with("lock.type", lockType);
    request(command.query(), fComplete, TimeoutCapture);
    return *this;
}

Camera& Camera::inputInfo(int32_t& count, int32_t& index)
{
    Json::Value jResponse;
    request(COMMAND(10004).query(), jResponse, TimeoutDefault);
    const auto inputs = answerGet<int32_t>(jResponse, "count");
    index = answerGet<int32_t>(jResponse, "index");
    count = inputs;
    return *this;
}

Camera& Camera::inputSwitch(int32_t index, int32_t& inputType, std::string& driverFileName)
{
    Json::Value jResponse;
    request(COMMAND(10005).with("index", index).query(), jResponse, TimeoutDefault);
    const auto type = answerGet<int32_t>(jResponse, "input.type");
    driverFileName = answerGet<std::string>(jResponse, "driver.file");
    inputType = type;
    return *this;
}

Camera& Camera::preview(bool isEnabled) { return write(*this, COMMAND(10006), "preview", isEnabled); }
} // namespace rest
