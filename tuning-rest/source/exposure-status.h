#pragma once

namespace rest
{
/// The exposure that a module's auto table is looked up with.
struct ExposureStatus
{
    double gain = 0;
    double integrationTime = 0; ///< seconds
};

inline constexpr auto exposureStatusKeys = [](auto& status, const auto& field)
{
    field("gain", status.gain);
    field("integration.time", status.integrationTime);
};
} // namespace rest
