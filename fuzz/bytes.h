// Bytes: a fuzzer's input, taken apart from the front; and the promise that a fuzzer checks.
// Not here: what is made of the values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

/// Ends the program with the line and the condition that does not hold.
#define REQUIRE(condition)                                                                         \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "%s:%d: not so: %s\n", __FILE__, __LINE__, #condition);           \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)

/// Zeros follow where the input ends.
class Bytes
{
public:
    Bytes(const std::uint8_t *bytes, std::size_t size)
        : m_next(bytes)
        , m_left(size)
    { }

    bool atEnd() const { return m_left == 0; }

    /// The next bytes as a plain value, in the machine's order.
    template <typename Value> Value take()
    {
        Value value = {};
        const std::size_t size = m_left < sizeof(Value) ? m_left : sizeof(Value);
        if (size > 0)
            std::memcpy(&value, m_next, size);
        skip(size);
        return value;
    }

    /// A small number: 0 .. `end` - 1.
    int below(int end) { return take<std::uint8_t>() % end; }

    bool flag() { return below(2) == 1; }

    /// As many bytes as the next one says.
    std::string text()
    {
        const std::size_t wanted = take<std::uint8_t>();
        const std::size_t size = m_left < wanted ? m_left : wanted;
        const std::string taken(reinterpret_cast<const char *>(m_next), size);
        skip(size);
        return taken;
    }

private:
    void skip(std::size_t size)
    {
        m_next += size;
        m_left -= size;
    }

    const std::uint8_t *m_next;
    std::size_t m_left;
};
