#include "tuning-calibration/source/tuning-calibration.h"

#include "tuning-calibration/source/calibration-file.h"
#include "tuning-calibration/source/pattern.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace clb
{
namespace
{
using Image = TuningCalibration::Image;
using Report = TuningCalibration::Report;

constexpr std::size_t viewsNeeded = 3;
constexpr double sideFactor = 10; // a camera matrix that reaches further than that many pictures describes no camera

/// OpenCV tells of each of its exceptions on standard error, with paths of its sources, before it throws.
void quiet()
{
    static const auto before =
        cv::redirectError([](int, const char*, const char*, const char*, int, void*) { return 0; });
    static_cast<void>(before);
}

/// What of an exception a user may read.
std::string reasonOf(const std::exception& exception)
{
    if (dynamic_cast<const std::bad_alloc*>(&exception))
        return "out of memory";
    const auto* pOpenCV = dynamic_cast<const cv::Exception*>(&exception);
    return t_common::printable(pOpenCV ? pOpenCV->err : exception.what(), t_common::limit::statusBarText);
}

[[noreturn]] void fail(const std::string& reason) { throw std::runtime_error("Calibration failed: " + reason); }

std::string sidesText(int width, int height) { return std::to_string(width) + " by " + std::to_string(height); }

bool isSound(double value) { return std::isfinite(value) && value > 0; }

void check(const Parameters& parameters)
{
    const int minimum = parameters.pattern == Parameters::Chessboard ? 3 : 2; // OpenCV's own
    constexpr int maximum = t_common::limit::patternSide;
    if (std::min(parameters.width, parameters.height) < minimum ||
        std::max(parameters.width, parameters.height) > maximum)
        fail("a pattern of " + sidesText(parameters.width, parameters.height) + " is not within " +
             std::to_string(minimum) + " to " + std::to_string(maximum));
    if (!isSound(parameters.squareSize))
        fail("the square size is no size");
    const bool isWideAngle = parameters.mode == Parameters::WideAngle;
    if (isWideAngle && parameters.modeConfig.wideAngle.isFixAspectRatio && !isSound(parameters.aspectRatio))
        fail("the aspect ratio is no ratio");
}

/// One run over the pictures.
class Run
{
public:
    Run(const Parameters& parameters_, Report& report_) : parameters(parameters_), report(report_) {}

    void search(const TuningCalibration::Loader& fLoad, const TuningCalibration::Progress& fProgress);
    Lens compute();
    void write(const Lens& lens);
    int usedCount() const { return static_cast<int>(found.size()); }

private:
    Corners cornersFind(const Image& image);
    std::string countText() const;
    void leaveOut(std::size_t index);
    void check(const Lens& lens) const;

    const Parameters& parameters;
    Report& report;
    cv::Size size;
    std::vector<Corners> found;
    std::vector<std::size_t> pictures; ///< that `found` is from
};

/// Throws the reason why the picture is left out.
Corners Run::cornersFind(const Image& image)
{
    const auto pixels = static_cast<std::uint64_t>(std::max(image.width, 0)) * std::max(image.height, 0);
    if (pixels == 0 || image.grey.size() != pixels)
        throw std::runtime_error("no picture: " + sidesText(image.width, image.height) + " in " +
                                 std::to_string(image.grey.size()) + " bytes");
    const cv::Size imageSize(image.width, image.height);
    if (!size.empty() && size != imageSize)
        throw std::runtime_error("size " + sidesText(image.width, image.height) + " differs from " +
                                 sidesText(size.width, size.height));
    cv::Mat grey(imageSize, CV_8U, const_cast<uint8_t*>(image.grey.data()));
    if (parameters.isFlipVertical)
    {
        cv::Mat flipped;
        cv::flip(grey, flipped, 0);
        grey = flipped;
    }
    auto corners = patternFind(grey, parameters);
    if (corners.empty())
        throw std::runtime_error("no pattern found");
    // Not before: a stray picture must not decide for the others.
    size = imageSize;
    return corners;
}

void Run::search(const TuningCalibration::Loader& fLoad, const TuningCalibration::Progress& fProgress)
{
    for (const auto& path : parameters.images)
    {
        const auto index = report.views.size();
        auto& view = report.views.emplace_back();
        view.path = path;
        try
        {
            found.push_back(cornersFind(fLoad(path)));
            pictures.push_back(index);
            view.isFound = true;
        }
        catch (const std::exception& exception)
        {
            view.reason = reasonOf(exception);
        }
        if (fProgress && !fProgress(index, view))
            throw std::runtime_error("Calibration cancelled");
    }
}

std::string Run::countText() const
{
    const auto count = std::count_if(report.views.begin(), report.views.end(), [](const auto& v) { return v.isFound; });
    return "pattern found in " + std::to_string(count) + " of " + std::to_string(report.views.size()) + " pictures";
}

void Run::leaveOut(std::size_t index)
{
    report.views[pictures[index]].reason = "condition check: the view says too little about the lens";
    pictures.erase(pictures.begin() + static_cast<std::ptrdiff_t>(index));
    if (pictures.size() < viewsNeeded)
        fail(countText() + ", " + std::to_string(pictures.size()) + " passed the condition check, " +
             std::to_string(viewsNeeded) + " are needed");
}

void Run::check(const Lens& lens) const
{
    const double reach = sideFactor * std::max(size.width, size.height);
    const auto isCamera = [&](int axis)
    {
        const double focal = lens.matrix.at<double>(axis, axis);
        return focal > 0 && focal <= reach && std::abs(lens.matrix.at<double>(axis, 2)) <= reach;
    };
    if (!cv::checkRange(lens.matrix) || !cv::checkRange(lens.coefficients) || !std::isfinite(lens.error))
        fail(countText() + ", the numbers of the lens are not finite");
    if (!isCamera(0) || !isCamera(1))
        fail(countText() + ", but no camera has such a focal length or centre");
}

Lens Run::compute()
{
    if (found.size() < viewsNeeded)
        fail(countText() + ", " + std::to_string(viewsNeeded) + " are needed");
    Lens lens;
    try
    {
        lens = lensCompute(parameters, size, found, [this](std::size_t index) { leaveOut(index); });
    }
    catch (const cv::Exception&)
    {
        fail(countText() + ", but no lens fits them");
    }
    check(lens);
    for (std::size_t i = 0; i < pictures.size(); ++i)
    {
        auto& view = report.views[pictures[i]];
        view.isUsed = true;
        view.error = lens.errors[i];
    }
    report.error = lens.error;
    return lens;
}

void Run::write(const Lens& lens)
{
    try
    {
        calibrationFileWrite(parameters, size, lens, found);
    }
    catch (const std::exception& exception)
    {
        report.fileFailure =
            "Saving of \"" + t_common::printable(parameters.outputFileName) + "\" failed: " + reasonOf(exception);
    }
}
} // namespace

TuningCalibration::TuningCalibration(Loader fLoad_, Progress fProgress_)
    : fLoad(std::move(fLoad_)), fProgress(std::move(fProgress_))
{
}

int TuningCalibration::dewarpCalibration(DewarpParameters parameters, DewarpResult& result)
{
    quiet();
    lastReport = {};
    try
    {
        check(parameters);
        Run run(parameters, lastReport);
        run.search(fLoad, fProgress);
        const auto lens = run.compute();
        run.write(lens);
        std::copy_n(lens.matrix.ptr<double>(), 9, result.matrix);
        std::copy_n(lens.coefficients.ptr<double>(), 4, result.coefficients);
        return run.usedCount();
    }
    catch (const std::runtime_error&)
    {
        throw;
    }
    catch (const std::exception& exception)
    {
        fail(reasonOf(exception));
    }
}

void TuningCalibration::dewarpCalibrationFromYaml(std::string path, DewarpResult& result)
{
    quiet();
    try
    {
        result = calibrationFileRead(path);
    }
    catch (const std::exception& exception)
    {
        throw std::runtime_error("Reading of \"" + t_common::printable(path) + "\" failed: " + reasonOf(exception));
    }
}
} // namespace clb
