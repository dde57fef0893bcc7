#pragma once

#include "board-simulator/source/module.h"

#include <map>
#include <string>
#include <vector>

namespace board
{

/// All modules of the board. The generations of a class have a module each, or share one.
class Modules
{
public:
    Modules();

    bool has(const std::string& className) const;
    /// Throws `std::out_of_range` for a class or a generation that is not there.
    Module& module(const std::string& className, int generation = 0);
    /// The module that a command means by its `generation`. Throws `Failure` for a wrong one.
    Module& module(const std::string& className, const Json::Value& query);
    /// Calls `action` for every module.
    template <typename Action>
    void each(Action action)
    {
        for (auto& [name, generations] : modules)
            for (Module& module : generations)
                action(module);
    }

private:
    std::map<std::string, std::vector<Module>> modules;
};

} // namespace board
