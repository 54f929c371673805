#pragma once

// The names an enumeration's values go by in JSON and on the command line,
// as one table per enumeration: a value's name and the value of a name are
// read from the same rows, so the two directions cannot disagree.

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace vellumo {

template <typename Value>
struct NamedValue {
    Value value;
    const char* name;
};

template <typename Value, std::size_t Count>
using NameTable = std::array<NamedValue<Value>, Count>;

// The name of `value`; the first row's for a value the table lacks.
template <typename Value, std::size_t Count>
constexpr const char* NameOf(const NameTable<Value, Count>& table, Value value) {
    for (const NamedValue<Value>& row : table) {
        if (row.value == value) {
            return row.name;
        }
    }
    return table.front().name;
}

// The value named `name`, or nothing.
template <typename Value, std::size_t Count>
constexpr std::optional<Value> ValueNamed(const NameTable<Value, Count>& table,
                                          std::string_view name) {
    for (const NamedValue<Value>& row : table) {
        if (name == row.name) {
            return row.value;
        }
    }
    return std::nullopt;
}

}  // namespace vellumo
