#include "tuning-calibration/source/calibration-file.h"

#include "tuning-calibration/source/yaml-check.h"
#include "tuning-common/source/limits.h"

#include <cerrno>
#include <cmath>
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

int integer(const cv::FileNode& node) { return node.isInt() ? static_cast<int>(node) : -1; }

/// The numbers of a matrix with that many rows and columns. Read one by one: OpenCV's own reader makes a matrix as
/// large as the file says before it looks for the numbers.
std::vector<double> numbers(const cv::FileNode& node, const std::string& key)
{
    const auto require = [&key](bool isGood, const std::string& reason)
    {
        if (!isGood)
            throw std::runtime_error(key + " " + reason);
    };
    require(!node.empty(), "is missing");
    require(node.isMap() && node["data"].isSeq(), "is no matrix");
    std::vector<double> values;
    for (const auto& number : node["data"])
    {
        require(number.isReal() || number.isInt(), "holds what is no number");
        values.push_back(static_cast<double>(number));
        require(std::isfinite(values.back()), "holds a number that is not finite");
    }
    const auto rows = integer(node["rows"]);
    const auto columns = integer(node["cols"]);
    require(rows > 0 && columns > 0 && std::int64_t(rows) * columns == static_cast<std::int64_t>(values.size()),
            "has not as many numbers as its sides say");
    return values;
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
    const cv::FileStorage yaml(text, cv::FileStorage::READ | cv::FileStorage::MEMORY);
    const auto root = yaml.root().isMap() ? yaml.root() : cv::FileNode();
    const auto matrixNode = root["camera_matrix"];
    const auto matrix = numbers(matrixNode, "camera_matrix");
    const auto coefficients = numbers(root["distortion_coefficients"], "distortion_coefficients");
    Result result{};
    if (matrix.size() != 9 || integer(matrixNode["rows"]) != 3)
        throw std::runtime_error("camera_matrix is not 3 by 3");
    if (coefficients.size() != 4 && coefficients.size() != 5 && coefficients.size() != 8)
        throw std::runtime_error("distortion_coefficients are " + std::to_string(coefficients.size()) +
                                 ", not 4, 5 or 8");
    std::copy_n(matrix.begin(), 9, result.matrix);
    std::copy_n(coefficients.begin(), 4, result.coefficients);
    return result;
}
} // namespace clb
