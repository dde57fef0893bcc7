#include "tuning-tool/source/camera.h"

#include "tuning-tool/source/failure.h"

#include <algorithm>

namespace tool
{
const std::vector<std::string>& pictureTypes()
{
    static const std::vector<std::string> types{"RAW08", "RAW10", "RAW12", "RAW16", "RGB", "YUV"};
    return types;
}

int pictureType(const std::string& name)
{
    const auto& types = pictureTypes();
    const auto found = std::find(types.begin(), types.end(), name);
    if (found != types.end())
        return static_cast<int>(found - types.begin());
    std::string text;
    for (const auto& type : types)
        text += " " + type;
    throw Failure(Usage, "There is no picture of type \"" + name + "\", but" + text);
}

std::string pictureTake(Session& session, const std::string& type, const std::string& name, unsigned locks)
{
    const auto shape = commandShape("Camera.capture", {}, {});
    Payload request(shape.request, {});
    request.set("file.name", name);
    request.set("snapshot.type", std::to_string(pictureType(type)));
    request.set("lock.type", std::to_string(locks));
    if (!session.options.isDryRun)
        session.filesNeed();
    const auto jAnswer = session.send(shape, request);
    if (!jAnswer)
        return {};
    Payload answer(shape.answer, {});
    answer.take(*jAnswer);
    return session.download((*jAnswer)["file.name"].asString());
}
} // namespace tool
