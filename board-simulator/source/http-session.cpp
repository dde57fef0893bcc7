#include "board-simulator/source/http-session.h"

#include "board-simulator/source/spoil.h"
#include "board-wire/source/failure.h"

#include <algorithm>
#include <boost/asio/read.hpp>
#include <boost/asio/read_until.hpp>
#include <boost/asio/write.hpp>

namespace board
{

namespace asio = boost::asio;

namespace
{

constexpr size_t headMax = 64u << 10;
constexpr uint64_t commandMax = 64u << 20;
constexpr size_t chunkSize = 256u << 10;
// Of a file only its beginning is kept in the record of requests.
constexpr size_t fileKept = 64u << 10;
const char jsonType[] = "application/json";
const char fileType[] = "application/octet-stream";

} // namespace

HttpSession::HttpSession(asio::ip::tcp::socket connection, Exchange& boardExchange, const Files& boardFiles)
    : socket(std::move(connection)), timer(socket.get_executor()), exchange(boardExchange), files(boardFiles)
{
}

void HttpSession::start()
{
    ErrorCode ignored;
    socket.set_option(asio::ip::tcp::no_delay(true), ignored);
    input.reserve(4096);
    asio::async_read_until(socket, asio::dynamic_buffer(input, headMax), "\r\n\r\n",
                           [self = shared_from_this()](ErrorCode error, size_t size)
                           {
                               if (!error)
                                   self->headTake(size);
                           });
}

void HttpSession::close()
{
    ErrorCode ignored;
    timer.cancel();
    socket.close(ignored);
}

void HttpSession::headTake(size_t size)
{
    auto head = requestHeadParse(input.substr(0, size));
    input.erase(0, size);
    if (!head)
    {
        refuse(400, "Request not understood");
        return;
    }
    request = std::move(head->request);
    request.bodySize = head->length;
    input.resize(static_cast<size_t>(std::min<uint64_t>(input.size(), head->length)));
    rest = head->length - input.size();
    const auto name = request.method == "POST" ? uploadName(request.target) : std::nullopt;
    if (name)
        upload(*name);
    else if (request.method == "POST")
        commandRead();
    else if (request.method == "GET")
        download();
    else
        refuse(400, "Method not understood");
}

void HttpSession::commandRead()
{
    if (request.bodySize > commandMax)
    {
        refuse(413, "Command too long");
        return;
    }
    if (rest == 0)
    {
        commandRun();
        return;
    }
    const size_t present = input.size();
    input.resize(static_cast<size_t>(request.bodySize));
    asio::async_read(socket, asio::buffer(input.data() + present, input.size() - present),
                     [self = shared_from_this()](ErrorCode error, size_t)
                     {
                         if (!error)
                         {
                             self->rest = 0;
                             self->commandRun();
                         }
                     });
}

void HttpSession::commandRun()
{
    request.body = std::move(input);
    Reply reply = exchange.command(std::move(request));
    send(deliver(reply.fault, 200, jsonType, reply.text));
}

void HttpSession::download()
{
    const std::string name = percentDecode(request.target.substr(1));
    request.id = Fault::Download;
    exchange.record(std::move(request));
    fault = exchange.fault(Fault::Download);
    try
    {
        if (fault)
        {
            send(deliver(fault, 200, fileType, files.read(name)));
            return;
        }
        file = files.open(name);
    }
    catch (const Failure& failure)
    {
        refuse(404, failure.what());
        return;
    }
    rest = file.size();
    const std::string head = responseHead(200, fileType, rest);
    buffer.assign(head.begin(), head.end());
    buffer.resize(head.size() + static_cast<size_t>(std::min<uint64_t>(rest, chunkSize)));
    sent = head.size();
    downloadContinue();
}

/// Sends what the buffer holds before `sent`, with as much of the file behind it as fits.
void HttpSession::downloadContinue()
{
    size_t count = 0;
    try
    {
        count = file.read(buffer.data() + sent, buffer.size() - sent);
    }
    catch (const Failure&)
    {
        // The client sees the body end before its announced length.
    }
    const size_t size = sent + count;
    rest = count == 0 ? 0 : rest - std::min<uint64_t>(rest, count);
    sent = 0;
    asio::async_write(socket, asio::buffer(buffer.data(), size),
                      [self = shared_from_this()](ErrorCode error, size_t)
                      {
                          if (!error && self->rest > 0)
                              self->downloadContinue();
                          else
                              self->close();
                      });
}

void HttpSession::upload(const std::string& name)
{
    request.id = Fault::Upload;
    fault = exchange.fault(Fault::Upload);
    if (fault && fault->kind == Fault::Silence)
    {
        exchange.record(std::move(request));
        // Nothing is read either: the client's buffers fill up and its sending stalls.
        return pauseThen(std::chrono::hours(24), &HttpSession::close);
    }
    if (fault && isRefused(*fault))
        uploadError = fault->text.empty() ? "The board refuses" : fault->text;
    try
    {
        if (uploadError.empty())
            pUpload = std::make_unique<Upload>(files, name);
    }
    catch (const Failure& failure)
    {
        uploadError = failure.what();
    }
    buffer.resize(chunkSize);
    uploadTake(input.data(), input.size());
    uploadContinue();
}

void HttpSession::uploadTake(const char* pBytes, size_t size)
{
    request.body.append(pBytes, std::min(size, fileKept - request.body.size()));
    try
    {
        if (pUpload)
            pUpload->write(pBytes, size);
    }
    catch (const Failure& failure)
    {
        uploadError = failure.what();
        pUpload.reset();
    }
}

void HttpSession::uploadContinue()
{
    if (rest == 0)
    {
        uploadEnd();
        return;
    }
    const size_t size = static_cast<size_t>(std::min<uint64_t>(rest, buffer.size()));
    socket.async_read_some(asio::buffer(buffer.data(), size),
                           [self = shared_from_this()](ErrorCode error, size_t count)
                           {
                               self->uploadTake(self->buffer.data(), count);
                               self->rest -= count;
                               if (error)
                               {
                                   self->exchange.record(std::move(self->request));
                                   return;
                               }
                               self->uploadContinue();
                           });
}

void HttpSession::uploadEnd()
{
    try
    {
        if (pUpload)
            pUpload->finish();
    }
    catch (const Failure& failure)
    {
        uploadError = failure.what();
    }
    exchange.record(std::move(request));
    if (uploadError.empty())
        send(deliver(fault, 200, jsonType, "{\"error\":0}"));
    else
        refuse(400, uploadError);
}

void HttpSession::refuse(int status, const std::string& text)
{
    send(deliver(fault, status, "text/plain", text + "\n"));
}

void HttpSession::send(Delivery next)
{
    delivery = std::move(next);
    sent = 0;
    if (delivery.delay.count() > 0)
        pauseThen(delivery.delay, &HttpSession::sendPiece);
    else
        sendPiece();
}

void HttpSession::sendPiece()
{
    if (sent == delivery.bytes.size())
    {
        finish();
        return;
    }
    const size_t left = delivery.bytes.size() - sent;
    const size_t size = delivery.piece ? std::min(delivery.piece, left) : left;
    asio::async_write(socket, asio::buffer(delivery.bytes.data() + sent, size),
                      [self = shared_from_this()](ErrorCode error, size_t count)
                      {
                          self->sent += count;
                          if (error)
                              self->close();
                          else if (self->delivery.pause.count() > 0)
                              self->pauseThen(self->delivery.pause, &HttpSession::sendPiece);
                          else
                              self->sendPiece();
                      });
}

void HttpSession::pauseThen(std::chrono::milliseconds time, void (HttpSession::*next)())
{
    timer.expires_after(time);
    timer.async_wait(
        [self = shared_from_this(), next](ErrorCode error)
        {
            if (!error)
                (self.get()->*next)();
        });
}

void HttpSession::finish()
{
    ErrorCode ignored;
    if (delivery.end == Delivery::Reset)
    {
        socket.set_option(asio::socket_base::linger(true, 0), ignored);
    }
    else if (delivery.end == Delivery::Hold || rest > 0)
    {
        // Closing with unread bytes would reset the connection before the client has read a refusal.
        if (delivery.end != Delivery::Hold)
            socket.shutdown(asio::ip::tcp::socket::shutdown_send, ignored);
        buffer.resize(4096);
        drain();
        return;
    }
    close();
}

void HttpSession::drain()
{
    socket.async_read_some(asio::buffer(buffer),
                           [self = shared_from_this()](ErrorCode error, size_t)
                           {
                               if (!error)
                                   self->drain();
                           });
}

} // namespace board
