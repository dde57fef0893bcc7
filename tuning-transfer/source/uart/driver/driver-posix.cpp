#include "tuning-transfer/source/uart/driver/driver-posix.h"

#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"

#include <fcntl.h>
#include <linux/serial.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iostream>

namespace t_transfer::uart
{
namespace
{
int open(const std::string& name)
{
    if (name.find('\0') != std::string::npos)
    {
        errno = EINVAL;
        return -1;
    }
    const auto path = name.find('/') == std::string::npos ? "/dev/" + name : name;
    // Without O_NONBLOCK a port waits for its carrier and a pipe for its other end.
    return ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
}

bool isSame(const termios& left, const termios& right)
{
    return left.c_iflag == right.c_iflag && left.c_oflag == right.c_oflag && left.c_cflag == right.c_cflag &&
           left.c_lflag == right.c_lflag && cfgetispeed(&left) == cfgetispeed(&right) &&
           cfgetospeed(&left) == cfgetospeed(&right);
}

/// Some adapters hold bytes back for 16 ms, which a read would take for the end of the text.
void latencyLower(int handle)
{
    serial_struct settings{};
    if (::ioctl(handle, TIOCGSERIAL, &settings) == 0)
    {
        settings.flags |= ASYNC_LOW_LATENCY;
        ::ioctl(handle, TIOCSSERIAL, &settings);
    }
}
} // namespace

Posix::Posix(const std::string& name_) : Abstract(name_), hCom(open(name))
{
    // Root passes TIOCEXCL, and programs that know of one of the two only are kept out by that one.
    const bool isOpen = hCom >= 0 && ::isatty(hCom) && ::flock(hCom, LOCK_EX | LOCK_NB) == 0 && settingsApply() &&
                        ::ioctl(hCom, TIOCEXCL) == 0;
    if (!isOpen)
    {
        std::cerr << t_common::printable("Opening " + name + ": " + std::strerror(errno)) + '\n';
        if (hCom >= 0)
            ::close(hCom);
        openFail();
    }
}

Posix::~Posix()
{
    // Where others have the device open, closing it leaves the mark.
    ::ioctl(hCom, TIOCNXCL);
    ::close(hCom);
}

bool Posix::settingsApply() const
{
    termios settings{};
    if (::tcgetattr(hCom, &settings) != 0)
        return false;
    cfmakeraw(&settings);
    settings.c_iflag &= ~static_cast<tcflag_t>(IXOFF | IXANY | INPCK);
    settings.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS);
    settings.c_cflag |= CLOCAL | CREAD;
    settings.c_cc[VMIN] = 1;
    settings.c_cc[VTIME] = 0;
    // Setting succeeds where a part of it does, so what came of it is read back.
    termios present{};
    if (cfsetspeed(&settings, B115200) != 0 || ::tcsetattr(hCom, TCSANOW, &settings) != 0 ||
        ::tcgetattr(hCom, &present) != 0)
        return false;
    if (!isSame(settings, present))
    {
        errno = EINVAL;
        return false;
    }
    // Neither is there at every port.
    const int lines = TIOCM_DTR | TIOCM_RTS;
    ::ioctl(hCom, TIOCMBIC, &lines);
    latencyLower(hCom);
    // What came before is no answer to this client.
    return ::tcflush(hCom, TCIFLUSH) == 0;
}

bool Posix::await(short events, Clock::time_point end) const
{
    while (true)
    {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd entry{hCom, events, 0};
        const int count = ::poll(&entry, 1, static_cast<int>(std::max<decltype(left)>(left, 0)));
        if (count >= 0 || errno != EINTR)
            return count != 0;
    }
}

Posix& Posix::textRead(std::string& text)
{
    char buffer[readSize];
    std::size_t count = 0;
    const auto end = Clock::now() + readLimit;
    auto next = end;
    do
    {
        if (!await(POLLIN, next))
            break;
        const auto size = ::read(hCom, buffer + count, sizeof buffer - count);
        if (size > 0)
        {
            count += static_cast<std::size_t>(size);
            next = std::min(end, Clock::now() + readPause);
        }
        else if (size == 0 || (errno != EAGAIN && errno != EINTR))
        {
            readFail(count);
        }
    } while (count < sizeof buffer && Clock::now() < end);
    text.assign(buffer, ::strnlen(buffer, count));
    return *this;
}

Posix& Posix::textWrite(const std::string& text)
{
    std::size_t count = 0;
    while (count < text.size())
    {
        const auto size = ::write(hCom, text.data() + count, text.size() - count);
        if (size > 0)
        {
            count += static_cast<std::size_t>(size);
            continue;
        }
        const bool isFull = size < 0 && errno == EAGAIN;
        const bool isInterrupted = size < 0 && errno == EINTR;
        if (!isInterrupted && !(isFull && await(POLLOUT, Clock::now() + t_common::limit::serialStall)))
            writeFail(count);
    }
    return *this;
}
} // namespace t_transfer::uart
