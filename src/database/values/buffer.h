#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

namespace ebtq {

/// A growing array of plain values on realloc: large blocks are remapped instead of copied when they grow,
/// and nothing is initialised that is about to be overwritten. Both show in the time and the peak of a large
/// list.
template<class T> class Buffer
{
    static_assert(std::is_trivially_copyable_v<T>);

public:
    Buffer() = default;
    Buffer(Buffer &&other) noexcept
        : m_data(std::exchange(other.m_data, nullptr))
        , m_size(std::exchange(other.m_size, 0))
        , m_capacity(std::exchange(other.m_capacity, 0))
    {}
    Buffer &operator=(Buffer &&other) noexcept
    {
        std::swap(m_data, other.m_data);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
        return *this;
    }
    Buffer(const Buffer &) = delete;
    Buffer &operator=(const Buffer &) = delete;
    ~Buffer() { std::free(m_data); }

    [[nodiscard]] const T *data() const { return m_data; }
    [[nodiscard]] size_t size() const { return m_size; }
    [[nodiscard]] size_t capacity() const { return m_capacity; }
    [[nodiscard]] const T &operator[](size_t at) const { return m_data[at]; }

    void push(T value)
    {
        if (m_size == m_capacity)
            grow(m_size + 1);
        m_data[m_size++] = value;
    }

    /// Room for `count` more values; what is written there counts once `advance` was called.
    T *reserveMore(size_t count)
    {
        if (m_capacity - m_size < count)
            grow(m_size + count);
        return m_data + m_size;
    }
    void advance(size_t count) { m_size += count; }

    void append(const T *values, size_t count)
    {
        if (count == 0)
            return;
        std::memcpy(reserveMore(count), values, count * sizeof(T));
        m_size += count;
    }

    /// Gives the unused tail back.
    void shrink()
    {
        if (m_size != 0)
            reallocate(m_size);
    }

private:
    void grow(size_t needed)
    {
        const size_t half = m_capacity + m_capacity / 2;
        reallocate(needed > half ? (needed < 64 ? 64 : needed) : half);
    }
    void reallocate(size_t capacity)
    {
        void *data = std::realloc(m_data, capacity * sizeof(T));
        if (!data)
            throw std::bad_alloc();
        m_data = static_cast<T *>(data);
        m_capacity = capacity;
    }

    T *m_data = nullptr;
    size_t m_size = 0;
    size_t m_capacity = 0;
};

} // namespace ebtq
