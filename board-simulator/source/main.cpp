#include "board-simulator/source/simulator.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <pthread.h>
#include <stdexcept>

namespace
{

struct Arguments
{
    board::Options options{8080, "board-files", true};
    std::vector<board::Fault> faults;
    bool isHelp = false;
};

void helpPrint()
{
    std::cout << "Usage: board-simulator [--port PORT] [--pty] [--directory DIR] [--log] [--fault KIND[:ID]]...\n"
                 "\n"
                 "A simulated board at 127.0.0.1. Stops on SIGINT and SIGTERM.\n"
                 "\n"
                 "  --port PORT        TCP port, 8080 by default, 0 for a free one\n"
                 "  --pty              a serial line as well, at a pseudo-terminal whose name is printed\n"
                 "  --directory DIR    the board's files, \"board-files\" by default; an empty one gets samples\n"
                 "  --log              print a line for each request: the command's number and name\n"
                 "                     (-1 and -2: a file's upload and download)\n"
                 "  --fault KIND[:ID]  fail: every exchange, or only the command of that number\n"
                 "                     (-1: uploads, -2: downloads)\n"
                 "  --help             this text\n"
                 "\n"
                 "Kinds:\n";
    for (const auto& [name, kind] : board::faultKinds())
        std::cout << "  " << name << "\n";
}

/// What came over the line is quoted, so that it is one line whatever it holds.
void requestPrint(const board::Request& request)
{
    const auto& query = request.query;
    const bool isNamed = query.isObject() && query["function"].isString();
    const std::string name = isNamed ? query["function"].asString() : request.target;
    std::cout << request.id << ' ' << Json::valueToQuotedString(name.c_str()) << std::endl;
}

long long number(const std::string& text, long long minimum, long long maximum, const std::string& option)
{
    char* pEnd = nullptr;
    errno = 0;
    const long long value = std::strtoll(text.c_str(), &pEnd, 10);
    if (text.empty() || *pEnd || errno || value < minimum || value > maximum)
        throw std::invalid_argument("Not a number for " + option + ": " + text);
    return value;
}

board::Fault faultParse(const std::string& text)
{
    const size_t colon = text.find(':');
    const auto kind = board::faultKind(text.substr(0, colon));
    if (!kind)
        throw std::invalid_argument("Unknown kind of fault: " + text.substr(0, colon));
    board::Fault fault;
    fault.kind = *kind;
    fault.id =
        colon == std::string::npos ? board::Fault::Everything : number(text.substr(colon + 1), -2, 9999999, "--fault");
    return fault;
}

Arguments argumentsParse(int count, char** pArguments)
{
    Arguments arguments;
    for (int i = 1; i < count; ++i)
    {
        const std::string name = pArguments[i];
        if (name == "--help")
        {
            arguments.isHelp = true;
            return arguments;
        }
        if (name == "--pty")
        {
            arguments.options.isSerial = true;
            continue;
        }
        if (name == "--log")
        {
            arguments.options.fRequest = requestPrint;
            continue;
        }
        if (name != "--port" && name != "--directory" && name != "--fault")
            throw std::invalid_argument("Unknown argument: " + name);
        if (++i == count)
            throw std::invalid_argument("Nothing behind " + name);
        const std::string value = pArguments[i];
        if (name == "--port")
            arguments.options.port = static_cast<uint16_t>(number(value, 0, 65535, name));
        else if (name == "--directory")
            arguments.options.directory = value;
        else
            arguments.faults.push_back(faultParse(value));
    }
    return arguments;
}

int serve(const Arguments& arguments)
{
    // Blocked before the first thread starts, so that every thread leaves them to sigwait.
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);

    board::Simulator simulator(arguments.options);
    for (const board::Fault& fault : arguments.faults)
        simulator.faultSet(fault);
    if (arguments.options.isSerial)
        std::cout << "Serial line at " << simulator.serialName() << "\n";
    std::cout << "Board at http://127.0.0.1:" << simulator.port() << ", files in " << simulator.directory()
              << std::endl;
    int signal = 0;
    sigwait(&signals, &signal);
    return 0;
}

} // namespace

int main(int count, char** pArguments)
{
    try
    {
        const Arguments arguments = argumentsParse(count, pArguments);
        if (arguments.isHelp)
        {
            helpPrint();
            return 0;
        }
        return serve(arguments);
    }
    catch (const std::invalid_argument& exception)
    {
        std::cerr << "board-simulator: " << exception.what() << "\nTry --help.\n";
        return 2;
    }
    catch (const std::exception& exception)
    {
        std::cerr << "board-simulator: " << exception.what() << "\n";
        return 1;
    }
}
