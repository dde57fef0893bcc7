#pragma once

#include <string>
#include <vector>

/// The versions of this program's parts.
class Versions
{
public:
    struct Version
    {
        Version(std::string name, std::string number, std::string date);

        std::string date;
        std::string name;
        std::string number;
    };

    Versions();
    ~Versions();
    Versions(const Versions&) = delete;
    Versions& operator=(const Versions&) = delete;

    std::vector<Version*> collection; ///< owned
};
