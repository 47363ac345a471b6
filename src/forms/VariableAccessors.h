#pragma once
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "forms/ControlSystem.h"
#include "runtime/Arithmetic.h"
#include "runtime/Text.h"

namespace tessaly {

// Accessors that make a variable or a table readable and settable by name in
// the registry: scalar(x) as "X", table(t) as "T(3)", table2(t) as "T(3,0)".
// A wrong number of indexes or a field where none is known is refused.
namespace variable_access {

template <typename T>
std::string show(const T& value) {
    if constexpr (std::is_same_v<T, std::string>) return value;
    else return std::to_string(value);
}

template <typename T>
void assign(T& target, std::string_view value) {
    if constexpr (std::is_same_v<T, std::string>) target = std::string(value);
    else if constexpr (std::is_same_v<T, int16_t>) target = toInt16(static_cast<long long>(numericValue(value)));
    else if constexpr (std::is_same_v<T, int32_t>) target = toInt32(static_cast<long long>(numericValue(value)));
    else target = static_cast<T>(numericValue(value));
}

inline void expect(const std::vector<long>& indexes, std::size_t count, std::string_view field) {
    if (indexes.size() != count || !field.empty()) throw std::invalid_argument("wrong indexes or field");
}

}  // namespace variable_access

template <typename T>
VariableAccess scalar(T& ref) {
    using namespace variable_access;
    return {[&ref](const std::vector<long>& i, std::string_view f) { expect(i, 0, f); return show(ref); },
            [&ref](const std::vector<long>& i, std::string_view f, std::string_view v) { expect(i, 0, f); assign(ref, v); }};
}

template <typename Table>
VariableAccess table(Table& t) {
    using namespace variable_access;
    return {[&t](const std::vector<long>& i, std::string_view f) { expect(i, 1, f); return show(t[i[0]]); },
            [&t](const std::vector<long>& i, std::string_view f, std::string_view v) { expect(i, 1, f); assign(t[i[0]], v); }};
}

template <typename Table>
VariableAccess table2(Table& t) {
    using namespace variable_access;
    return {[&t](const std::vector<long>& i, std::string_view f) { expect(i, 2, f); return show(t(i[0], i[1])); },
            [&t](const std::vector<long>& i, std::string_view f, std::string_view v) { expect(i, 2, f); assign(t(i[0], i[1]), v); }};
}

}  // namespace tessaly
