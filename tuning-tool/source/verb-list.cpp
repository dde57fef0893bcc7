#include "board-wire/source/field-value.h"
#include "board-wire/source/scalar.h"
#include "tuning-tool/source/assignments.h"
#include "tuning-tool/source/verbs.h"
#include "tuning-tool/source/window-range.h"

#include <algorithm>

namespace tool
{
namespace
{
std::string rangeOf(const std::string& type)
{
    const auto* pScalar = board::scalarFind(type.substr(0, type.find('[')));
    return pScalar && type.rfind("char[", 0) != 0 ? pScalar->range : std::string();
}

std::string keysText(const std::vector<board::Key>& keys)
{
    std::string text;
    for (const auto& key : keys)
        text += (text.empty() ? "" : " ") + key.name + (key.isOptional ? "?" : "");
    return text;
}

Json::Value fieldsJson(const CommandShape& shape, const std::vector<board::Key>& keys)
{
    const Payload payload(keys, shape.generation);
    Json::Value jFields(Json::arrayValue);
    for (const auto& name : payload.names())
    {
        Json::Value jField;
        jField["name"] = name;
        jField["type"] = payload.type(name);
        for (const auto& [key, text] :
             {std::pair("range", rangeOf(payload.type(name))), std::pair("unit", unitOf(name))})
            if (!text.empty())
                jField[key] = text;
        if (const auto* pRange = windowRange(shape, name))
        {
            auto& jWindow = jField["window"];
            jWindow["minimum"] = pRange->minimum;
            jWindow["maximum"] = pRange->maximum;
            jWindow["step"] = pRange->step;
            for (const auto& label : pRange->labels)
                jWindow["labels"].append(label);
        }
        jFields.append(std::move(jField));
    }
    return jFields;
}

Json::Value shapeJson(const CommandShape& shape)
{
    Json::Value jShape = shape.envelope();
    jShape["name"] = shape.name();
    if (!shape.generation.empty())
        jShape["generation"] = shape.generation;
    for (const auto& [side, keys] : {std::pair("request", &shape.request), std::pair("answer", &shape.answer)})
    {
        Json::Value jKeys(Json::arrayValue);
        for (const auto& key : *keys)
        {
            Json::Value jKey;
            jKey["key"] = key.name;
            jKey["type"] = key.type;
            jKey["optional"] = key.isOptional;
            jKeys.append(std::move(jKey));
        }
        jShape[side]["keys"] = jKeys;
        jShape[side]["fields"] = fieldsJson(shape, *keys);
    }
    for (const auto& command : {shape.command, std::string()})
        if (const auto note = board::Keys::instance().note(shape.commandClass.name, command); !note.empty())
            jShape[command.empty() ? "class.note" : "note"] = note;
    return jShape;
}

void shapePrint(Session& session, const CommandShape& shape)
{
    const auto jShape = shapeJson(shape);
    session.out << shape.name() << (shape.generation.empty() ? "" : ", generation " + shape.generation) << ", number "
                << jShape["id"].asString() << '\n';
    for (const auto* note : {"note", "class.note"})
        if (jShape.isMember(note))
            session.out << "  " << jShape[note].asString() << '\n';
    for (const auto* side : {"request", "answer"})
    {
        std::vector<std::vector<std::string>> rows;
        for (const auto& jField : jShape[side]["fields"])
        {
            const auto* pRange = windowRange(shape, jField["name"].asString());
            rows.push_back({"    " + jField["name"].asString(), jField["type"].asString(),
                            pRange ? pRange->rangeText() : jField["range"].asString(),
                            pRange ? pRange->labelText() : std::string(), jField["unit"].asString()});
        }
        session.out << (rows.empty() ? "" : std::string("  ") + side + ":\n");
        session.columnsPrint(rows);
    }
}

/// The commands that a name stands for: itself, or what reads and writes it; throws `Failure` for none.
std::vector<std::string> commandsOf(const board::CommandClass& commandClass, const std::string& name)
{
    std::vector<std::string> commands;
    for (const auto* suffix : {"", "Get", "Set"})
        if (const auto* pCommand = commandFind(commandClass, name, suffix))
            if (std::find(commands.begin(), commands.end(), pCommand->name) == commands.end())
                commands.push_back(pCommand->name);
    if (commands.empty())
        commands.push_back(commandShape(commandClass.name + "." + name, {}, {}).command);
    return commands;
}

/// All commands of a class, or those named.
std::vector<CommandShape> shapesOf(const board::CommandClass& commandClass, const std::vector<std::string>& commands,
                                   const std::string& generation)
{
    std::vector<CommandShape> shapes;
    for (const auto& candidate : commandClass.commands)
        for (const auto& name : generation.empty()
                                    ? generationsOf(commandClass)
                                    : std::vector<std::string>{generationCheck(commandClass, generation)})
            if (commands.empty() || std::find(commands.begin(), commands.end(), candidate.name) != commands.end())
                shapes.emplace_back(commandClass, candidate.name, name);
    return shapes;
}

void overviewPrint(Session& session)
{
    std::vector<std::vector<std::string>> rows{{"number", "command", "generations", "sent", "answered"}};
    for (const auto& commandClass : board::Wire::instance().classes())
        for (const auto& command : commandClass.commands)
        {
            std::string generations;
            for (const auto& generation : generationsOf(commandClass))
                generations += (generations.empty() ? "" : " ") + generation;
            // Keys of one generation stand for all, but where a configuration is made of plain ones.
            const CommandShape shape(commandClass, command.name, generationsOf(commandClass).front());
            rows.push_back({std::to_string(command.id), shape.name(), generations, keysText(shape.request),
                            keysText(shape.answer)});
        }
    session.columnsPrint(rows);
}
} // namespace

void list(Session& session)
{
    const auto& options = session.options;
    const auto name = options.words.empty() ? std::string() : options.words[0];
    if (name.empty() && !options.isJson)
        return overviewPrint(session);
    std::vector<CommandShape> shapes;
    if (name.find('.') != std::string::npos)
    {
        const auto& commandClass = commandClassFind(name.substr(0, name.find('.')));
        const auto commands = commandsOf(commandClass, name.substr(name.find('.') + 1));
        shapes = shapesOf(commandClass, commands, options.generation);
    }
    else
    {
        for (const auto& commandClass : board::Wire::instance().classes())
            if (name.empty() || commandClass.name == commandClassFind(name).name)
                for (auto& shape : shapesOf(commandClass, {}, options.generation))
                    shapes.push_back(std::move(shape));
    }
    Json::Value jShapes(Json::arrayValue);
    for (const auto& shape : shapes)
        if (options.isJson)
            jShapes.append(shapeJson(shape));
        else
            shapePrint(session, shape);
    if (options.isJson)
        session.jsonPrint(jShapes);
}
} // namespace tool
