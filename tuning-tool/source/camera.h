#pragma once

#include "tuning-tool/source/session.h"

#include <string>
#include <vector>

namespace tool
{
/// The kinds of pictures, each at the place of its number on the wire.
const std::vector<std::string>& pictureTypes();

/// The number of a kind; throws `Failure` with all names for another text.
int pictureType(const std::string& name);

/// Has the board take a picture of that name (the board adds its extension) and fetches it; gives its path, or in a dry
/// run nothing. `locks` is the set of what stands still: 1 focus, 2 exposure, 4 white balance. Throws `Failure`.
std::string pictureTake(Session& session, const std::string& type, const std::string& name, unsigned locks);
} // namespace tool
