// SPDX-License-Identifier: MIT
#include "base/records.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace tolvane::backend {

namespace {

constexpr std::array<std::string_view, 3> authors = {"customer", "ai agent", "human agent"};
constexpr std::array<std::string_view, 2> states = {"open", "closed"};

template <typename Value, std::size_t count>
Value valueNamed(const std::array<std::string_view, count> &names, std::string_view name)
{
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end())
        throw std::runtime_error("unknown name in the database: " + std::string(name));
    return static_cast<Value>(found - names.begin());
}

} // namespace

std::string_view nameOf(Author author)
{
    return authors.at(static_cast<std::size_t>(author));
}

std::string_view nameOf(State state)
{
    return states.at(static_cast<std::size_t>(state));
}

Author authorNamed(std::string_view name)
{
    return valueNamed<Author>(authors, name);
}

State stateNamed(std::string_view name)
{
    return valueNamed<State>(states, name);
}

std::string filePath(std::string_view hash, std::string_view name)
{
    return std::string(hash) + '/' + std::string(name);
}

} // namespace tolvane::backend
