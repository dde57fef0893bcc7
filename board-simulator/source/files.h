#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace board
{

/// An open file, closed with its owner.
class FileHandle
{
public:
    explicit FileHandle(int opened = -1) : descriptor(opened) {}
    FileHandle(FileHandle&& other) noexcept;
    FileHandle& operator=(FileHandle&& other) noexcept;
    ~FileHandle();

    explicit operator bool() const { return descriptor >= 0; }
    uint64_t size() const;
    /// Bytes read, 0 at the end. Throws `Failure`.
    size_t read(char* pBuffer, size_t size);
    void write(const char* pBytes, size_t size);
    int get() const { return descriptor; }

private:
    int descriptor;
};

/// The board's one directory. A name is a plain name in it: nothing outside is ever read, written or removed, and links
/// are not followed. All operations throw `Failure`; all are thread-safe.
class Files
{
public:
    /// Makes the directory if it is not there.
    explicit Files(const std::string& directory);

    const std::string& directory() const { return path; }
    /// The names that end with "." and the extension, sorted; all names for an empty extension.
    std::vector<std::string> list(const std::string& extension) const;
    bool has(const std::string& name) const;
    void remove(const std::string& name) const;
    FileHandle open(const std::string& name) const;
    std::string read(const std::string& name) const;
    void write(const std::string& name, const std::string& text) const;

private:
    friend class Upload;
    std::string path;
    FileHandle root;
};

/// A file on its way into the directory: it takes its name when it is whole, and leaves nothing behind when it is not.
class Upload
{
public:
    Upload(const Files& files, const std::string& name);
    Upload(const Upload&) = delete;
    Upload& operator=(const Upload&) = delete;
    ~Upload();

    void write(const char* pBytes, size_t size) { file.write(pBytes, size); }
    void finish();

private:
    const Files& files;
    std::string name;
    std::string partName;
    FileHandle file;
};

} // namespace board
