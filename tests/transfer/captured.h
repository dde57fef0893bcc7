#pragma once

#include <iostream>
#include <sstream>
#include <string>

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
