#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace board
{

/// A failure on demand.
struct Fault
{
    enum Kind
    {
        // In the answer object.
        Error,          ///< `error` 1 and `message` (text); the command is not run, the upload not stored
        ErrorBare,      ///< `error` 1 without a message; the command is not run
        MessageControl, ///< an error whose message has control characters, colour sequences and markup
        MessageLong,    ///< an error with a message of `amount` bytes (1 MiB)
        RecordShort,    ///< records lack their last `amount` bytes (1)
        RecordLong,     ///< records have `amount` bytes more (1)
        Base64Broken,   ///< records that are not Base64
        WrongTypes,     ///< each result has another type; with `text` that key only, `error` and `message` included
        HostileNames,   ///< file names that lead elsewhere; with `text` that one
                        // In the text of the answer.
        NotJson,        ///< plain words, or `text`
        JsonCut,        ///< the first half of the answer
        Nesting,        ///< `amount` opening brackets (5 million)
        AnswerArray,    ///< `[]`
        AnswerNumber,   ///< `42`
        AnswerNull,     ///< `null`
        AnswerEmpty,    ///< a body without a byte
        RandomBytes,    ///< a body of `amount` random bytes (4096)
                        // On the line; these strike files on their way as well. A serial line knows `Silence`, `Delay`,
                     // `Drip` and `Pieces`, and it goes away where a connection would end; the others leave its answers
                     // as they are.
        Silence,     ///< takes the request and never answers; of an upload it takes the head only
        Delay,       ///< answers after `amount` ms (1000)
        Drip,        ///< one byte each `amount` ms (20)
        Close,       ///< closes the connection instead of answering
        ResetInBody, ///< resets the connection after half of the body
        BodyShort,   ///< announces `amount` bytes more (10) than it sends
        Chunked,     ///< chunked body, in chunks of `amount` bytes (7)
        ChunkedCut,  ///< chunked body that ends in the middle of a chunk
        NoLength,    ///< no length; the end of the connection ends the body
        HttpStatus,  ///< HTTP status `amount` (500) with the ordinary body
        NoReason,    ///< "HTTP/1.1 200" without a reason
        Continue,    ///< "100 Continue" before the answer
        Pieces,      ///< pieces of `amount` bytes (16) with a pause of 1 ms between them
        HeadHuge,    ///< `amount` bytes (1 MiB) of header fields
        NotHttp      ///< `amount` random bytes (4096) in place of head and body
    };

    /// Values of `id` beside those of commands.
    static constexpr int64_t Everything = 0;
    static constexpr int64_t Upload = -1;
    static constexpr int64_t Download = -2;

    Kind kind = Error;
    int64_t id = Everything;
    /// How many times it strikes; -1 until it is cleared.
    int count = -1;
    /// See `Kind`; 0 for the default told there.
    uint64_t amount = 0;
    std::string text = {};

    uint64_t amountOr(uint64_t standard) const { return amount ? amount : standard; }
};

/// The kind of that name, as the program's option "--fault" has it ("error", "record-short" and so on).
std::optional<Fault::Kind> faultKind(const std::string& name);
/// All names, in order.
const std::map<std::string, Fault::Kind>& faultKinds();

/// The faults that are set, one for each id. A fault for an id goes before the one for everything. Thread-safe.
class Faults
{
public:
    void set(const Fault& fault);
    void clear();
    /// The fault that strikes this exchange, counted down.
    std::optional<Fault> take(int64_t id);

private:
    std::mutex mutex;
    std::map<int64_t, Fault> faults;
};

} // namespace board
