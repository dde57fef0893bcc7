#include "tuning-rest/source/fs.h"

#include "tuning-common/source/limits.h"

#include <stdexcept>

namespace rest
{
FileSystem& FileSystem::list(std::vector<std::string>& list, const std::string& extension, const std::string& path)
{
    Json::Value jResponse;
    request(COMMAND(50001).with("file.extension", extension).with("path", path).query(), jResponse, TimeoutDefault);
    // Into a fresh list first, so that a bad element leaves the caller's as it was.
    std::vector<std::string> names;
    for (const auto& jName : answerListGet(jResponse, "file.list"))
    {
        if (!jName.isString() || jName.asString().size() > t_common::limit::listText)
            throw std::logic_error("Error in the answer: \"file.list\" holds something that is no file name");
        names.push_back(jName.asString());
    }
    list.insert(list.end(), names.begin(), names.end());
    return *this;
}

FileSystem& FileSystem::remove(const std::string& path) { return write(*this, COMMAND(50002), "path", path); }
} // namespace rest
