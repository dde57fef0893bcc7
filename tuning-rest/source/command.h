#pragma once

#include "tuning-common/source/base64.h"
#include "tuning-common/source/method-name.h"
#include "tuning-rest/source/record.h"

#include <json/value.h>

namespace rest
{
/// What names a command in the envelope.
class Command
{
public:
    Command(const std::string& function, int id)
    {
        jQuery["function"] = function;
        jQuery["id"] = id;
    }

    /// `generation` is one of the enumerators of the class's `Generation`.
    Command(const std::string& function, int id, int generation) : Command(function, id)
    {
        jQuery["generation"] = generation;
    }

    /// Adds an argument, at the top level of the envelope: a record as Base64 text, anything else as plain JSON.
    template <class T>
    Command& with(const char* key, const T& value)
    {
        if constexpr (isRecord<T>)
            jQuery[key] = t_common::Base64::encode(value);
        else if constexpr (std::is_same_v<T, Flag>)
            jQuery[key] = bool(value);
        else
            jQuery[key] = value;
        return *this;
    }

    const Json::Value& query() const { return jQuery; }

private:
    Json::Value jQuery;
};
} // namespace rest

/// The envelope of the method that it stands in; takes the command's number and, in classes that have it, the
/// generation. A macro, because no function could see its caller's name.
#define COMMAND(...) ::rest::Command(computeMethodName(__func__, __PRETTY_FUNCTION__), __VA_ARGS__)
