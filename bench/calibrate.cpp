// A calibration from ten pictures of 1920 by 1080, by turns with OpenCV's own calls on the same pictures.

#include "tests/support/board-picture.h"

#include <benchmark/benchmark.h>
#include <opencv2/calib3d.hpp>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <string>

namespace
{
using namespace board_picture;

/// What a program that calls OpenCV itself does at least; the focal length.
double plain(const std::vector<Image>& pictures, const Parameters& parameters)
{
    const cv::Size size(parameters.width, parameters.height);
    std::vector<cv::Point3f> board;
    for (int i = 0; i < size.area(); ++i)
        board.emplace_back(parameters.squareSize * float(i % size.width), parameters.squareSize * float(i / size.width),
                           0.0F);
    std::vector<std::vector<cv::Point2f>> found;
    cv::Size sides;
    for (const auto& picture : pictures)
    {
        const cv::Mat grey(picture.height, picture.width, CV_8U, const_cast<uint8_t*>(picture.grey.data()));
        sides = grey.size();
        std::vector<cv::Point2f> corners;
        if (!cv::findChessboardCornersSB(grey, size, corners, cv::CALIB_CB_NORMALIZE_IMAGE))
            continue;
        cv::cornerSubPix(grey, corners, {11, 11}, {-1, -1},
                         {cv::TermCriteria::EPS + cv::TermCriteria::COUNT, 30, 0.001});
        found.push_back(corners);
    }
    const std::vector<std::vector<cv::Point3f>> boards(found.size(), board);
    cv::Mat matrix;
    cv::Mat coefficients;
    cv::Mat rotations;
    cv::Mat translations;
    if (parameters.mode == Parameters::Fisheye)
        cv::fisheye::calibrate(boards, found, sides, matrix, coefficients, rotations, translations,
                               cv::fisheye::CALIB_CHECK_COND | cv::fisheye::CALIB_FIX_SKEW |
                                   cv::fisheye::CALIB_RECOMPUTE_EXTRINSIC);
    else
        cv::calibrateCamera(boards, found, sides, matrix, coefficients, rotations, translations, cv::CALIB_FIX_K3);
    return matrix.at<double>(0, 0);
}

/// The times are the best of the run: what the machine's other work adds is left out. The limit is a `to_plain` of 1.3.
void calibrate(benchmark::State& state, Parameters::Mode mode)
{
    Parameters parameters;
    parameters.mode = mode;
    if (mode == Parameters::WideAngle)
        parameters.modeConfig.wideAngle = {false, false, false};
    const auto camera = cameraOf(mode, 1920, 1080);
    const Photographer photographer(camera, parameters);
    std::vector<Image> pictures;
    for (const auto& pose : goodPoses())
    {
        parameters.images.push_back(std::to_string(pictures.size()));
        pictures.push_back(photographer.take(pose));
    }
    clb::TuningCalibration calibration([&](const std::string& path) { return pictures[std::stoul(path)]; });

    const auto timed = [&](double& best, const auto& compute)
    {
        const auto start = std::chrono::steady_clock::now();
        const double focal = compute();
        const auto seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        best = std::min(best, seconds);
        if (std::abs(focal - camera.fx) > 0.005 * camera.fx)
            state.SkipWithError("the camera is not found");
        return seconds;
    };
    double ours = HUGE_VAL;
    double plains = HUGE_VAL;
    for (auto _ : state)
    {
        state.SetIterationTime(timed(ours,
                                     [&]
                                     {
                                         clb::TuningCalibration::DewarpResult result{};
                                         calibration.dewarpCalibration(parameters, result);
                                         return result.matrix[0];
                                     }));
        timed(plains, [&] { return plain(pictures, parameters); });
    }
    state.counters["ours_ms"] = ours * 1e3;
    state.counters["plain_ms"] = plains * 1e3;
    state.counters["to_plain"] = ours / plains;
    state.counters["error_px"] = calibration.report().error;
}
BENCHMARK_CAPTURE(calibrate, fisheye, Parameters::Fisheye)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(calibrate, wideAngle, Parameters::WideAngle)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
} // namespace

BENCHMARK_MAIN();
