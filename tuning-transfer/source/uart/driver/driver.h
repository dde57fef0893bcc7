#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

namespace t_transfer::uart
{
constexpr std::size_t readSize = 30000;             ///< bytes that end a read
constexpr std::chrono::milliseconds readPause{10};  ///< silence between two bytes that ends a read
constexpr std::chrono::milliseconds readLimit{500}; ///< time that ends a read

/// A serial port of the operating system: 115200 baud, 8 data bits, no parity, one stop bit, no flow control, held
/// exclusively from construction to destruction. Failures throw `t_common::LogicError` code 1 with the port's name.
class Abstract
{
public:
    explicit Abstract(const std::string& name_) : name(name_) {}
    virtual ~Abstract() = default;
    Abstract(const Abstract&) = delete;
    Abstract& operator=(const Abstract&) = delete;

    /// What the line delivers within one read, cut at its first NUL; nothing is no failure.
    virtual Abstract& textRead(std::string& text) = 0;

    /// Returns when the system has taken all of the text.
    virtual Abstract& textWrite(const std::string& text) = 0;

    std::string name;

protected:
    [[noreturn]] void openFail() const;
    [[noreturn]] void readFail(std::size_t count) const;
    [[noreturn]] void writeFail(std::size_t count) const;
};

/// Picks the driver of this system and prints what goes through it.
class UartHolder
{
public:
    explicit UartHolder(const std::string& name);

    /// Throws `t_common::LogicError` code 9 where there is no driver.
    Abstract& abstract();

    UartHolder& textRead(std::string& text);
    UartHolder& textWrite(const std::string& text);

private:
    std::unique_ptr<Abstract> pAbstract;
};
} // namespace t_transfer::uart
