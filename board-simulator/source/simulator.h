#pragma once

#include "board-simulator/source/fault.h"
#include "board-simulator/source/request-log.h"

#include <cstdint>
#include <functional>
#include <json/json.h>
#include <memory>
#include <string>
#include <vector>

namespace board
{

struct Options
{
    /// 0 takes a free one.
    uint16_t port = 0;
    /// The board's one directory; made if it is not there.
    std::string directory;
    /// Puts drivers, a picture, a calibration and a 3A file into a directory that has no files yet.
    bool isSampled = false;
    /// Serves commands at a pseudo-terminal as well.
    bool isSerial = false;
    /// Is told of each request as it comes in, on a thread of the board.
    std::function<void(const Request&)> fRequest = {};
};

/// A whole board at 127.0.0.1, serving from its construction on, on a thread of its own. Thread-safe.
class Simulator
{
public:
    /// Throws `std::runtime_error` if a line or the directory is not available.
    explicit Simulator(const Options& options);
    ~Simulator();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    uint16_t port() const;
    const std::string& directory() const;
    /// The path of the pseudo-terminal, empty where there is none.
    std::string serialName() const;

    /// What came in since the start or the last clearing, byte for byte.
    std::vector<Request> requests() const;
    size_t requestCount() const;
    /// Requests with that number of a command, or `Fault::Upload` or `Fault::Download`.
    size_t count(int64_t id) const;
    void requestsClear();

    /// Replaces the fault of the same `id`.
    void faultSet(const Fault& fault);
    void faultsClear();

    /// Puts a value into all later answers of a command; null leaves the key out.
    void answerSet(int64_t id, const std::string& key, const Json::Value& value);
    void answersClear();

    /// Runs a command as if it had come from a client, unrecorded, without faults and without `answerSet`.
    Json::Value execute(const Json::Value& query);
    /// The bytes of a record: a configuration or, failing that, a status, by its key. The class is named without
    /// "rest::". Throws `std::out_of_range` if there is none.
    std::string recordGet(const std::string& className, int generation, const std::string& key = "config");
    /// Throws `std::runtime_error` for bytes of the wrong number.
    void recordSet(const std::string& className, int generation, const std::string& bytes,
                   const std::string& key = "config");

    /// Frames of the exposure loop at once, without waiting for real time.
    void advance(int frames);
    /// The mean of the picture that the camera sees, 0 to 255.
    double meanLuminance();

    /// False is a board that is gone: connections end and new ones are refused. True is back on the same port.
    void listenSet(bool isListening);
    /// False is a serial device that is unplugged. True plugs it in, perhaps under another name.
    void serialSet(bool isPresent);
    /// Ends all connections at once. Commands can still be executed directly.
    void stop();

private:
    class Impl;
    std::unique_ptr<Impl> pImpl;
};

} // namespace board
