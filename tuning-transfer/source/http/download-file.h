#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

namespace t_transfer::http
{
/// A file that gets its new content whole or not at all: what is written goes into a temporary beside it. A name that
/// is new stands for an empty file until then.
class DownloadFile
{
public:
    /// Whether the file could be created shows in `isOpen`. Throws `std::runtime_error` when it is there but its
    /// directory takes no temporary.
    explicit DownloadFile(const std::string& filename);
    ~DownloadFile();
    DownloadFile(const DownloadFile&) = delete;
    DownloadFile& operator=(const DownloadFile&) = delete;

    bool isOpen() const { return pStream != nullptr; }

    /// Throws `std::runtime_error` when the bytes can't be stored.
    void write(const char* pData, std::size_t size);

    /// Puts what was written in place of the file; throws `std::runtime_error` when that fails.
    void commit();

private:
    [[noreturn]] void fail(int error) const;

    std::filesystem::path target;
    std::filesystem::path temporary;
    std::FILE* pStream = nullptr;
};
} // namespace t_transfer::http
