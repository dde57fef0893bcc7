#include "tests/support/board-picture.h"
#include "tests/support/full-disk.h"
#include "tests/support/outcome.h"
#include "tests/support/scratch.h"
#include "tuning-common/source/limits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <stdexcept>

using namespace board_picture;
using clb::TuningCalibration;
using Result = TuningCalibration::DewarpResult;
namespace limit = t_common::limit;

namespace
{
constexpr auto fileName = "result.yml";

Parameters parametersOf(Parameters::Mode mode, Parameters::Pattern pattern)
{
    Parameters parameters;
    parameters.mode = mode;
    parameters.pattern = pattern;
    parameters.width = pattern == Parameters::Acircles ? 4 : 9;
    parameters.height = pattern == Parameters::Acircles ? 9 : 6;
    if (mode == Parameters::WideAngle)
        parameters.modeConfig.wideAngle = {false, false, false};
    parameters.outputFileName = fileName;
    return parameters;
}

Image grid(int width, int height) { return {width, height, std::vector<uint8_t>(std::size_t(width * height), 128)}; }

/// Taken once for all tests.
const std::vector<Image>& goodPictures(Parameters::Mode mode)
{
    static std::map<Parameters::Mode, std::vector<Image>> all;
    auto& pictures = all[mode];
    if (pictures.empty())
    {
        const Photographer photographer(cameraOf(mode), parametersOf(mode, Parameters::Chessboard));
        for (const auto& pose : goodPoses())
            pictures.push_back(photographer.take(pose));
    }
    return pictures;
}

/// As by a lens that is out of focus.
Image softened(Image image, int reach)
{
    for (const int step : {1, image.width, 1, image.width, 1, image.width})
    {
        const auto sharp = image.grey;
        const int margin = reach * step;
        for (int i = margin; i < image.width * image.height - margin; ++i)
        {
            int sum = 0;
            for (int k = -margin; k <= margin; k += step)
                sum += sharp[std::size_t(i + k)];
            image.grey[std::size_t(i)] = uint8_t(sum / (2 * reach + 1));
        }
    }
    return image;
}

std::string views(const TuningCalibration& calibration)
{
    std::string text;
    for (const auto& view : calibration.report().views)
        text += view.path + (view.isFound ? " found" : "") + (view.isUsed ? " used" : "") + ": " + view.reason + "\n";
    return text;
}

void expectCamera(const Camera& camera, const Result& result, const char* what)
{
    EXPECT_NEAR(result.matrix[0], camera.fx, 0.005 * camera.fx) << what;
    EXPECT_NEAR(result.matrix[4], camera.fy, 0.005 * camera.fy) << what;
    EXPECT_NEAR(result.matrix[2], camera.cx, 0.005 * camera.cx) << what;
    EXPECT_NEAR(result.matrix[5], camera.cy, 0.005 * camera.cy) << what;
    // Where a ray goes by both, since the coefficients lean on each other.
    auto found = camera;
    std::copy_n(result.coefficients, 4, found.k.begin());
    const auto expected = rayOf(camera, camera.width * 0.2, camera.height * 0.2);
    const auto ray = rayOf(found, camera.width * 0.2, camera.height * 0.2);
    EXPECT_NEAR(ray.x / ray.z, expected.x / expected.z, 0.005 * std::abs(expected.x / expected.z)) << what;
    EXPECT_NEAR(ray.y / ray.z, expected.y / expected.z, 0.005 * std::abs(expected.y / expected.z)) << what;
}

class Calibration : public ScratchTest
{
protected:
    /// Runs with these pictures, named by their index; one without pixels can't be read.
    int run(const std::vector<Image>& pictures, Parameters parameters)
    {
        for (std::size_t i = 0; i < pictures.size(); ++i)
            parameters.images.push_back(std::to_string(i));
        const auto load = [&](const std::string& path)
        {
            if (pictures[std::stoul(path)].width == 0)
                throw std::runtime_error("\"" + path + "\" is no picture");
            return pictures[std::stoul(path)];
        };
        calibration = TuningCalibration(load, fProgress);
        return calibration.dewarpCalibration(parameters, result);
    }

    std::string failureOfRun(const std::vector<Image>& pictures, const Parameters& parameters)
    {
        return failureOf<std::runtime_error>([&] { run(pictures, parameters); });
    }

    std::string failureOfRead(const std::string& text)
    {
        fileStore("read.yml", text);
        return failureOf<std::runtime_error>([&] { calibration.dewarpCalibrationFromYaml("read.yml", result); });
    }

    const Parameters chessboard = parametersOf(Parameters::Fisheye, Parameters::Chessboard);
    const Parameters wideAngle = parametersOf(Parameters::WideAngle, Parameters::Chessboard);
    TuningCalibration::Progress fProgress;
    TuningCalibration calibration;
    Result result{};
};

std::string yamlOf(const std::string& matrix, const std::string& coefficients, const std::string& other = {})
{
    const auto count = std::to_string(1 + std::count(coefficients.begin(), coefficients.end(), ','));
    return "%YAML:1.0\n---\ncalibration_time: \"Mon 23 Nov 2026 [12:00:00] # local\"\nimage_width: 640\n" + other +
           "camera_matrix: !!opencv-matrix\n   rows: 3\n   cols: 3\n   dt: d\n   data: [ " + matrix +
           " ]\ndistortion_coefficients: !!opencv-matrix\n   rows: " + count + "\n   cols: 1\n   dt: d\n   data: [ " +
           coefficients + " ]\navg_reprojection_error: 1.5e-01\n";
}

constexpr auto goodMatrix = "6.5e+02, 0., +320., 0., 6510000000, 180.5,\n       0., 0., 1.";
} // namespace

TEST_F(Calibration, KnownCamerasAreFound)
{
    for (const auto mode : {Parameters::Fisheye, Parameters::WideAngle})
    {
        for (const auto pattern : {Parameters::Chessboard, Parameters::Circles, Parameters::Acircles})
        {
            const auto parameters = parametersOf(mode, pattern);
            auto pictures = goodPictures(mode);
            if (pattern != Parameters::Chessboard)
            {
                const Photographer photographer(cameraOf(mode), parameters);
                std::transform(goodPoses().begin(), goodPoses().end(), pictures.begin(),
                               [&](const Pose& pose) { return photographer.take(pose); });
            }
            const auto what = "mode " + std::to_string(mode) + ", pattern " + std::to_string(pattern);
            ASSERT_EQ(run(pictures, parameters), 10) << what << "\n" << views(calibration);
            expectCamera(cameraOf(mode), result, what.c_str());
            EXPECT_LT(calibration.report().error, 0.3) << what;
            EXPECT_GT(calibration.report().error, 0) << what;
            double sum = 0;
            for (const auto& view : calibration.report().views)
            {
                EXPECT_TRUE(view.error > 0 && view.error < 0.3) << what << " " << view.error;
                sum += view.error * view.error;
            }
            EXPECT_NEAR(calibration.report().error, std::sqrt(sum / 10), 1e-9) << what;
        }
    }
}

TEST_F(Calibration, OptionsOfTheModesHold)
{
    auto pictures = goodPictures(Parameters::WideAngle);
    auto parameters = wideAngle;
    parameters.modeConfig.wideAngle = {true, true, true};
    parameters.aspectRatio = 0.5F;
    run(pictures, parameters);
    EXPECT_NEAR(result.matrix[0] / result.matrix[4], 0.5, 1e-9);
    EXPECT_EQ(result.matrix[2], 319.5);
    EXPECT_EQ(result.matrix[5], 179.5);
    EXPECT_EQ(result.coefficients[2], 0);
    EXPECT_EQ(result.coefficients[3], 0);
    const auto file = fileText(fileName);
    EXPECT_TRUE(contains(file, "aspectRatio: 5.0") && contains(file, "\nflags: 142\nfisheye_model: 0\n")) << file;

    parameters = chessboard;
    parameters.modeConfig.fisheye.isFixSkew = false;
    run(goodPictures(Parameters::Fisheye), parameters);
    EXPECT_NE(result.matrix[1], 0);
    parameters.isFlipVertical = true;
    run(goodPictures(Parameters::Fisheye), parameters);
    EXPECT_NEAR(result.matrix[5], 359 - cameraOf(Parameters::Fisheye).cy, 1);
    const double recomputed = calibration.report().error;
    parameters.modeConfig.fisheye.isRecomputeExtrinsic = false;
    run(goodPictures(Parameters::Fisheye), parameters);
    EXPECT_GT(calibration.report().error, 10 * recomputed);
}

TEST_F(Calibration, UnusablePicturesAreLeftOutWithTheirReasons)
{
    auto pictures = goodPictures(Parameters::Fisheye);
    pictures[0] = grid(320, 180);
    pictures[1].grey.pop_back();
    pictures[3] = grid(320, 180);
    pictures[4] = Image{};
    pictures[6].width = -640;
    std::string told;
    fProgress = [&](std::size_t index, const TuningCalibration::View& view)
    {
        told += std::to_string(index) + (view.isFound ? "+" : "-");
        return true;
    };
    EXPECT_EQ(run(pictures, chessboard), 5);
    EXPECT_EQ(told, "0-1-2+3-4-5+6-7+8+9+");
    EXPECT_EQ(views(calibration), "0: no pattern found\n1: no picture: 640 by 360 in 230399 bytes\n2 found used: \n"
                                  "3: size 320 by 180 differs from 640 by 360\n4: \"4\" is no picture\n5 found used: \n"
                                  "6: no picture: -640 by 360 in 230400 bytes\n7 found used: \n8 found used: \n"
                                  "9 found used: \n");
    expectCamera(cameraOf(Parameters::Fisheye), result, "five pictures");
}

TEST_F(Calibration, LargeSoftBoardsAreFoundAsWell)
{
    const auto camera = cameraOf(Parameters::Fisheye, 1280, 720);
    const Photographer photographer(camera, chessboard);
    std::vector<Image> pictures;
    for (const auto& pose : {Pose{0.4, 0.2, 0, 0, 0.3, 0.7}, Pose{0.55, 0.275, 0, 0, 0.3, 0.85}})
        pictures.push_back(softened(photographer.take(pose), 4));
    for (std::size_t i = 0; i < 4; ++i)
        pictures.push_back(photographer.take(goodPoses()[i]));
    EXPECT_EQ(run(pictures, chessboard), 6) << views(calibration);
    EXPECT_LT(calibration.report().error, 0.3);
    expectCamera(camera, result, "soft");
}

TEST_F(Calibration, ConditionCheckLeavesViewsOut)
{
    const auto far = Photographer(cameraOf(Parameters::Fisheye), chessboard).take({0, 0, 0, 0, 0, 4});
    auto pictures = goodPictures(Parameters::Fisheye);
    pictures.insert(pictures.begin() + 6, far);
    pictures.insert(pictures.begin() + 3, far);
    auto parameters = chessboard;
    parameters.squareSize = 10'000;
    EXPECT_EQ(run(pictures, parameters), 10);
    for (const std::size_t index : {3, 7})
    {
        const auto& view = calibration.report().views[index];
        EXPECT_TRUE(view.isFound && !view.isUsed && startsWith(view.reason, "condition check: ")) << views(calibration);
    }
    expectCamera(cameraOf(Parameters::Fisheye), result, "without the far ones");
    EXPECT_EQ(failureOfRun({pictures[0], pictures[1], far}, parameters),
              "Calibration failed: pattern found in 3 of 3 pictures, 2 passed the condition check, 3 are needed");
    parameters.modeConfig.fisheye.isCheckCond = false;
    EXPECT_EQ(run(pictures, parameters), 12);
}

TEST_F(Calibration, WithoutAResultNothingIsTouched)
{
    fileStore(fileName, "before");
    result.matrix[0] = 5;
    const auto& good = goodPictures(Parameters::Fisheye);
    const std::vector<Image> same(3, Photographer(cameraOf(Parameters::Fisheye), chessboard).take({0, 0, 0, 0}));
    auto parameters = chessboard;
    EXPECT_EQ(failureOfRun({}, parameters), "Calibration failed: pattern found in 0 of 0 pictures, 3 are needed");
    EXPECT_EQ(failureOfRun({good[0], grid(640, 360), good[2]}, parameters),
              "Calibration failed: pattern found in 2 of 3 pictures, 3 are needed");
    EXPECT_EQ(failureOfRun(same, parameters),
              "Calibration failed: pattern found in 3 of 3 pictures, but no camera has such a focal length or centre");
    EXPECT_FALSE(calibration.report().views[0].isUsed);
    parameters = wideAngle;
    parameters.modeConfig.wideAngle.isFixAspectRatio = true;
    parameters.aspectRatio = 1e-9F;
    EXPECT_EQ(failureOfRun({good[0], good[1], good[2]}, parameters),
              "Calibration failed: pattern found in 3 of 3 pictures, but no lens fits them");
    for (const float value : {0.0F, -1.0F, HUGE_VALF, std::nanf("")})
    {
        parameters.aspectRatio = value;
        EXPECT_EQ(failureOfRun(good, parameters), "Calibration failed: the aspect ratio is no ratio") << value;
        parameters.squareSize = value;
        EXPECT_EQ(failureOfRun(good, parameters), "Calibration failed: the square size is no size") << value;
        parameters.squareSize = 1;
    }
    parameters.width = 2;
    EXPECT_EQ(failureOfRun(good, parameters), "Calibration failed: a pattern of 2 by 6 is not within 3 to 100");
    parameters.height = 101;
    parameters.pattern = Parameters::Circles;
    EXPECT_EQ(failureOfRun(good, parameters), "Calibration failed: a pattern of 2 by 101 is not within 2 to 100");
    int told = 0;
    fProgress = [&](std::size_t, const auto&) { return ++told < 2; };
    EXPECT_EQ(failureOfRun(good, chessboard), "Calibration cancelled");
    EXPECT_EQ(told, 2);
    EXPECT_EQ(fileText(fileName), "before");
    EXPECT_EQ(fileCount("."), 1u);
    EXPECT_EQ(result.matrix[0], 5);
}

TEST_F(Calibration, ResultComesBackFromItsFile)
{
    auto pictures = goodPictures(Parameters::Fisheye);
    pictures.resize(4);
    run(pictures, chessboard);
    EXPECT_EQ(calibration.report().fileFailure, "");
    const auto full = fileText(fileName);
    for (const auto* key :
         {"calibration_time: \"2", "nr_of_frames: 4\n", "image_width: 640\n", "image_height: 360\n", "board_width: 9\n",
          "board_height: 6\n", "square_size: 30.\n", "flags: 14\n", "fisheye_model: 1\n",
          "avg_reprojection_error: ", "per_view_reprojection_errors: ", "extrinsic_parameters: ", "image_points: "})
        EXPECT_TRUE(contains(full, std::string("\n") + key)) << key << full.substr(0, 500);
    EXPECT_FALSE(contains(full, "aspectRatio") || contains(full, "avg_reprojection_error: 0."));
    double pose[6] = {};
    const auto poses = full.find("data: [ ", full.find("extrinsic_parameters: ")) + 8;
    std::sscanf(full.c_str() + poses, "%lf, %lf, %lf, %lf, %lf, %lf", pose, pose + 1, pose + 2, pose + 3, pose + 4,
                pose + 5);
    EXPECT_GT(pose[5], 100) << "the distance, in the unit of the squares";
    Result read{};
    calibration.dewarpCalibrationFromYaml(fileName, read);
    EXPECT_TRUE(std::equal(read.matrix, read.matrix + 9, result.matrix));
    EXPECT_TRUE(std::equal(read.coefficients, read.coefficients + 4, result.coefficients));

    auto parameters = chessboard;
    parameters.isWritePoints = parameters.isWriteExtrinsic = false;
    run(pictures, parameters);
    EXPECT_FALSE(contains(fileText(fileName), "image_points"));
    EXPECT_FALSE(contains(fileText(fileName), "extrinsic_parameters"));
}

TEST_F(Calibration, FileThatCanNotBeWrittenLosesNothing)
{
    auto pictures = goodPictures(Parameters::WideAngle);
    pictures.resize(4);
    auto parameters = wideAngle;
    parameters.outputFileName = "nowhere/result.yml";
    EXPECT_EQ(run(pictures, parameters), 4);
    EXPECT_EQ(calibration.report().fileFailure, "Saving of \"nowhere/result.yml\" failed: No such file or directory");
    EXPECT_GT(result.matrix[0], 500);

    fileStore(fileName, "before");
    {
        const FullDisk full(2000);
        run(pictures, wideAngle);
    }
    EXPECT_EQ(calibration.report().fileFailure, "Saving of \"result.yml\" failed: File too large");
    EXPECT_EQ(fileText(fileName), "before");
    std::filesystem::create_directory("folder");
    parameters.outputFileName = "folder";
    run(pictures, parameters);
    EXPECT_EQ(calibration.report().fileFailure, "Saving of \"folder\" failed: Is a directory");
    EXPECT_EQ(fileCount("."), 2u);
}

TEST_F(Calibration, FilesOfOtherProgramsAreRead)
{
    for (const auto* coefficients :
         {"-0.1, 0.2, -3.0e-01, 4", "-0.1, 0.2, -0.3, 4., 5.", "-.1, .2, -.3, 4., 5., 6., 7, 8"})
    {
        result = {};
        EXPECT_EQ(failureOfRead(yamlOf(goodMatrix, coefficients)), "") << coefficients;
        EXPECT_EQ(std::vector<double>(result.matrix, result.matrix + 9),
                  (std::vector<double>{650, 0, 320, 0, 6.51e9, 180.5, 0, 0, 1}));
        EXPECT_EQ(std::vector<double>(result.coefficients, result.coefficients + 4),
                  (std::vector<double>{-0.1, 0.2, -0.3, 4}));
    }
    const std::string points = "points:\n   -\n      - { x: 1, y: [ 2, 3 ] }\n   - [ 1, 2 ]\n";
    std::string list;
    for (int i = 0; i < 100; ++i)
        list += points.substr(8);
    EXPECT_EQ(failureOfRead(yamlOf(goodMatrix, "1, 2, 3, 4", "points:\n" + list)), "");
}

TEST_F(Calibration, OtherFilesAreRefused)
{
    const auto good = yamlOf(goodMatrix, "1, 2, 3, 4");
    const auto nested = [](std::size_t depth, const std::string& start, const std::string& end, const std::string& step)
    {
        std::string text = "deep: ";
        std::string indent;
        for (std::size_t i = 0; i < depth; ++i, indent += step)
            text += indent + start;
        for (std::size_t i = 0; i < depth; ++i)
            text += end;
        return yamlOf(goodMatrix, "1, 2, 3, 4", text + "\n");
    };
    EXPECT_EQ(failureOfRead(nested(limit::yamlDepth - 10, "[", "]", "")), "");
    const std::pair<std::string, std::string> cases[]{
        {"", "it is no YAML"},
        {"<?xml version=\"1.0\"?><opencv_storage></opencv_storage>", "it is no YAML"},
        {"{ \"camera_matrix\": 1 }", "it is no YAML"},
        {"%YAML:1.0\n---\n", "camera_matrix is missing"},
        {"%YAML:1.0\n---\n- 3\n", "camera_matrix is missing"},
        {yamlOf("1e999, 0, 0, 0, 1, 0, 0, 0, 1", "1, 2, 3, 4"), "camera_matrix holds a number that is not finite"},
        {yamlOf("650, 0, [ 1 ], 0, 1, 0, 0, 0, 1", "1, 2, 3, 4"), "camera_matrix holds what is no number"},
        {"%YAML:1.0\n---\ncamera_matrix: [ 1, 2 ]\n", "camera_matrix is no matrix"},
        {good.substr(0, good.find("distortion")), "distortion_coefficients is missing"},
        {yamlOf("650, 0, wide, 0, 650, 180, 0, 0, 1", "1, 2, 3, 4"), "camera_matrix holds what is no number"},
        {yamlOf("650, 0, .Nan, 0, 650, 180, 0, 0, 1", "1, 2, 3, 4"), "camera_matrix holds a number that is not finite"},
        {yamlOf(goodMatrix, "1, 2, -.Inf, 4"), "distortion_coefficients holds a number that is not finite"},
        {yamlOf("650, 0, 320, 0, 650, 180, 0, 0", "1, 2, 3, 4"), "camera_matrix has not as many numbers"},
        {yamlOf(goodMatrix, "1, 2, 3"), "distortion_coefficients are 3, not 4, 5 or 8 in a row"},
        {good + std::string(1, '\0'), "it is no plain text"},
        {"%YAML:1.0\n---\na: [\r]\n", "it is no plain text"},
        {good + std::string(5'000'000, '#'), "it is larger than 4 MiB"},
        {nested(10'000, "[", "]", ""), "it is nested too deep"},
        {nested(10'000, "{a: ", "}", ""), "it is nested too deep"},
        {nested(10'000, "- ", "", ""), "it is nested too deep"},
        {nested(100, "a:\n", "", " "), "it is nested too deep"},
        {nested(100, "[ \"]\", ", "]", ""), "it is nested too deep"},
        {nested(100, "[ # ]\n", "]", ""), "it is nested too deep"},
        {nested(100, "[ }", "]", ""), "its brackets don't match"},
    };
    result.matrix[0] = 5;
    for (const auto& [text, reason] : cases)
    {
        const auto failure = failureOfRead(text);
        EXPECT_TRUE(startsWith(failure, "Reading of \"read.yml\" failed: " + reason))
            << reason << " but " << failure << " for " << text.substr(0, 250);
    }
    auto wide = good;
    wide.replace(wide.find("rows: 3\n   cols: 3"), 18, "rows: 9\n   cols: 1");
    EXPECT_EQ(failureOfRead(wide), "Reading of \"read.yml\" failed: camera_matrix is not 3 by 3");
    EXPECT_EQ(failureOf<std::runtime_error>([&] { calibration.dewarpCalibrationFromYaml("none.yml", result); }),
              "Reading of \"none.yml\" failed: No such file or directory");
    EXPECT_EQ(failureOf<std::runtime_error>([&] { calibration.dewarpCalibrationFromYaml(".", result); }),
              "Reading of \".\" failed: it is no regular file");
    EXPECT_EQ(result.matrix[0], 5);
}
