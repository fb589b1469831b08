// A growing wide text that starts out on the stack.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>

namespace xe {

class WideBuffer
{
public:
    WideBuffer() = default;
    WideBuffer(const WideBuffer&) = delete;
    WideBuffer& operator=(const WideBuffer&) = delete;

    const wchar_t* data() const { return m_data; }
    std::size_t size() const { return m_size; }

    void append(std::size_t count, wchar_t ch) { std::fill_n(grow(count), count, ch); }

    /// From any character type; each is one element.
    template <class Char>
    void append(const Char* text, std::size_t count)
    {
        std::copy_n(text, count, grow(count));
    }

private:
    wchar_t* grow(std::size_t count)
    {
        if (count > m_capacity - m_size)
            moveToHeap(count);
        wchar_t* const end = m_data + m_size;
        m_size += count;
        return end;
    }

    void moveToHeap(std::size_t count)
    {
        // The string's own limit gives the standard exceptions for sizes beyond reason.
        std::wstring larger;
        larger.reserve(std::max(m_size + count, 2 * m_capacity));
        larger.assign(m_data, m_size);
        larger.resize(larger.capacity());
        m_heap.swap(larger);
        m_data = m_heap.data();
        m_capacity = m_heap.size();
    }

    wchar_t m_stack[256];
    std::wstring m_heap;
    wchar_t* m_data = m_stack;
    std::size_t m_size = 0;
    std::size_t m_capacity = std::size(m_stack);
};

} // namespace xe
