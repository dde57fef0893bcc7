#include "board-simulator/source/modules.h"

#include "board-simulator/source/arguments.h"
#include "board-simulator/source/data.h"
#include "board-wire/source/failure.h"
#include "board-wire/source/json-text.h"

#include <stdexcept>

namespace board
{

Modules::Modules()
{
    const Json::Value start = JsonText().parse(modulesText);
    for (const std::string& name : start.getMemberNames())
        for (const Json::Value& generation : start[name])
            modules[name].emplace_back(generation);
}

bool Modules::has(const std::string& className) const { return modules.count(className) != 0; }

Module& Modules::module(const std::string& className, int generation)
{
    const auto count = static_cast<int>(Wire::instance().commandClass(className).generations.size());
    if (generation < 0 || generation >= std::max(count, 1))
        throw std::out_of_range("No generation " + std::to_string(generation) + " of " + className);
    std::vector<Module>& generations = modules.at(className);
    return generations.size() == 1 ? generations.front() : generations.at(static_cast<size_t>(generation));
}

Module& Modules::module(const std::string& className, const Json::Value& query)
{
    const auto count = static_cast<int64_t>(Wire::instance().commandClass(className).generations.size());
    if (!count)
    {
        if (query.isMember("generation"))
            throw Failure("rest::" + className + " has no generations");
        return module(className);
    }
    const int64_t generation = integerArgument(query, "generation");
    if (generation < 0 || generation >= count)
        throw Failure("rest::" + className + " has no generation " + std::to_string(generation));
    return module(className, static_cast<int>(generation));
}

} // namespace board
