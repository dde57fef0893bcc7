#include "tuning-transfer/source/uart/driver/driver.h"

#include "tuning-common/source/logic-error.h"
#include "tuning-common/source/text.h"
#ifdef _WIN32
#include "tuning-transfer/source/uart/driver/driver-win32.h"
#else
#include "tuning-transfer/source/uart/driver/driver-posix.h"
#endif

#include <iostream>

using t_common::LogicError;

namespace t_transfer::uart
{
namespace
{
#ifdef _WIN32
using Driver = Win32;
#else
using Driver = Posix;
#endif

void print(const std::string& name, const char* pDirection, const std::string& text)
{
    if (!text.empty())
    {
        std::cout << t_common::printable("[" + name + "] " + pDirection + " " + text, std::string::npos,
                                         t_common::Lines::Many) +
                         '\n';
    }
}
} // namespace

void Abstract::openFail() const { throw LogicError(LogicError::Io, "Open UART [" + name + "] failed\n"); }

void Abstract::readFail(std::size_t count) const
{
    throw LogicError(LogicError::Io, name + ": read failed, " + std::to_string(count) + " bytes read\n");
}

void Abstract::writeFail(std::size_t count) const
{
    throw LogicError(LogicError::Io, name + ": write failed, " + std::to_string(count) + " bytes written\n");
}

UartHolder::UartHolder(const std::string& name) : pAbstract(std::make_unique<Driver>(name)) {}

Abstract& UartHolder::abstract()
{
    if (pAbstract == nullptr)
        throw LogicError(LogicError::NotFound, "UART driver not available");
    return *pAbstract;
}

UartHolder& UartHolder::textRead(std::string& text)
{
    abstract().textRead(text);
    print(pAbstract->name, "<<<", text);
    return *this;
}

UartHolder& UartHolder::textWrite(const std::string& text)
{
    abstract().textWrite(text);
    print(pAbstract->name, ">>>", text);
    return *this;
}
} // namespace t_transfer::uart
