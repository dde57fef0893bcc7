#include "tests/simulator/fixture.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>

namespace
{

using board::Fault;

/// The client's end of the line, byte by byte.
class Port
{
public:
    explicit Port(const std::string& name) : descriptor(open(name.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {}
    ~Port() { close(descriptor); }
    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;

    void send(const std::string& bytes) const
    {
        ASSERT_EQ(write(descriptor, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }

    /// So many bytes, or fewer if the line has hung up or ten seconds have passed.
    std::string receive(size_t size) const
    {
        std::string bytes(size, '\0');
        size_t count = 0;
        pollfd entry{descriptor, POLLIN, 0};
        while (count < size && poll(&entry, 1, 10000) > 0)
        {
            const ssize_t step = read(descriptor, bytes.data() + count, size - count);
            if (step <= 0)
                break;
            count += static_cast<size_t>(step);
        }
        return bytes.substr(0, count);
    }

private:
    int descriptor;
};

class Serial : public BoardTest
{
protected:
    Serial() { simulator->serialSet(true); }

    std::vector<std::string> bodies() const
    {
        std::vector<std::string> list;
        for (const auto& request : simulator->requests())
            list.push_back(request.body);
        return list;
    }

    using Texts = std::vector<std::string>;

    const std::string command = "{\"function\":\"a}\\\"{\",\"generation\":0,\"id\":4000103}";
    const std::string answer = "{\"enable\":true,\"error\":0}";
};

} // namespace

TEST_F(Serial, CommandEndsWithItsObject)
{
    const Port port(simulator->serialName());
    for (const char c : command)
        port.send(std::string(1, c));
    EXPECT_EQ(port.receive(answer.size()), answer);
    port.send(command + "\n  " + command);
    EXPECT_EQ(port.receive(2 * answer.size()), answer + answer);
    EXPECT_EQ(bodies(), (Texts{command, command, "\n  " + command}));
    EXPECT_EQ(simulator->count(4000103), 3u);
    EXPECT_EQ(simulator->requests().front().head, "");
}

TEST_F(Serial, WhatIsNoCommandIsAnsweredAfterAPause)
{
    const Port port(simulator->serialName());
    const auto half = command.substr(0, 20);
    for (const auto& text : {half, std::string("}hello"), std::string("\x03\r\x11\xff\0", 5)})
    {
        port.send(text);
        EXPECT_EQ(port.receive(11), "{\"error\":1,") << text;
        EXPECT_EQ(bodies().back(), text);
        // The rest of the answer, whose end the next command makes known.
        simulator->faultSet({Fault::NotJson, 0, 1, 0, "end"});
        port.send(command);
        std::string bytes;
        while (!contains(bytes, "end"))
        {
            const auto byte = port.receive(1);
            ASSERT_EQ(byte.size(), 1u);
            bytes += byte;
        }
    }
}

TEST_F(Serial, SameBoardOnBothLines)
{
    const Port port(simulator->serialName());
    exchange(post(query("Ae", "enableSet", 0, R"({"enable":false})")));
    port.send(command);
    const std::string changed = "{\"enable\":false,\"error\":0}";
    EXPECT_EQ(port.receive(changed.size()), changed);
}

TEST_F(Serial, StopsWhileNobodyReads)
{
    const Port port(simulator->serialName());
    simulator->faultSet({Fault::Nesting});
    port.send(command);
    EXPECT_EQ(port.receive(10), "[[[[[[[[[[");
    simulator->stop();
    EXPECT_EQ(simulator->serialName(), "");
}
