#include "tuning-common/source/file-system.h"

#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"

#include <algorithm>
#include <stdexcept>

namespace t_common
{
namespace
{
[[noreturn]] void fail(const std::string& text, const std::string& reason)
{
    throw std::runtime_error("File name check failed: \"" + printable(text, limit::fileName) + "\" " + reason);
}

// The GUI's texts drop it, which makes another name.
constexpr auto byteOrderMark = "\xef\xbb\xbf";
} // namespace

std::string FileSystem::filenameGetFromPath(const std::string& path)
{
#ifdef _WIN32
    return path.substr(path.find_last_of("/\\") + 1);
#else
    return path.substr(path.rfind('/') + 1);
#endif
}

std::string FileSystem::localNameGet(const std::string& text)
{
    const auto name = text.substr(text.rfind('/') + 1);
    const bool isForeign =
        std::any_of(name.begin(), name.end(), [](unsigned char c) { return c < 0x20 || c == 0x7f || c == '\\'; });
    if (name.empty() || name == "." || name == ".." || isForeign || name.size() > limit::fileName)
        fail(text, "is not the name of a file");
    if (!isUtf8(name) || name.rfind(byteOrderMark, 0) == 0)
        fail(text, "is not plain UTF-8");
    return name;
}
} // namespace t_common
