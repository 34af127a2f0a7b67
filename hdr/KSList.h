// SPDX-License-Identifier: MIT
// The toolkit's growable list: items by value, in the order in which they were appended.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

// Items lie one behind the other in memory. A copy of a list has copies of its items.
template <class T> class KSList {
public:
    // Returns the number of items.
    long CountItems() const { return static_cast<long>(_items.size()); }
    bool IsEmpty() const { return _items.empty(); }

    // Returns the item at `index`, 0 to CountItems() - 1, or null for any other index. The pointer is
    // valid until the list next changes.
    T* ItemAt(long index) { return Holds(index) ? &_items[static_cast<std::size_t>(index)] : nullptr; }
    const T* ItemAt(long index) const {
        return Holds(index) ? &_items[static_cast<std::size_t>(index)] : nullptr;
    }

    // Appends a copy of `item`. Throws std::bad_alloc with the list as it was.
    void AddItem(T item) { _items.push_back(std::move(item)); }
    void MakeEmpty() { _items.clear(); }

    // Iterate over the items in order; valid until the list next changes.
    auto begin() { return _items.begin(); }
    auto end() { return _items.end(); }
    auto begin() const { return _items.begin(); }
    auto end() const { return _items.end(); }

private:
    bool Holds(long index) const { return index >= 0 && index < CountItems(); }

    std::vector<T> _items;
};
