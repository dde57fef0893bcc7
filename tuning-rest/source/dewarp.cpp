#include "tuning-rest/source/dewarp.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace rest
{
Dewarp::Config::Config()
{
    // Padding and the map's pointer travel too.
    std::memset(static_cast<void*>(this), 0, sizeof *this);
    params.input_res[0] = params.output_res[0] = {1920, 1080, 0, 1};
    params.boundary_pixel = {0, 128, 128};
    params.scale_factor = 4096;
    params.split_horizon_line = params.split_vertical_line_up = params.split_vertical_line_down = 716;
    params.dewarp_type = 8;

    constexpr double camera[] = {
        655.1607440459469, 0, 964.2059905362306, 0, 655.5240667686895, 532.0360131719291, 0, 0, 1};
    constexpr double identity[] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    constexpr double distortion[] = {-0.022095698671518085, 0.0038543889520066955, -0.005906035597013287,
                                     0.001900736217850351};
    for (auto& map : distortionMap)
    {
        std::copy(std::begin(camera), std::end(camera), map.camera_matrix);
        std::copy(std::begin(identity), std::end(identity), map.perspective_matrix);
        std::copy(std::begin(distortion), std::end(distortion), map.distortion_coeff);
    }
    distortionMap[1].index = 1;
}

Dewarp& Dewarp::configGet(Config& settings, void** ppMap, uint32_t& size)
{
    Json::Value jResponse;
    request(COMMAND(30001).query(), jResponse, TimeoutDefault);
    const auto map = answerGet<std::string>(jResponse, "map");
    answerGet(jResponse, "config", settings);
    t_common::Base64::decode(map, ppMap, size);
    return *this;
}

Dewarp& Dewarp::configSet(const Config& settings, void* pMap, uint32_t size)
{
    return send(*this, COMMAND(30002).with("config", settings).with("map", t_common::Base64::encode(pMap, size)));
}

Dewarp& Dewarp::enableGet(bool& isEnable) { return read(*this, COMMAND(30003), "enable", isEnable); }

Dewarp& Dewarp::enableSet(bool isEnable) { return write(*this, COMMAND(30004), "enable", isEnable); }
} // namespace rest
