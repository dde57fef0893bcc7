#include "tuning-client/source/versions.h"

#include "tuning-rest/source/abstract.h"

#include <utility>

Versions::Version::Version(std::string name_, std::string number_, std::string date_)
    : date(std::move(date_)), name(std::move(name_)), number(std::move(number_))
{
}

Versions::Versions()
{
    collection.push_back(new Version("Client", TUNING_VERSION, "2022-11-16 09:18:52"));
    std::string name;
    std::string number;
    std::string date;
    rest::Abstract().versionGet(name, number, date);
    collection.push_back(new Version(name, number, date));
    // The one that the release is declared for, not the one it happens to run with.
    collection.push_back(new Version("Qt", "5.14.2", ""));
}

Versions::~Versions()
{
    for (auto* pVersion : collection)
        delete pVersion;
}
