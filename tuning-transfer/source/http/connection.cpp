#include "tuning-transfer/source/http/connection.h"

#include "tuning-common/source/no-answer.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/error.hpp>

#include <future>
#include <stdexcept>
#include <thread>

namespace asio = boost::asio;
using boost::system::error_code;

namespace t_transfer::http
{
namespace
{
/// Setting up a context costs as much as a third of an exchange with a board that is near. Every operation has ended
/// when its step returns, so nothing is left in it for the next connection.
asio::io_context& contextOfThread()
{
    thread_local asio::io_context context(1);
    return context;
}
} // namespace

Connection::Connection(const Url& url, const TimeLimit& limit_)
    : name(url.authority()), limit(limit_), context(contextOfThread()), socket(context)
{
    const auto end = limit.next();
    connect(resolve(url, end), end);
}

void Connection::write(const char* pData, std::size_t size)
{
    while (size > 0)
    {
        error_code error;
        const auto count = socket.write_some(asio::buffer(pData, size), error);
        if (error == asio::error::would_block)
            error = await(limit.next(), [&](auto done) { socket.async_wait(Socket::wait_write, std::move(done)); });
        if (error)
            fail(error);
        pData += count;
        size -= count;
    }
}

std::size_t Connection::read(char* pData, std::size_t size)
{
    while (true)
    {
        error_code error =
            await(limit.next(), [&](auto done) { socket.async_wait(Socket::wait_read, std::move(done)); });
        const auto count = error ? 0 : socket.read_some(asio::buffer(pData, size), error);
        if (count > 0)
            limit.begun();
        if (!error || error == asio::error::eof)
            return count;
        if (error != asio::error::would_block)
            fail(error);
    }
}

void Connection::fail(const std::string& reason) const { throw t_common::NoAnswer(failureGet(reason)); }

void Connection::refuse(const std::string& reason) const { throw std::runtime_error(failureGet(reason)); }

std::string Connection::failureGet(const std::string& reason) const
{
    return "Connection to " + name + " failed: " + reason;
}

void Connection::fail(const error_code& error) const
{
    fail(error == asio::error::timed_out ? limit.text() : error.message());
}

std::vector<Connection::Endpoint> Connection::resolve(const Url& url, TimeLimit::Clock::time_point end) const
{
    error_code error;
    const auto address = asio::ip::make_address(url.host, error);
    if (!error)
        return {Endpoint(address, url.port)};
    struct Result
    {
        error_code error;
        std::vector<Endpoint> endpoints;
    };
    // The system's resolver knows no time limit; the thread is left behind when it is too slow.
    std::packaged_task<Result()> task(
        [host = url.host, port = url.port]
        {
            asio::io_context resolverContext;
            asio::ip::tcp::resolver resolver(resolverContext);
            Result result;
            const auto entries =
                resolver.resolve(host, std::to_string(port), asio::ip::resolver_base::numeric_service, result.error);
            for (const auto& entry : entries)
                result.endpoints.push_back(entry.endpoint());
            return result;
        });
    auto future = task.get_future();
    std::thread(std::move(task)).detach();
    if (future.wait_until(end) != std::future_status::ready)
        fail("the name could not be resolved in time, " + limit.text());
    const auto result = future.get();
    if (result.error)
        fail(result.error);
    return result.endpoints;
}

void Connection::connect(const std::vector<Endpoint>& endpoints, TimeLimit::Clock::time_point end)
{
    error_code error = asio::error::host_not_found;
    for (std::size_t i = 0; i < endpoints.size(); ++i)
    {
        // An address that swallows everything must leave time for the next one.
        const auto now = TimeLimit::Clock::now();
        const auto share = (end - now) / static_cast<int>(endpoints.size() - i);
        error = await(now + share, [&](auto done) { socket.async_connect(endpoints[i], std::move(done)); });
        if (!error)
        {
            error_code ignored;
            socket.non_blocking(true, ignored);
            socket.set_option(asio::ip::tcp::no_delay(true), ignored);
            if (limit.isSilence())
                socket.set_option(asio::socket_base::keep_alive(true), ignored);
            return;
        }
        error_code ignored;
        socket.close(ignored);
    }
    fail(error);
}

template <class Start>
error_code Connection::await(TimeLimit::Clock::time_point end, Start start)
{
    bool isDone = false;
    error_code result;
    start(
        [&](const error_code& error)
        {
            isDone = true;
            result = error;
        });
    context.restart();
    while (!isDone && context.run_one_until(end) > 0)
    {
    }
    if (!isDone)
    {
        // The operation refers to this frame, so it has to be over before the frame is.
        error_code ignored;
        socket.close(ignored);
        context.restart();
        context.run();
        return asio::error::timed_out;
    }
    return result;
}
} // namespace t_transfer::http
