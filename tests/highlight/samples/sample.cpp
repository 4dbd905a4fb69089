// A small queue that several threads share.
#pragma once
#include <condition_variable>
#include "queue/policy.h"

/*
 * The keywords class and "string" in here are comment.
 */
export module queue;
namespace shop::detail {

template<typename T>
concept Printable = requires(const T &t, std::ostream &out) { out << t; };

enum class State : std::uint8_t { Idle = 0b01, Busy = 0xFF };

template<Printable T, size_t N = 1'000>
class Queue final : public Base
{
    Q_OBJECT
public:
    explicit Queue(std::string_view name = "un\"named") noexcept : m_name(name) {}
    virtual ~Queue() = default;
    Queue &operator=(const Queue &) = delete;

    [[nodiscard("look at it")]] auto pop() -> std::optional<T>
    {
        const std::lock_guard lock(m_mutex);
        if (m_items.empty()) return std::nullopt; // nothing there
        if constexpr (std::is_same_v<T, int>)
            co_return static_cast<T>(m_items.front());
        return m_items[0] <=> 3.14e-2f; /* inline */ throw 1;
    }

private:
    mutable std::mutex m_mutex;
    std::vector<T> m_items {};
    const char *m_raw = R"(no "escape" \ needed)";
    char m_quote = '\'';
};

consteval int square(int x) { return x * x; }
static_assert(square(-4) == 16 and not false, "squares");

} // namespace shop::detail
