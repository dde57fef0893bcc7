#pragma once

#include "tuning-transfer/source/http/time-limit.h"
#include "tuning-transfer/source/http/url.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>

#include <vector>

namespace t_transfer::http
{
/// One TCP connection whose every step blocks until it is done or the time limit has passed. Failures throw
/// `t_common::NoAnswer` with the address and the reason.
class Connection
{
public:
    Connection(const Url& url, const TimeLimit& limit_);

    void write(const char* pData, std::size_t size);

    /// Number of bytes that have come, 0 at the end of the stream.
    std::size_t read(char* pData, std::size_t size);

    /// There is no answer, or not all of it.
    [[noreturn]] void fail(const std::string& reason) const;

    /// What came is no answer that can be read: throws `std::runtime_error`.
    [[noreturn]] void refuse(const std::string& reason) const;

private:
    [[noreturn]] void fail(const boost::system::error_code& error) const;
    std::string failureGet(const std::string& reason) const;

    using Endpoint = boost::asio::ip::tcp::endpoint;
    using Socket = boost::asio::ip::tcp::socket;

    std::vector<Endpoint> resolve(const Url& url, TimeLimit::Clock::time_point end) const;
    void connect(const std::vector<Endpoint>& endpoints, TimeLimit::Clock::time_point end);

    /// Runs one asynchronous operation and gives its result.
    template <class Start>
    boost::system::error_code await(TimeLimit::Clock::time_point end, Start start);

    std::string name;
    TimeLimit limit;
    boost::asio::io_context& context;
    Socket socket;
};
} // namespace t_transfer::http
