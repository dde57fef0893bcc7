#pragma once

#include <chrono>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>

/// Takes what is written to a stream while it lives.
class Captured
{
public:
    explicit Captured(std::ostream& stream_ = std::cout) : stream(stream_), pBuffer(stream.rdbuf(text.rdbuf())) {}
    ~Captured() { stream.rdbuf(pBuffer); }
    Captured(const Captured&) = delete;
    Captured& operator=(const Captured&) = delete;

    std::string get() const { return text.str(); }

private:
    std::ostringstream text;
    std::ostream& stream;
    std::streambuf* pBuffer;
};

/// The text of the exception that `action` throws, empty for none. One of another kind is a failure of the test.
template <class Exception = std::exception, class Action>
std::string failureOf(Action action)
{
    try
    {
        action();
    }
    catch (const Exception& exception)
    {
        return exception.what();
    }
    return {};
}

inline bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

inline bool startsWith(const std::string& text, const std::string& start) { return text.rfind(start, 0) == 0; }

inline std::string repeated(size_t count, const std::string& text)
{
    std::string result;
    for (size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

class Stopwatch
{
public:
    double seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(); }

private:
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

/// Looks again and again, for ten seconds at most.
template <class Condition>
bool await(Condition condition)
{
    for (const Stopwatch stopwatch; !condition();)
    {
        if (stopwatch.seconds() > 10)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}
