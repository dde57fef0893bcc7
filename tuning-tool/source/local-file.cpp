#include "tuning-tool/source/local-file.h"

#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"
#include "tuning-tool/source/failure.h"

#include <filesystem>
#include <fstream>
#include <iostream>

namespace tool
{
bool isSameFile(const std::string& left, const std::string& right)
{
    std::ifstream files[2]{std::ifstream(left, std::ios::binary), std::ifstream(right, std::ios::binary)};
    std::string blocks[2];
    do
        for (const auto i : {0, 1})
        {
            blocks[i].resize(65536);
            files[i].read(blocks[i].data(), static_cast<std::streamsize>(blocks[i].size()));
            blocks[i].resize(static_cast<std::size_t>(files[i].gcount()));
        }
    while (blocks[0] == blocks[1] && !blocks[0].empty());
    return blocks[0] == blocks[1] && files[0].eof() && files[1].eof();
}

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
        return t_common::JsonApp::fromString(text, t_common::JsonApp::Keys::Once);
    }
    catch (const std::exception& exception)
    {
        throw Failure(LocalFile, path + ": " + exception.what());
    }
}
} // namespace tool
