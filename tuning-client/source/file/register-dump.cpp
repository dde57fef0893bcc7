#include "tuning-client/source/file/register-dump.h"

#include "tuning-client/source/file/local-file.h"
#include "tuning-common/source/json-app.h"
#include "tuning-rest/source/answer.h"

#include <QElapsedTimer>
#include <QString>

namespace
{
// Two time limits in a row: the board is gone, and each further module would block the window as long again.
constexpr int silenceLimit = 2;
constexpr int silence = 1000; // milliseconds
} // namespace

bool registerDumpWrite(const QString& path, const Json::Value& jModules, int moduleId,
                       const std::function<bool(int id, Json::Value& jMap)>& fRead)
{
    Json::Value jDump(Json::arrayValue);
    int silent = 0; // requests one after the other
    bool isWhole = true;
    for (const auto& jModule : jModules)
    {
        const auto id = rest::answerGet<int32_t>(jModule, "module.id");
        if (moduleId >= 0 && id > moduleId)
            break;
        Json::Value object;
        object["module.id"] = jModule["module.id"];
        object["description"] = jModule["description"];
        object["map"] = Json::Value();
        if (silent < silenceLimit)
        {
            QElapsedTimer clock;
            clock.start();
            const bool isRead = fRead(id, object["map"]);
            silent = !isRead && clock.elapsed() > silence ? silent + 1 : 0;
            isWhole = isWhole && isRead;
        }
        jDump.append(std::move(object));
    }
    shortcut::fileWrite(path, QByteArray::fromStdString(t_common::JsonApp::toString(jDump, "  ")));
    return isWhole;
}
