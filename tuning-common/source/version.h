#pragma once

#include <string>

namespace t_common
{
/// Something that can say which version it is.
class Version
{
public:
    virtual ~Version() = default;

    /// Fills in the name, the number and the build time.
    virtual void versionGet(std::string& name, std::string& number, std::string& time) = 0;
};
} // namespace t_common
