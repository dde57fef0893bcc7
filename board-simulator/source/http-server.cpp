#include "board-simulator/source/http-server.h"

#include "board-simulator/source/http-session.h"

#include <algorithm>
#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <future>
#include <stdexcept>
#include <thread>

namespace board
{

namespace asio = boost::asio;
using asio::ip::tcp;
using ErrorCode = boost::system::error_code;

class HttpServer::Impl
{
public:
    Impl(uint16_t port, Exchange& boardExchange, const Files& boardFiles)
        : exchange(boardExchange), files(boardFiles), endpoint(asio::ip::address_v4::loopback(), port)
    {
        ErrorCode error = bind();
        if (!error)
            error = listen();
        if (error)
            throw std::runtime_error("Port " + std::to_string(port) + " is not available: " + error.message());
        thread = std::thread([this] { run(); });
    }

    ~Impl() { stop(); }

    uint16_t port() const { return endpoint.port(); }

    void listenSet(bool isListening)
    {
        std::promise<ErrorCode> done;
        asio::post(io,
                   [&]
                   {
                       if (isListening == isOpen)
                           return done.set_value({});
                       if (isListening)
                           return done.set_value(listen());
                       closeAll();
                       done.set_value(bind());
                   });
        if (const ErrorCode error = done.get_future().get())
            throw std::runtime_error("Port " + std::to_string(port()) + " is not available: " + error.message());
    }

    void stop()
    {
        if (thread.joinable())
        {
            asio::post(io,
                       [this]
                       {
                           closeAll();
                           io.stop();
                       });
            thread.join();
        }
    }

    bool isRunning() const { return thread.joinable(); }

private:
    /// Takes the port, and with it keeps it from others while nobody listens.
    ErrorCode bind()
    {
        ErrorCode error;
        acceptor.open(tcp::v4(), error);
        acceptor.set_option(tcp::acceptor::reuse_address(true), error);
        acceptor.bind(endpoint, error);
        if (!error)
            endpoint = acceptor.local_endpoint(error);
        return error;
    }

    ErrorCode listen()
    {
        ErrorCode error;
        acceptor.listen(asio::socket_base::max_listen_connections, error);
        isOpen = !error;
        if (isOpen)
            accept();
        return error;
    }

    void accept()
    {
        acceptor.async_accept(
            [this](ErrorCode error, tcp::socket socket)
            {
                if (!isOpen)
                    return;
                if (error)
                {
                    // Out of descriptors, most likely: some will come back.
                    retryTimer.expires_after(std::chrono::milliseconds(10));
                    retryTimer.async_wait([this](ErrorCode waitError) { waitError ? void() : accept(); });
                    return;
                }
                auto isGone = [](const std::weak_ptr<HttpSession>& pSession) { return pSession.expired(); };
                sessions.erase(std::remove_if(sessions.begin(), sessions.end(), isGone), sessions.end());
                auto pSession = std::make_shared<HttpSession>(std::move(socket), exchange, files);
                sessions.push_back(pSession);
                pSession->start();
                accept();
            });
    }

    void closeAll()
    {
        isOpen = false;
        ErrorCode ignored;
        acceptor.close(ignored);
        retryTimer.cancel();
        for (const auto& pWeak : sessions)
            if (auto pSession = pWeak.lock())
                pSession->close();
        sessions.clear();
    }

    void run()
    {
        while (!io.stopped())
        {
            try
            {
                io.run();
            }
            catch (const std::exception&)
            {
                // That connection is lost; the others go on.
            }
        }
    }

    Exchange& exchange;
    const Files& files;
    // One thread runs it, which spares its locks.
    asio::io_context io{1};
    asio::executor_work_guard<asio::io_context::executor_type> work{io.get_executor()};
    tcp::endpoint endpoint;
    tcp::acceptor acceptor{io};
    asio::steady_timer retryTimer{io};
    std::vector<std::weak_ptr<HttpSession>> sessions;
    bool isOpen = false;
    std::thread thread;
};

HttpServer::HttpServer(uint16_t port, Exchange& exchange, const Files& files)
    : pImpl(std::make_unique<Impl>(port, exchange, files))
{
}

HttpServer::~HttpServer() = default;

uint16_t HttpServer::port() const { return pImpl->port(); }

void HttpServer::listenSet(bool isListening)
{
    if (pImpl->isRunning())
        pImpl->listenSet(isListening);
}

void HttpServer::stop() { pImpl->stop(); }

} // namespace board
