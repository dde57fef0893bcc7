#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// A test that leaves the program's scratch directory, in which it works, as empty as it has found it.
class ScratchTest : public testing::Test
{
protected:
    ~ScratchTest() override
    {
        for (const auto& entry : std::filesystem::directory_iterator("."))
            std::filesystem::remove_all(entry);
    }
};

inline std::string fileText(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void fileStore(const std::filesystem::path& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

inline size_t fileCount(const std::filesystem::path& directory)
{
    return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(directory), {}));
}
