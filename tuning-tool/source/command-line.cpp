#include "tuning-tool/source/command-line.h"

#include "tuning-common/source/text.h"
#include "tuning-tool/source/camera.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/nearest.h"
#include "tuning-tool/source/verbs.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <algorithm>

namespace tool
{
namespace
{
constexpr std::size_t many = 100'000;
constexpr int waitMost = 60;

/// The parser takes what begins with "-" for an option: a number below zero passes it with another sign.
constexpr QChar minus(0x2212);

QString disguised(QString word)
{
    static const QRegularExpression number("^-\\.?\\d");
    return number.match(word).hasMatch() ? minus + word.mid(1) : word;
}

std::string restored(const QString& word) { return (word.startsWith(minus) ? '-' + word.mid(1) : word).toStdString(); }

std::string typesText()
{
    std::string text;
    for (const auto& type : pictureTypes())
        text += (text.empty() ? "" : ", ") + type + (type == Options().type ? " (the default)" : "");
    return text;
}
} // namespace

const std::vector<Option>& allOptions()
{
    static const std::vector<Option> options{
        {"board", "HOST[:PORT]", "a board in the network; the port is 8080 by default", true},
        {"port", "DEVICE", "a board at a serial line, such as /dev/ttyUSB0", true},
        {"json", "", "output for programs", true},
        {"dry-run", "", "show what would be sent: the request, and records in hexadecimal; set still reads", true},
        {"verbose", "", "the traffic on standard error", true},
        {"help", "", "this text", true},
        {"generation", "NAME", "of a class that has several, such as V4", false},
        {"type", "TYPE", typesText(), false},
        {"frames", "COUNT", "pictures one after the other, 1 by default", false},
        {"lock", "LIST", "what stands still for a picture: af, ae, awb", false},
        {"directory", "DIR", "where files land, the working directory by default", false},
        {"force", "", "replace files that are there; of apply, go on where the last one has not ended", false},
        {"sensor", "", "registers of the sensor, not of the pipeline", false},
        {"only", "LIST", "of these modules, such as \"Wb,Wdr V4\"", false},
        {"chip", "NAME", "the chip of the board, the one of the window by default", false},
        {"rollback", "", "back to the state before the last apply, or before this one where it fails", false},
        {"capture", "TYPE", "the kind of the pictures, as for --type", false},
        {"wait", "SECONDS", "from a change to its picture, 0.2 by default", false},
    };
    return options;
}

namespace
{
void parserFill(QCommandLineParser& parser)
{
    for (const auto& option : allOptions())
        parser.addOption(
            QCommandLineOption(QString::fromStdString(option.name), QString(), QString::fromStdString(option.value)));
}

Options optionsRead(const QCommandLineParser& parser)
{
    // Of a script's variable that nobody has set, another board or generation than the one that is meant must not come.
    for (const auto& name : parser.optionNames())
        if (const auto values = parser.values(name); !values.isEmpty() && values.contains(QString()))
            throw Failure(Usage, "--" + name.toStdString() + " is empty");
    const auto text = [&](const char* name) { return restored(parser.value(name)); };
    Options options;
    options.board = text("board");
    options.port = text("port");
    options.generation = text("generation");
    options.lock = text("lock");
    if (parser.isSet("type"))
        options.type = text("type");
    if (parser.isSet("directory"))
        options.directory = text("directory");
    options.only = text("only");
    options.chip = text("chip");
    bool isNumber = true;
    if (parser.isSet("frames"))
        options.frames = parser.value("frames").toInt(&isNumber);
    if (!isNumber)
        throw Failure(Usage, "--frames is a number");
    if (parser.isSet("capture"))
        options.type = text("capture");
    if (parser.isSet("wait"))
        options.wait = parser.value("wait").toDouble(&isNumber);
    if (!isNumber || !(options.wait >= 0 && options.wait <= waitMost))
        throw Failure(Usage, "--wait is a number from 0 to " + std::to_string(waitMost));
    options.isRollback = parser.isSet("rollback");
    options.isJson = parser.isSet("json");
    options.isDryRun = parser.isSet("dry-run");
    options.isVerbose = parser.isSet("verbose");
    options.isSensor = parser.isSet("sensor");
    options.isForced = parser.isSet("force");
    for (const auto& word : parser.positionalArguments())
        options.words.push_back(restored(word));
    return options;
}

/// Takes the words of a verb's name off the front; throws `Failure`.
const Verb& verbTake(std::vector<std::string>& words)
{
    std::vector<std::string> names;
    for (const auto& verb : verbs())
    {
        const auto blank = verb.name.find(' ');
        const std::size_t count = blank == std::string::npos ? 1 : 2;
        if (words.size() >= count && verb.name == (count == 1 ? words[0] : words[0] + " " + words[1]))
        {
            words.erase(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(count));
            return verb;
        }
        names.push_back(verb.name);
    }
    if (words.empty())
        throw Failure(Usage, "No command; --help tells them");
    const auto name = words.size() > 1 ? words[0] + " " + words[1] : words[0];
    auto meant = meantText(name, names);
    throw Failure(Usage, "There is no command \"" + name + "\"" + (meant.empty() ? meantText(words[0], names) : meant));
}

void optionsCheck(const QCommandLineParser& parser, const Verb& verb)
{
    const auto taken = optionsOf(verb);
    for (const auto& name : parser.optionNames())
        if (std::find(taken.begin(), taken.end(), "--" + name.toStdString()) == taken.end())
            throw Failure(Usage, verb.name + " has no option --" + name.toStdString());
}

std::string padded(std::string text, std::size_t width)
{
    text.resize(std::max(text.size() + 2, width), ' ');
    return text;
}

void optionsPrint(std::ostream& out, const std::vector<std::string>& names)
{
    out << "\nOptions:\n";
    for (const auto& option : allOptions())
        if (std::find(names.begin(), names.end(), "--" + option.name) != names.end())
            out << "  " << padded("--" + option.name + (option.value.empty() ? "" : " " + option.value), 22)
                << option.help << '\n';
}

void helpPrint(std::ostream& out)
{
    out << "Usage: tuning-tool COMMAND [WORD]... [--OPTION]...\n\n"
           "Reads and writes the settings of a board, for image engineers and their scripts.\n\nCommands:\n";
    for (const auto& verb : verbs())
        out << "  " << padded(verb.name + " " + verb.words, 42) << verb.help << '\n';
    optionsPrint(out, optionNames());
    out << "\nWithout --board and --port it is the board of ~/.tuning-client/preferences.json.\n"
           "\nExit codes:\n"
           "  0  done\n"
           "  1  refused by the board, whose words are on standard error; differences of diff, conflicts of\n"
           "     merge, findings of chip check\n"
           "  2  wrong command line: an unknown name, a value that its type cannot hold\n"
           "  3  no answer: no board, no line, no file transfer on this line\n"
           "  4  an answer that is not what the description says\n"
           "  5  the board has made another value of what it was sent\n"
           "  6  a file of this computer can't be read or written\n"
           "  7  interrupted between two commands, what was sent is told\n";
}

std::string errorText(const QCommandLineParser& parser)
{
    const auto unknown = parser.unknownOptionNames();
    if (unknown.isEmpty())
        return parser.errorText().toStdString();
    const auto name = "--" + unknown.first().toStdString();
    return "There is no option " + name + meantText(name, optionNames());
}

std::string usageText(const Verb& verb)
{
    return "Usage: tuning-tool " + verb.name + (verb.words.empty() ? "" : " " + verb.words);
}

void runGuarded(const std::vector<std::string>& arguments, std::ostream& out)
{
    QStringList list{"tuning-tool"};
    for (const auto& argument : arguments)
        list.append(disguised(QString::fromStdString(argument)));
    if (!arguments.empty() && arguments[0] == "complete")
    {
        Options options;
        options.words.assign(arguments.begin() + 1, arguments.end());
        Session session(options, out);
        return complete(session);
    }
    QCommandLineParser parser;
    parserFill(parser);
    if (!parser.parse(list))
        throw Failure(Usage, errorText(parser));
    auto options = optionsRead(parser);
    if (options.words.empty() && parser.isSet("help"))
        return helpPrint(out);
    const auto& verb = verbTake(options.words);
    optionsCheck(parser, verb);
    if (parser.isSet("help"))
    {
        out << usageText(verb) << "\n\n" << verb.help << '\n';
        return optionsPrint(out, optionsOf(verb));
    }
    if (options.words.size() < verb.fewest || options.words.size() > verb.most)
        throw Failure(Usage, usageText(verb));
    Session session(options, out);
    verb.fRun(session);
}
} // namespace

const std::vector<Verb>& verbs()
{
    static const std::vector<Verb> list_{
        {"get", "CLASS.NAME [KEY=VALUE]...", 1, many, {"generation"}, "read, such as Wb.config or Awb.status", get},
        {"set", "CLASS.NAME FIELD=VALUE...", 2, many, {"generation"}, "read, change the fields, write, read back", set},
        {"call", "CLASS.COMMAND [KEY=VALUE]...", 1, many, {"generation"}, "any command; records start from zero", call},
        {"table get", "CLASS", 1, 1, {"generation"}, "an auto table", tableGet},
        {"table set", "CLASS FILE", 2, 2, {"generation"}, "send one from a JSON file, - for standard input", tableSet},
        {"file list", "[EXTENSION]...", 0, many, {}, "the board's files", fileList},
        {"file get", "NAME...", 1, many, {"directory", "force"}, "fetch files", fileGet},
        {"file put", "FILE...", 1, many, {}, "send files", filePut},
        {"file remove", "NAME...", 1, many, {}, "remove files of the board", fileRemove},
        {"capture",
         "",
         0,
         0,
         {"type", "frames", "lock", "directory", "force"},
         "take pictures and fetch them",
         capture},
        {"register read", "ADDRESS...", 1, many, {"sensor"}, "registers, 0x for hexadecimal", registerRead},
        {"register write", "ADDRESS VALUE", 2, 2, {"sensor"}, "write, read back", registerWrite},
        {"register dump", "[NAME]", 0, 1, {"sensor", "directory", "force"}, "all registers", registerDump},
        {"snapshot", "", 0, 0, {"only", "chip"}, "all settings of the board as JSON", snapshot},
        {"diff", "OLD [NEW]", 1, 2, {"only", "chip"}, "what differs in two snapshots, or one and the board", diff},
        {"merge", "BASE MINE THEIRS", 3, 3, {}, "one snapshot of two that come from one", merge},
        {"apply",
         "[SNAPSHOT]",
         0,
         1,
         {"only", "chip", "rollback", "force"},
         "send what differs, read back; journalled for --rollback",
         apply},
        {"sweep",
         "CLASS.NAME FIELD FIRST:LAST:STEP",
         3,
         3,
         {"generation", "capture", "wait", "directory", "force"},
         "a picture of each value and what it is like",
         sweep},
        {"list", "[CLASS[.COMMAND]]", 0, 1, {"generation"}, "commands, keys, fields, types, ranges", list},
        {"chip check", "FILE...", 1, many, {}, "what the window passes over in silence", chipCheck},
        {"chip pages", "", 0, 0, {}, "the names of pages", chipPages},
        {"completion", "", 0, 0, {}, "the script for bash: source <(tuning-tool completion)", completion},
    };
    return list_;
}

std::vector<std::string> optionNames()
{
    std::vector<std::string> names;
    for (const auto& option : allOptions())
        names.push_back("--" + option.name);
    return names;
}

std::vector<std::string> optionsOf(const Verb& verb)
{
    std::vector<std::string> names;
    for (const auto& option : allOptions())
        if (option.isCommon || std::find(verb.options.begin(), verb.options.end(), option.name) != verb.options.end())
            names.push_back("--" + option.name);
    return names;
}

int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err)
{
    int code = Done;
    std::string text;
    try
    {
        runGuarded(arguments, out);
    }
    catch (const Failure& failure)
    {
        code = failure.code;
        text = failure.what();
    }
    catch (const std::exception& exception)
    {
        code = Unreadable;
        text = exception.what();
    }
    out.flush();
    if (!out && code == Done)
    {
        code = LocalFile;
        text = "Standard output can't be written";
    }
    if (code != Done)
        err << "tuning-tool: " << t_common::printable(text, std::string::npos, t_common::Lines::Many) << '\n';
    return code;
}
} // namespace tool
