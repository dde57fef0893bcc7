#pragma once

#include "board-simulator/source/delivery.h"
#include "board-simulator/source/exchange.h"
#include "board-simulator/source/files.h"
#include "board-simulator/source/http-request.h"

#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <memory>
#include <string>
#include <vector>

namespace board
{

/// One connection: one request and its answer. Lives as long as something is under way on it.
class HttpSession : public std::enable_shared_from_this<HttpSession>
{
public:
    HttpSession(boost::asio::ip::tcp::socket socket, Exchange& exchange, const Files& files);

    void start();
    /// Ends the connection wherever it is.
    void close();

private:
    using ErrorCode = boost::system::error_code;

    void headTake(size_t size);
    void commandRead();
    void commandRun();
    void download();
    void downloadContinue();
    void upload(const std::string& name);
    void uploadContinue();
    void uploadTake(const char* pBytes, size_t size);
    void uploadEnd();
    void refuse(int status, const std::string& text);
    void send(Delivery next);
    void sendPiece();
    void pauseThen(std::chrono::milliseconds time, void (HttpSession::*next)());
    void finish();
    void drain();

    boost::asio::ip::tcp::socket socket;
    boost::asio::steady_timer timer;
    Exchange& exchange;
    const Files& files;

    std::string input;
    Request request;
    /// Bytes of the body that are still to come.
    uint64_t rest = 0;
    Delivery delivery;
    size_t sent = 0;

    std::vector<char> buffer;
    FileHandle file;
    std::unique_ptr<Upload> pUpload;
    std::string uploadError;
    std::optional<Fault> fault;
};

} // namespace board
