#include "board-wire/source/json-text.h"

#include "board-wire/source/failure.h"

#include <sstream>

namespace board
{

JsonText::JsonText()
{
    Json::CharReaderBuilder readerBuilder;
    Json::CharReaderBuilder::strictMode(&readerBuilder.settings_);
    readerBuilder["stackLimit"] = 64;
    readerBuilder["strictRoot"] = false;
    pReader.reset(readerBuilder.newCharReader());

    Json::StreamWriterBuilder writerBuilder;
    writerBuilder["indentation"] = "";
    writerBuilder["emitUTF8"] = true;
    writerBuilder["useSpecialFloats"] = true;
    pWriter.reset(writerBuilder.newStreamWriter());
}

Json::Value JsonText::parse(const std::string& text)
{
    Json::Value value;
    std::string errors;
    bool isParsed = false;
    try
    {
        isParsed = pReader->parse(text.data(), text.data() + text.size(), &value, &errors);
    }
    catch (const Json::Exception& exception)
    {
        errors = exception.what();
    }
    if (!isParsed)
        throw Failure("Command is not JSON: " + errors);
    return value;
}

std::string JsonText::write(const Json::Value& value)
{
    std::ostringstream stream;
    pWriter->write(value, &stream);
    return stream.str();
}

} // namespace board
