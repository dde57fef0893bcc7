#include "board-simulator/source/delivery.h"

#include "board-simulator/source/spoil.h"

#include <algorithm>
#include <cstdio>

namespace board
{

namespace
{

const char* reason(int status)
{
    switch (status)
    {
    case 200:
        return "OK";
    case 400:
        return "Bad Request";
    case 404:
        return "Not Found";
    case 413:
        return "Content Too Large";
    case 500:
        return "Internal Server Error";
    default:
        return "Status";
    }
}

std::string statusLine(int status) { return "HTTP/1.1 " + std::to_string(status) + " " + reason(status) + "\r\n"; }

std::string fields(const std::string& contentType, const std::string& lengthField)
{
    return "Content-Type: " + contentType + "\r\n" + lengthField + "Connection: close\r\n\r\n";
}

std::string lengthField(uint64_t length) { return "Content-Length: " + std::to_string(length) + "\r\n"; }

std::string chunked(const std::string& body, size_t size)
{
    std::string text;
    for (size_t begin = 0; begin < body.size(); begin += size)
    {
        const std::string chunk = body.substr(begin, size);
        char length[32];
        std::snprintf(length, sizeof length, "%zx\r\n", chunk.size());
        text += length + chunk + "\r\n";
    }
    return text + "0\r\n\r\n";
}

std::string fillerFields(uint64_t size)
{
    std::string text;
    while (text.size() < size)
        text += "X-Filler: " + std::string(1000, 'f') + "\r\n";
    return text;
}

/// What faults do that every kind of line can have; `tail` is the size of the text at the end of the bytes.
void lineFault(const Fault& fault, Delivery& delivery, size_t tail)
{
    switch (fault.kind)
    {
    case Fault::Silence:
        delivery.bytes.clear();
        delivery.end = Delivery::Hold;
        break;
    case Fault::Delay:
        delivery.delay = std::chrono::milliseconds(fault.amountOr(1000));
        break;
    case Fault::Drip:
        delivery.piece = 1;
        delivery.pause = std::chrono::milliseconds(fault.amountOr(20));
        break;
    case Fault::Close:
        delivery.bytes.clear();
        break;
    case Fault::ResetInBody:
        delivery.bytes.resize(delivery.bytes.size() - tail + tail / 2);
        // Time for the client to take up the first half, which a reset would wipe out.
        delivery.piece = delivery.bytes.size();
        delivery.pause = std::chrono::milliseconds(20);
        delivery.end = Delivery::Reset;
        break;
    case Fault::Pieces:
        delivery.piece = fault.amountOr(16);
        delivery.pause = std::chrono::milliseconds(1);
        break;
    default:
        break;
    }
}

} // namespace

std::string responseHead(int status, const std::string& contentType, uint64_t length)
{
    return statusLine(status) + fields(contentType, lengthField(length));
}

Delivery deliver(const std::optional<Fault>& fault, int status, const std::string& contentType, const std::string& body)
{
    Delivery delivery;
    delivery.bytes = responseHead(status, contentType, body.size());
    delivery.bytes += body;
    if (!fault)
        return delivery;
    lineFault(*fault, delivery, body.size());
    const std::string chunkedField = "Transfer-Encoding: chunked\r\n";
    switch (fault->kind)
    {
    case Fault::BodyShort:
        delivery.bytes = responseHead(status, contentType, body.size() + fault->amountOr(10)) + body;
        break;
    case Fault::Chunked:
        delivery.bytes = statusLine(status) + fields(contentType, chunkedField) + chunked(body, fault->amountOr(7));
        break;
    case Fault::ChunkedCut:
    {
        const std::string chunks = chunked(body, std::max<size_t>(body.size(), 1));
        delivery.bytes = statusLine(status) + fields(contentType, chunkedField) + chunks.substr(0, chunks.size() / 2);
        break;
    }
    case Fault::NoLength:
        delivery.bytes = statusLine(status) + fields(contentType, "") + body;
        break;
    case Fault::HttpStatus:
        delivery.bytes = responseHead(static_cast<int>(fault->amountOr(500)), contentType, body.size()) + body;
        break;
    case Fault::NoReason:
        delivery.bytes = "HTTP/1.1 200\r\n" + fields(contentType, lengthField(body.size())) + body;
        break;
    case Fault::Continue:
        delivery.bytes.insert(0, "HTTP/1.1 100 Continue\r\n\r\n");
        break;
    case Fault::HeadHuge:
        delivery.bytes.insert(statusLine(status).size(), fillerFields(fault->amountOr(1u << 20)));
        break;
    case Fault::NotHttp:
        delivery.bytes = randomBytes(fault->amountOr(4096));
        break;
    default:
        break;
    }
    return delivery;
}

Delivery deliver(const std::optional<Fault>& fault, const std::string& text)
{
    Delivery delivery;
    delivery.bytes = text;
    if (fault)
    {
        lineFault(*fault, delivery, text.size());
        if (fault->kind == Fault::Close)
            delivery.end = Delivery::Reset;
    }
    return delivery;
}

} // namespace board
