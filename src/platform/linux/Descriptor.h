#pragma once

#include <unistd.h>
#include <utility>

/// A file descriptor that closes itself; -1 is none.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) { }
    Descriptor(Descriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) { }
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor()
    {
        if (m_number >= 0) ::close(m_number);
    }

    int number() const { return m_number; }
    explicit operator bool() const { return m_number >= 0; }

private:
    int m_number = -1;
};
