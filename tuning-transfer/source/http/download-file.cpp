#include "tuning-transfer/source/http/download-file.h"

#include <cerrno>
#include <fstream>
#include <random>
#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

namespace t_transfer::http
{
DownloadFile::DownloadFile(const std::string& filename)
{
    std::error_code error;
    const auto status = fs::status(filename, error);
    // Opening anything else, such as a pipe, could block.
    if (fs::exists(status) && !fs::is_regular_file(status))
        return;
    if (!std::ofstream(filename, std::ios::binary | std::ios::app))
        return;
    // A symbolic link stays one: its file is replaced.
    target = fs::canonical(filename, error);
    if (error)
        return;
    temporary = target.parent_path() / (".download-" + std::to_string(std::random_device()()));
    pStream = std::fopen(temporary.string().c_str(), "wbx");
    if (pStream == nullptr)
        fail(errno);
}

DownloadFile::~DownloadFile()
{
    if (isOpen())
    {
        std::fclose(pStream);
        std::error_code ignored;
        fs::remove(temporary, ignored);
    }
}

void DownloadFile::write(const char* pData, std::size_t size)
{
    if (isOpen() && std::fwrite(pData, 1, size, pStream) != size)
        fail(errno);
}

void DownloadFile::commit()
{
    if (!isOpen())
        return;
    if (std::fflush(pStream) != 0)
        fail(errno);
    std::error_code error;
    // Those of a file that has gone meanwhile are unknown.
    if (const auto status = fs::status(target, error); fs::exists(status))
        fs::permissions(temporary, status.permissions(), error);
    const bool isClosed = std::fclose(pStream) == 0;
    const int closeError = errno;
    pStream = nullptr;
    if (isClosed)
        fs::rename(temporary, target, error);
    if (!isClosed || error)
    {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        fail(isClosed ? error.value() : closeError);
    }
}

void DownloadFile::fail(int error) const
{
    throw std::runtime_error("Saving of \"" + target.string() + "\" failed: " + std::generic_category().message(error));
}
} // namespace t_transfer::http
