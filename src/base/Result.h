#pragma once

#include "base/Message.h"

#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

/// Either what was asked for or the sentence that tells the user why not and what to do about it, alone or with more.
template <class T, class Failure = Message>
class [[nodiscard]] Result {
public:
    Result(T value) : m_content(std::in_place_index<0>, std::move(value)) { }
    Result(Failure failure) : m_content(std::in_place_index<1>, std::move(failure)) { }
    Result(Message failure) requires(!std::is_same_v<Failure, Message>)
        : m_content(std::in_place_index<1>, std::move(failure))
    { }

    explicit operator bool() const { return m_content.index() == 0; }
    const T &value() const { return std::get<0>(m_content); }
    T &value() { return std::get<0>(m_content); }
    const Failure &failure() const { return std::get<1>(m_content); }

private:
    std::variant<T, Failure> m_content;
};

/// Success without a value is `{}`.
template <>
class [[nodiscard]] Result<void, Message> {
public:
    Result() = default;
    Result(Message failure) : m_failure(std::move(failure)) { }

    explicit operator bool() const { return !m_failure; }
    const Message &failure() const { return *m_failure; }

private:
    std::optional<Message> m_failure;
};
