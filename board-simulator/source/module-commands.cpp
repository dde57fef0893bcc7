#include "board-simulator/source/services.h"

#include "board-simulator/source/arguments.h"
#include "board-wire/source/failure.h"
#include "board-wire/source/keys.h"

namespace board
{

namespace
{

void enableGet(Module& module, const Json::Value&, Json::Value& answer) { answer["enable"] = module.isEnabled; }

void enableSet(Module& module, const Json::Value& query, Json::Value&)
{
    module.isEnabled = flagArgument(query, "enable");
}

void configGet(Module& module, const Json::Value&, Json::Value& answer) { module.config.write(answer); }

void configSet(Module& module, const Json::Value& query, Json::Value&) { module.config.read(query); }

void statusGet(Module& module, const Json::Value&, Json::Value& answer) { module.status.write(answer); }

void tableGet(Module& module, const Json::Value&, Json::Value& answer) { answer["table"] = module.table; }

void tableSet(Module& module, const Json::Value& query, Json::Value&)
{
    if (!query["table"].isObject())
        throw Failure("table is not an object");
    module.table = query["table"];
}

void reset(Module& module, const Json::Value&, Json::Value&) { module.reset(); }

void availableGet(Module&, const Json::Value&, Json::Value& answer) { answer["available"] = true; }

} // namespace

void moduleCommandsAdd(CommandTable& commands, Modules& modules)
{
    static const std::map<std::string, void (*)(Module&, const Json::Value&, Json::Value&)> shapes{
        {"availableGet", availableGet},
        {"configGet", configGet},
        {"configSet", configSet},
        {"enableGet", enableGet},
        // The odd spelling is the wire's own.
        {"enabelGet", enableGet},
        {"enableSet", enableSet},
        {"reset", reset},
        {"statusGet", statusGet},
        {"tableGet", tableGet},
        {"tableSet", tableSet}};
    for (const CommandClass& commandClass : Wire::instance().classes())
    {
        for (const Command& command : commandClass.commands)
        {
            auto shape = shapes.find(command.name);
            if (modules.has(commandClass.name) && shape != shapes.end())
            {
                auto fRun = [&modules, name = commandClass.name, command = command.name,
                             fShape = shape->second](const Json::Value& query, Json::Value& answer)
                {
                    Module& module = modules.module(name, query);
                    Keys::instance().requestCheck(name, command, query);
                    fShape(module, query, answer);
                };
                commands.add(commandClass.name, command.name, fRun);
            }
        }
    }
}

} // namespace board
