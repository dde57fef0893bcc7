#include "tuning-calibration/source/calibration-file.h"

#include "tuning-calibration/source/yaml-check.h"
#include "tuning-calibration/source/yaml-matrix.h"
#include "tuning-common/source/limits.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

namespace clb
{
namespace
{
std::string timeText()
{
    const auto now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[32] = {};
    std::strftime(text, sizeof(text), "%Y-%m-%d %H:%M:%S", &local);
    return text;
}

/// A row for each view: its rotation, then its translation.
cv::Mat extrinsics(const Lens& lens)
{
    cv::Mat rows(static_cast<int>(lens.rotations.size()), 6, CV_64F);
    for (int i = 0; i < rows.rows; ++i)
    {
        const auto view = static_cast<std::size_t>(i);
        lens.rotations[view].reshape(1, 1).copyTo(rows.row(i).colRange(0, 3));
        lens.translations[view].reshape(1, 1).copyTo(rows.row(i).colRange(3, 6));
    }
    return rows;
}

/// A row for each view, with two channels.
cv::Mat imagePoints(const std::vector<Corners>& views)
{
    cv::Mat rows;
    for (const auto& view : views)
        rows.push_back(cv::Mat(view).reshape(2, 1));
    return rows;
}

std::string yamlText(const Parameters& parameters, cv::Size size, const Lens& lens, const std::vector<Corners>& views)
{
    cv::FileStorage yaml(".yml", cv::FileStorage::WRITE | cv::FileStorage::MEMORY | cv::FileStorage::FORMAT_YAML);
    const bool isFisheye = parameters.mode == Parameters::Fisheye;
    yaml << "calibration_time" << timeText();
    yaml << "nr_of_frames" << static_cast<int>(views.size());
    yaml << "image_width" << size.width << "image_height" << size.height;
    yaml << "board_width" << parameters.width << "board_height" << parameters.height;
    yaml << "square_size" << parameters.squareSize;
    if (!isFisheye && parameters.modeConfig.wideAngle.isFixAspectRatio)
        yaml << "aspectRatio" << parameters.aspectRatio;
    yaml << "flags" << lens.flags;
    yaml << "fisheye_model" << (isFisheye ? 1 : 0);
    yaml << "camera_matrix" << lens.matrix << "distortion_coefficients" << lens.coefficients;
    yaml << "avg_reprojection_error" << lens.error;
    yaml << "per_view_reprojection_errors" << cv::Mat(lens.errors);
    if (parameters.isWriteExtrinsic)
        yaml << "extrinsic_parameters" << extrinsics(lens);
    if (parameters.isWritePoints)
        yaml << "image_points" << imagePoints(views);
    return yaml.releaseAndGetString();
}

[[noreturn]] void fail(int error) { throw std::runtime_error(std::generic_category().message(error)); }

/// Writes a file that is not there yet.
void newFileWrite(const std::string& path, const std::string& text)
{
    std::FILE* pFile = std::fopen(path.c_str(), "wbx");
    if (pFile == nullptr)
        fail(errno);
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), pFile) == text.size() && std::fflush(pFile) == 0;
    const int error = errno;
    if (std::fclose(pFile) != 0 || !isWritten)
        fail(isWritten ? errno : error);
}

std::string fileRead(const std::string& path)
{
    std::error_code error;
    const auto status = fs::status(path, error);
    if (!fs::exists(status))
        throw std::runtime_error(error ? error.message() : "no such file");
    // Opening anything else, such as a pipe, could block.
    if (!fs::is_regular_file(status))
        throw std::runtime_error("it is no regular file");
    std::ifstream stream(path, std::ios::binary);
    std::string text(t_common::limit::yamlFile + 1, 0);
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (stream.bad() || !stream.is_open())
        throw std::runtime_error("it can't be read");
    text.resize(static_cast<std::size_t>(stream.gcount()));
    if (text.size() > t_common::limit::yamlFile)
        throw std::runtime_error("it is larger than " +
                                 std::to_string(t_common::limit::yamlFile / t_common::limit::MiB) + " MiB");
    return text;
}

/// A matrix that must have as many numbers as its sides say.
cv::Mat matrixOf(const cv::FileStorage& yaml, const std::string& key)
{
    const auto node = yaml[key];
    const auto rows = static_cast<std::size_t>(static_cast<int>(node["rows"]));
    const auto columns = static_cast<std::size_t>(static_cast<int>(node["cols"]));
    if (rows == 0 || columns == 0 || rows * columns != node["data"].size())
        throw std::runtime_error(key + " has not as many numbers as its sides say");
    cv::Mat matrix;
    node >> matrix;
    matrix.convertTo(matrix, CV_64F);
    if (!cv::checkRange(matrix))
        throw std::runtime_error(key + " holds a number that is not finite");
    return matrix;
}
} // namespace

void calibrationFileWrite(const Parameters& parameters, cv::Size size, const Lens& lens,
                          const std::vector<Corners>& views)
{
    const auto text = yamlText(parameters, size, lens, views);
    const auto& path = parameters.outputFileName;
    const auto temporary = path + "." + std::to_string(std::random_device()());
    std::error_code error;
    try
    {
        newFileWrite(temporary, text);
        fs::rename(temporary, path);
    }
    catch (const fs::filesystem_error& failure)
    {
        fs::remove(temporary, error);
        throw std::runtime_error(failure.code().message());
    }
    catch (const std::runtime_error&)
    {
        fs::remove(temporary, error);
        throw;
    }
}

Result calibrationFileRead(const std::string& path)
{
    const auto text = fileRead(path);
    yamlCheck(text);
    const std::string matrixKey = "camera_matrix";
    const std::string coefficientsKey = "distortion_coefficients";
    auto clean = "%YAML:1.0\n---\n" + yamlMatrix(text, matrixKey);
    clean += yamlMatrix(text, coefficientsKey);
    const cv::FileStorage yaml(clean, cv::FileStorage::READ | cv::FileStorage::MEMORY);
    const auto matrix = matrixOf(yaml, matrixKey);
    const auto coefficients = matrixOf(yaml, coefficientsKey);
    const auto count = coefficients.total();
    if (matrix.size() != cv::Size(3, 3))
        throw std::runtime_error(matrixKey + " is not 3 by 3");
    if (std::min(coefficients.rows, coefficients.cols) != 1 || (count != 4 && count != 5 && count != 8))
        throw std::runtime_error(coefficientsKey + " are " + std::to_string(count) + ", not 4, 5 or 8 in a row");
    Result result{};
    std::copy_n(matrix.ptr<double>(), 9, result.matrix);
    std::copy_n(coefficients.ptr<double>(), 4, result.coefficients);
    return result;
}
} // namespace clb
