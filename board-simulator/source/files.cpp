#include "board-simulator/source/files.h"

#include "board-wire/source/failure.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace board
{

namespace
{

[[noreturn]] void fail(const std::string& text) { throw Failure(text + ": " + std::strerror(errno)); }

/// Names that begin with a point are the board's own.
const std::string& nameCheck(const std::string& name)
{
    const bool isPlain =
        std::none_of(name.begin(), name.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F || c == '/'; });
    if (name.empty() || name.size() > 255 || name[0] == '.' || !isPlain)
        throw Failure("Not a file name of the board: " + name.substr(0, 255));
    return name;
}

bool isRegular(int descriptor)
{
    struct stat info = {};
    return fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode);
}

} // namespace

FileHandle::FileHandle(FileHandle&& other) noexcept : descriptor(std::exchange(other.descriptor, -1)) {}

FileHandle& FileHandle::operator=(FileHandle&& other) noexcept
{
    std::swap(descriptor, other.descriptor);
    return *this;
}

FileHandle::~FileHandle()
{
    if (descriptor >= 0)
        close(descriptor);
}

uint64_t FileHandle::size() const
{
    struct stat info = {};
    return fstat(descriptor, &info) == 0 ? static_cast<uint64_t>(info.st_size) : 0;
}

size_t FileHandle::read(char* pBuffer, size_t size)
{
    const ssize_t count = ::read(descriptor, pBuffer, size);
    if (count < 0)
        fail("Read failed");
    return static_cast<size_t>(count);
}

void FileHandle::write(const char* pBytes, size_t size)
{
    while (size > 0)
    {
        const ssize_t count = ::write(descriptor, pBytes, size);
        if (count < 0)
            fail("Write failed");
        pBytes += count;
        size -= static_cast<size_t>(count);
    }
}

Files::Files(const std::string& directory) : path(directory)
{
    std::error_code error;
    std::filesystem::create_directories(path, error);
    root = FileHandle(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!root)
        fail("Directory not available: " + path);
}

std::vector<std::string> Files::list(const std::string& extension) const
{
    const std::string ending = extension.empty() ? "" : "." + extension;
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error))
    {
        const std::string name = entry->path().filename().string();
        std::error_code statusError;
        const bool isFile = std::filesystem::is_regular_file(entry->symlink_status(statusError));
        if (isFile && name[0] != '.' && name.size() > ending.size() &&
            name.compare(name.size() - ending.size(), ending.size(), ending) == 0)
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool Files::has(const std::string& name) const
{
    struct stat info = {};
    return fstatat(root.get(), nameCheck(name).c_str(), &info, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(info.st_mode);
}

void Files::remove(const std::string& name) const
{
    if (unlinkat(root.get(), nameCheck(name).c_str(), 0) != 0)
        fail("File not removed: " + name);
}

FileHandle Files::open(const std::string& name) const
{
    // Not to wait for the other end of a pipe that lies in the directory.
    const int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    FileHandle file(openat(root.get(), nameCheck(name).c_str(), flags));
    if (!file)
        fail("File not found: " + name);
    if (!isRegular(file.get()))
        throw Failure("Not a file: " + name);
    return file;
}

std::string Files::read(const std::string& name) const
{
    FileHandle file = open(name);
    std::string text(file.size(), '\0');
    size_t filled = 0;
    while (filled < text.size())
    {
        const size_t count = file.read(&text[filled], text.size() - filled);
        if (count == 0)
            break;
        filled += count;
    }
    text.resize(filled);
    return text;
}

void Files::write(const std::string& name, const std::string& text) const
{
    Upload upload(*this, name);
    upload.write(text.data(), text.size());
    upload.finish();
}

Upload::Upload(const Files& target, const std::string& fileName) : files(target), name(nameCheck(fileName))
{
    static std::atomic<unsigned> count{0};
    partName = ".part-" + std::to_string(getpid()) + "-" + std::to_string(++count);
    file = FileHandle(
        openat(files.root.get(), partName.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644));
    if (!file)
        fail("File not stored: " + name);
}

Upload::~Upload()
{
    if (!partName.empty())
        unlinkat(files.root.get(), partName.c_str(), 0);
}

void Upload::finish()
{
    if (renameat(files.root.get(), partName.c_str(), files.root.get(), name.c_str()) != 0)
        fail("File not stored: " + name);
    partName.clear();
}

} // namespace board
