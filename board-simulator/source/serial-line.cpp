#include "board-simulator/source/serial-line.h"

#include "board-simulator/source/command-end.h"
#include "board-simulator/source/delivery.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <poll.h>
#include <stdexcept>
#include <sys/eventfd.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace board
{

namespace
{

using std::chrono::milliseconds;

constexpr size_t commandMax = 64u << 20;
// Half a command is given up after it, so that the next one is understood.
constexpr milliseconds commandPause{1000};
// When nobody reads for that long the rest is lost, as on a wire.
constexpr milliseconds roomPause{500};

/// A file descriptor with an owner.
class Descriptor
{
public:
    explicit Descriptor(int descriptor) : value(descriptor) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return value; }

    void close()
    {
        if (value >= 0)
        {
            ::close(value);
            value = -1;
        }
    }

private:
    int value;
};

} // namespace

class SerialLine::Impl
{
public:
    explicit Impl(Exchange& boardExchange)
        : exchange(boardExchange),
          stopper(::eventfd(0, EFD_CLOEXEC)),
          master(masterOpen()),
          path(slaveName()),
          slave(::open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        termios settings{};
        check(stopper.get() >= 0 && slave.get() >= 0 && ::tcgetattr(slave.get(), &settings) == 0);
        // A terminal of people would send the board its own answers back.
        cfmakeraw(&settings);
        check(::tcsetattr(slave.get(), TCSANOW, &settings) == 0);
        thread = std::thread([this] { run(); });
    }

    ~Impl()
    {
        ::eventfd_write(stopper.get(), 1);
        thread.join();
    }

    std::string name() const
    {
        std::lock_guard lock(mutex);
        return isGone ? "" : path;
    }

private:
    static void check(bool isDone)
    {
        if (!isDone)
            throw std::runtime_error(std::string("No pseudo-terminal is available: ") + std::strerror(errno));
    }

    static int masterOpen()
    {
        const int descriptor = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        check(descriptor >= 0);
        return descriptor;
    }

    std::string slaveName() const
    {
        char text[64];
        check(::grantpt(master.get()) == 0 && ::unlockpt(master.get()) == 0 &&
              ::ptsname_r(master.get(), text, sizeof text) == 0);
        return text;
    }

    static bool isRepeatable() { return errno == EAGAIN || errno == EINTR; }

    enum class Event
    {
        Ready,
        Timeout,
        Stop
    };

    /// Waits for the line, for the end of the time, -1 for ever, or for the order to stop.
    Event wait(short events, int time) const
    {
        pollfd entries[] = {{stopper.get(), POLLIN, 0}, {master.get(), events, 0}};
        int count = 0;
        do
        {
            count = ::poll(entries, 2, time);
        } while (count < 0 && errno == EINTR);
        if (entries[0].revents)
            return Event::Stop;
        return count > 0 ? Event::Ready : Event::Timeout;
    }

    void run()
    {
        std::string input;
        CommandEnd end;
        while (true)
        {
            const bool isHalf = input.find_first_not_of(" \t\r\n") != std::string::npos;
            const Event event = wait(POLLIN, isHalf ? static_cast<int>(commandPause.count()) : -1);
            bool isOver = event == Event::Timeout || input.size() > commandMax;
            if (event == Event::Stop || (event == Event::Ready && !receive(input)))
                return;
            while (end.find(input) || isOver)
            {
                isOver = false;
                Request request;
                request.body = input.substr(0, end.position());
                request.bodySize = request.body.size();
                input.erase(0, end.position());
                end = {};
                if (!answer(std::move(request)))
                    return;
            }
        }
    }

    bool receive(std::string& input) const
    {
        char buffer[65536];
        const ssize_t count = ::read(master.get(), buffer, sizeof buffer);
        if (count < 0)
            return isRepeatable();
        input.append(buffer, static_cast<size_t>(count));
        return count > 0;
    }

    /// False when that was the last thing that the line did.
    bool answer(Request request)
    {
        const Reply reply = exchange.command(std::move(request));
        const Delivery delivery = deliver(reply.fault, reply.text);
        if (!pause(delivery.delay) || !send(delivery))
            return false;
        if (delivery.end != Delivery::Reset)
            return true;
        // Whoever sees it gone finds no name any more.
        std::lock_guard lock(mutex);
        isGone = true;
        slave.close();
        master.close();
        return false;
    }

    bool pause(milliseconds time) const
    {
        return time.count() == 0 || wait(0, static_cast<int>(time.count())) != Event::Stop;
    }

    bool send(const Delivery& delivery) const
    {
        size_t sent = 0;
        while (sent < delivery.bytes.size())
        {
            const size_t left = delivery.bytes.size() - sent;
            const size_t size = delivery.piece ? std::min(delivery.piece, left) : left;
            const ssize_t count = ::write(master.get(), delivery.bytes.data() + sent, size);
            if (count < 0)
            {
                if (!isRepeatable())
                    return false;
                const Event event = wait(POLLOUT, static_cast<int>(roomPause.count()));
                if (event != Event::Ready)
                    return event == Event::Timeout;
                continue;
            }
            sent += static_cast<size_t>(count);
            if (!pause(delivery.pause))
                return false;
        }
        return true;
    }

    Exchange& exchange;
    Descriptor stopper;
    Descriptor master;
    std::string path;
    // Held open, since without it the line hangs up whenever a client leaves.
    Descriptor slave;
    mutable std::mutex mutex;
    bool isGone = false;
    std::thread thread;
};

SerialLine::SerialLine(Exchange& exchange) : pImpl(std::make_unique<Impl>(exchange)) {}

SerialLine::~SerialLine() = default;

std::string SerialLine::name() const { return pImpl->name(); }

} // namespace board
