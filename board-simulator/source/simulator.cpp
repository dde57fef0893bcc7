#include "board-simulator/source/simulator.h"

#include "board-simulator/source/board.h"
#include "board-simulator/source/exchange.h"
#include "board-simulator/source/http-server.h"
#include "board-simulator/source/samples.h"
#include "board-simulator/source/serial-line.h"

namespace board
{

class Simulator::Impl
{
public:
    explicit Impl(const Options& options) : files(options.directory), log(options.fRequest)
    {
        if (options.isSampled && files.list("").empty())
            samplesWrite(files);
        pServer = std::make_unique<HttpServer>(options.port, exchange, files);
        serialSet(options.isSerial);
    }

    std::string serialName() const
    {
        std::lock_guard lock(serialMutex);
        return pSerial ? pSerial->name() : "";
    }

    void serialSet(bool isPresent)
    {
        std::lock_guard lock(serialMutex);
        pSerial.reset();
        if (isPresent)
            pSerial = std::make_unique<SerialLine>(exchange);
    }

    Files files;
    Board board{files};
    RequestLog log;
    Faults faults;
    Exchange exchange{board, log, faults};
    std::unique_ptr<HttpServer> pServer;

private:
    mutable std::mutex serialMutex;
    std::unique_ptr<SerialLine> pSerial;
};

Simulator::Simulator(const Options& options) : pImpl(std::make_unique<Impl>(options)) {}

Simulator::~Simulator() = default;

uint16_t Simulator::port() const { return pImpl->pServer->port(); }

const std::string& Simulator::directory() const { return pImpl->files.directory(); }

std::string Simulator::serialName() const { return pImpl->serialName(); }

std::vector<Request> Simulator::requests() const { return pImpl->log.requests(); }

size_t Simulator::requestCount() const { return pImpl->log.count(); }

size_t Simulator::count(int64_t id) const { return pImpl->log.count(id); }

void Simulator::requestsClear() { pImpl->log.clear(); }

void Simulator::faultSet(const Fault& fault) { pImpl->faults.set(fault); }

void Simulator::faultsClear() { pImpl->faults.clear(); }

void Simulator::answerSet(int64_t id, const std::string& key, const Json::Value& value)
{
    pImpl->exchange.answerSet(id, key, value);
}

void Simulator::answersClear() { pImpl->exchange.answersClear(); }

Json::Value Simulator::execute(const Json::Value& query) { return pImpl->board.execute(query); }

std::string Simulator::recordGet(const std::string& className, int generation, const std::string& key)
{
    return pImpl->board.recordGet(className, generation, key);
}

void Simulator::recordSet(const std::string& className, int generation, const std::string& bytes,
                          const std::string& key)
{
    pImpl->board.recordSet(className, generation, bytes, key);
}

void Simulator::advance(int frames) { pImpl->board.advance(frames); }

double Simulator::meanLuminance() { return pImpl->board.meanLuminance(); }

void Simulator::listenSet(bool isListening) { pImpl->pServer->listenSet(isListening); }

void Simulator::serialSet(bool isPresent) { pImpl->serialSet(isPresent); }

void Simulator::stop()
{
    pImpl->pServer->stop();
    pImpl->serialSet(false);
}

} // namespace board
