#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// Calibration of lenses from pictures: the one layer that computes, and the one that knows OpenCV. Pictures come
/// through a loader, so that it reads no picture files itself.
namespace clb
{
/// Finds a pattern in pictures and computes camera and lens from it. One object serves one run at a time, on any
/// thread.
class TuningCalibration
{
public:
    struct DewarpResult
    {
        double matrix[9];       ///< the camera matrix, row by row, in pixels
        double coefficients[4]; ///< k1 to k4 of a fisheye; k1, k2, p1, p2 of a wide angle
    };

    struct DewarpParameters
    {
        enum Mode
        {
            Fisheye = 0,
            WideAngle = 1
        };

        enum Pattern
        {
            Acircles = 0, ///< circles, every other row moved by half a distance
            Chessboard = 1,
            Circles = 2
        };

        union ModeConfig
        {
            struct Fisheye
            {
                bool isCheckCond;
                bool isFixSkew;
                bool isRecomputeExtrinsic;
            };

            struct WideAngle
            {
                bool isFixAspectRatio;
                bool isFixPrincipalPoint;
                bool isZeroTangentDist;
            };

            Fisheye fisheye;
            WideAngle wideAngle;
        };

        int32_t width = 9;         ///< inner corners, or circles, in a row
        int32_t height = 7;        ///< rows of them
        float squareSize = 30.0F;  ///< distance of the corners, in the unit of the extrinsics
        int32_t frameNumbers = 0;  ///< pictures
        float aspectRatio = 1.0F;  ///< of the focal lengths, where that is fixed
        int32_t delay = 300;       ///< of a recording
        bool isWritePoints = true; ///< the file holds the points that were found
        bool isWriteExtrinsic = true;
        bool isFlipVertical = false; ///< pictures stand on their heads
        bool isVideoFile = false;    ///< of a recording
        bool isUndistortImage = false;
        std::string outputFileName = "wide110_test_calibration.yml";
        bool isShowUndistorted = true;
        int32_t cameraId = 0; ///< of a recording
        std::string inputFileName;
        std::vector<std::string> images; ///< paths, as the loader takes them
        Mode mode = Fisheye;
        ModeConfig modeConfig = {{true, true, true}};
        Pattern pattern = Chessboard;
    };

    /// A grey picture: `width` * `height` bytes, row by row.
    struct Image
    {
        int width = 0;
        int height = 0;
        std::vector<uint8_t> grey;
    };

    /// What became of one picture. `Progress` is told before it is known what the result rests on.
    struct View
    {
        std::string path;
        bool isFound = false; ///< the pattern is in it
        bool isUsed = false;  ///< the result rests on it
        double error = 0;     ///< root mean square reprojection error of a used one, in pixels
        std::string reason;   ///< why it was left out; empty for a used one
    };

    struct Report
    {
        std::vector<View> views; ///< in the order of the pictures
        double error = 0;        ///< reprojection error over all used pictures, in pixels
        std::string fileFailure; ///< why the file could not be written; empty where it was
    };

    /// Gives the picture at a path; what it throws becomes the reason why the picture is left out.
    using Loader = std::function<Image(const std::string& path)>;

    /// Told after each picture; false ends the run.
    using Progress = std::function<bool(std::size_t index, const View& view)>;

    explicit TuningCalibration(Loader fLoad = {}, Progress fProgress = {});

    /// Computes `result` from the pictures and writes it to `outputFileName`; the number of pictures used. Throws
    /// `std::runtime_error` with a text for the user where there is no result, which leaves `result` and the file
    /// alone.
    int dewarpCalibration(DewarpParameters parameters, DewarpResult& result);

    /// Reads a file that `dewarpCalibration` has written, or one of OpenCV's own calibration programs. Throws
    /// `std::runtime_error` with a text that names the file, which leaves `result` alone.
    void dewarpCalibrationFromYaml(std::string path, DewarpResult& result);

    /// Of the last run, also of one that failed.
    const Report& report() const { return lastReport; }

private:
    Loader fLoad;
    Progress fProgress;
    Report lastReport;
};
} // namespace clb
