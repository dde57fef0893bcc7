#pragma once

#include <json/value.h>

#include <functional>

class QString;

/// Writes the registers of the modules to a file, with a `moduleId` that is not negative up to the first module of a
/// higher number. `fRead` reads those of one module and tells whether it could; a module that cannot be read stands in
/// the file with a null `map`. Whether all could be read; throws when the file cannot be written.
bool registerDumpWrite(const QString& path, const Json::Value& jModules, int moduleId,
                       const std::function<bool(int id, Json::Value& jMap)>& fRead);
