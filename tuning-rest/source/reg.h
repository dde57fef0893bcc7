#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// The registers of the ISP and their description.
class Reg : public Engine
{
public:
    Reg& configGet(uint32_t address, uint32_t& value);
    Reg& configSet(uint32_t address, uint32_t value);

    /// The modules: an array of objects with `description` and `module.id`.
    Reg& statusGet(Json::Value& jModuleList);

    /// A module's registers: an array of objects with `permission` (1 read and write, 2 write only, else read only),
    /// `address`, `name`, `value.default`, `value` and `description`.
    Reg& statusGet(int moduleId, Json::Value& jRegisters);
};
} // namespace rest
