#pragma once

#include "tuning-rest/source/abstract.h"

namespace rest
{
/// The camera pipeline as a whole.
class Camera : public Abstract
{
public:
    /// Image format of a capture; travels as `snapshot.type`.
    enum SnapshotType
    {
        Raw08 = 0,
        Raw10 = 1,
        Raw12 = 2,
        Raw16 = 3,
        Rgb = 4,
        Yuv = 5
    };

    /// Has the board write its calibration; `fileName` is the name to fetch it by.
    Camera& calibrationGet(std::string& fileName, bool isBlockSignal);

    /// Has the board use the calibration file `fileName`, which was uploaded before.
    Camera& calibrationSet(const std::string& fileName, bool isBlockSignal);

    /// Takes a picture; only the last component of `path` is sent. `lockType` is a set of bits: 1 focus, 2 exposure,
    /// 4 white balance. `fComplete` runs on a worker thread and finds `error`, `message` and `file.name`.
    Camera& capture(const std::string& path, SnapshotType snapshotType, uint32_t lockType,
                    const std::function<void(const Json::Value&)>& fComplete);

    /// The number of inputs and the index of the active one.
    Camera& inputInfo(int32_t& count, int32_t& index);

    Camera& inputSwitch(int32_t index, int32_t& inputType, std::string& driverFileName);

    Camera& preview(bool isEnabled);
};
} // namespace rest
