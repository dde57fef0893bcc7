#include "tuning-transfer/source/http/exchange.h"

#include "tuning-common/source/limits.h"
#include "tuning-transfer/source/http/connection.h"

#include <boost/beast/core/buffers_range.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/parser.hpp>

#include <cstring>
#include <iterator>
#include <memory>

using boost::system::error_code;

namespace t_transfer::http
{
namespace
{
constexpr std::size_t pieceSize = 64 * t_common::limit::KiB;

/// Hands the body on as it comes, so that memory does not grow with it.
struct SinkBody
{
    using value_type = const Exchange::Sink*;

    class reader
    {
    public:
        template <bool IsRequest, class Fields>
        reader(boost::beast::http::header<IsRequest, Fields>&, value_type& pSink_) : pSink(pSink_)
        {
        }

        void init(const boost::optional<std::uint64_t>&, error_code& error) { error = {}; }

        template <class Buffers>
        std::size_t put(const Buffers& buffers, error_code& error)
        {
            error = {};
            std::size_t count = 0;
            for (const auto buffer : boost::beast::buffers_range_ref(buffers))
            {
                (*pSink)(static_cast<const char*>(buffer.data()), buffer.size());
                count += buffer.size();
            }
            return count;
        }

        void finish(error_code& error) { error = {}; }

    private:
        value_type& pSink;
    };
};

using Parser = boost::beast::http::response_parser<SinkBody>;

class Receiver
{
public:
    explicit Receiver(Connection& connection_) : connection(connection_) {}

    void head(Parser& parser)
    {
        while (!parser.is_header_done())
            step(parser);
    }

    void body(Parser& parser)
    {
        while (!parser.is_done())
            step(parser);
    }

private:
    void step(Parser& parser)
    {
        error_code error = boost::beast::http::error::need_more;
        if (begin < end)
        {
            if (!parser.is_header_done())
                repairStatusLine();
            begin += parser.put(boost::asio::buffer(pBuffer.get() + begin, end - begin), error);
        }
        if (error == boost::beast::http::error::need_more)
        {
            error = {};
            if (!fill())
            {
                if (parser.got_some())
                    parser.put_eof(error);
                if (error || !parser.got_some())
                    connection.fail("it was closed before the end of the answer");
            }
        }
        if (error)
            connection.refuse("unreadable answer, " + error.message());
    }

    bool fill()
    {
        std::memmove(pBuffer.get(), pBuffer.get() + begin, end - begin);
        end -= begin;
        begin = 0;
        // A byte stays free for the repair of the status line.
        if (end + 1 >= capacity)
            connection.refuse("unreadable answer, a line is too long");
        const auto count = connection.read(pBuffer.get() + end, capacity - end - 1);
        end += count;
        return count > 0;
    }

    /// Small boards leave out the reason together with the blank before it, which the parser insists on.
    void repairStatusLine()
    {
        constexpr std::size_t length = sizeof "HTTP/1.1 200" - 1;
        auto* pLine = pBuffer.get() + begin;
        if (end - begin >= length + 2 && std::memcmp(pLine + length, "\r\n", 2) == 0)
        {
            std::memmove(pLine + length + 1, pLine + length, end - begin - length);
            pLine[length] = ' ';
            ++end;
        }
    }

    static constexpr std::size_t capacity = t_common::limit::httpHead + pieceSize;

    Connection& connection;
    std::unique_ptr<char[]> pBuffer{new char[capacity]};
    std::size_t begin = 0;
    std::size_t end = 0;
};

void send(Connection& connection, const Exchange& exchange)
{
    connection.write(exchange.request.data(), exchange.request.size());
    if (exchange.fSource)
    {
        const std::unique_ptr<char[]> pPiece(new char[pieceSize]);
        while (const auto size = exchange.fSource(pPiece.get(), pieceSize))
            connection.write(pPiece.get(), size);
    }
}

void receive(Connection& connection, const Exchange& exchange)
{
    Receiver receiver(connection);
    for (std::size_t i = 0; i <= t_common::limit::httpInterim; ++i)
    {
        Parser parser;
        parser.header_limit(t_common::limit::httpHead);
        parser.body_limit(exchange.bodyLimit);
        parser.get().body() = &exchange.fSink;
        receiver.head(parser);
        const auto& fields = parser.get().base();
        if (static_cast<std::size_t>(std::distance(fields.begin(), fields.end())) > t_common::limit::httpFields)
            connection.refuse("unreadable answer, it has too many header fields");
        if (boost::beast::http::to_status_class(parser.get().result_int()) !=
            boost::beast::http::status_class::informational)
            return receiver.body(parser);
    }
    connection.refuse("no answer, only interim ones");
}
} // namespace

void Exchange::run(const TimeLimit& limit) const
{
    Connection connection(url, limit);
    send(connection, *this);
    receive(connection, *this);
}
} // namespace t_transfer::http
