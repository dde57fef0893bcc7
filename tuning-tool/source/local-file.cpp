#include "tuning-tool/source/local-file.h"

#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"
#include "tuning-tool/source/failure.h"

#include <filesystem>
#include <fstream>
#include <iostream>

namespace tool
{
std::string fileRead(const std::string& path, std::size_t limit)
{
    const bool isInput = path == "-";
    std::ifstream file;
    // Opening a pipe would wait for its other end.
    std::error_code error;
    if (!isInput && std::filesystem::is_regular_file(path, error))
        file.open(path, std::ios::binary);
    if (!isInput && !file.is_open())
        throw Failure(LocalFile, path + " is no file that can be read");
    auto& stream = isInput ? std::cin : static_cast<std::istream&>(file);
    std::string bytes;
    char block[65536];
    while (stream.read(block, sizeof block), stream.gcount() > 0)
    {
        bytes.append(block, static_cast<std::size_t>(stream.gcount()));
        if (bytes.size() > limit)
            throw Failure(LocalFile, path + " has more than " + std::to_string(limit) + " bytes");
    }
    if (stream.bad())
        throw Failure(LocalFile, "Reading of " + path + " failed");
    return bytes;
}

Json::Value jsonRead(const std::string& path)
{
    const auto text = fileRead(path, t_common::limit::jsonFile);
    try
    {
        return t_common::JsonApp::fromString(text);
    }
    catch (const std::exception& exception)
    {
        throw Failure(LocalFile, path + ": " + exception.what());
    }
}
} // namespace tool
