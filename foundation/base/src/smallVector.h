// SmallVector: a vector of trivially copyable values that keeps its first N elements inline,
// so short lists (callback handlers, dispatcher links) never touch the heap.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>

namespace Zr {

template <class T, std::size_t N>
class SmallVector {
    static_assert(std::is_trivially_copyable_v<T>, "SmallVector holds trivially copyable values");

public:
    SmallVector() = default;
    SmallVector(SmallVector const& o) { assign(o); }
    SmallVector& operator=(SmallVector const& o) {
        if (this != &o) {
            _size = 0;
            assign(o);
        }
        return *this;
    }
    ~SmallVector() {
        if (_data != inlineData())
            std::free(_data);
    }

    std::size_t size() const { return _size; }
    bool empty() const { return _size == 0; }
    T* begin() { return _data; }
    T* end() { return _data + _size; }
    T const* begin() const { return _data; }
    T const* end() const { return _data + _size; }
    T& operator[](std::size_t i) { return _data[i]; }
    T const& operator[](std::size_t i) const { return _data[i]; }
    T& back() { return _data[_size - 1]; }

    void push_back(T const& v) { insert(_size, v); }
    void insert(std::size_t pos, T const& v) {
        if (_size == _capacity)
            grow(_capacity * 2);
        std::memmove(_data + pos + 1, _data + pos, (_size - pos) * sizeof(T));
        _data[pos] = v;
        ++_size;
    }
    void erase(std::size_t pos) {
        std::memmove(_data + pos, _data + pos + 1, (_size - pos - 1) * sizeof(T));
        --_size;
    }
    void pop_back() { --_size; }
    void clear() { _size = 0; }
    // Index of the first element equal to v, or size() if there is none.
    std::size_t indexOf(T const& v) const {
        for (std::size_t i = 0; i < _size; ++i)
            if (_data[i] == v)
                return i;
        return _size;
    }
    bool contains(T const& v) const { return indexOf(v) != _size; }

private:
    T* inlineData() { return reinterpret_cast<T*>(_inline); }
    void assign(SmallVector const& o) {
        if (o._size > _capacity)
            grow(o._size);
        std::memcpy(_data, o._data, o._size * sizeof(T));
        _size = o._size;
    }
    void grow(std::size_t capacity) {
        T* data = static_cast<T*>(std::malloc(capacity * sizeof(T)));
        if (!data)
            throw std::bad_alloc();
        std::memcpy(data, _data, _size * sizeof(T));
        if (_data != inlineData())
            std::free(_data);
        _data = data;
        _capacity = capacity;
    }

    alignas(T) unsigned char _inline[N * sizeof(T)];
    T* _data = inlineData();
    std::size_t _size = 0;
    std::size_t _capacity = N;
};

} // namespace Zr
