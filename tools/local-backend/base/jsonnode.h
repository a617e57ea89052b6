// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::backend {

using Json = nlohmann::ordered_json;

/// The text on one line. Invalid UTF-8 is replaced.
std::string toText(const Json &json);

/// A value of JSON from outside, with its position in the document. Functions throw an InputError
/// that names the position when the value is not what they need.
class JsonNode
{
public:
    static JsonNode parse(std::string_view text);

    const Json &value() const { return *m_value; }
    [[noreturn]] void fail(const std::string &reason) const;

    const JsonNode &object() const;
    /// Requires an object with no other fields than these.
    const JsonNode &withFields(std::initializer_list<std::string_view> fields) const;
    bool has(const std::string &key) const { return m_value->contains(key); }
    /// A field of an object, null when it is missing.
    JsonNode at(const std::string &key) const;

    std::vector<JsonNode> list() const;
    /// Empty when the field is missing.
    std::vector<JsonNode> list(const std::string &key) const;
    /// A text that is not empty.
    std::string text() const;
    /// A text that may be empty; nullopt when the field is missing or null.
    std::optional<std::string> optionalText(const std::string &key) const;
    double number(double maximum) const;
    bool flag() const;

private:
    JsonNode(std::shared_ptr<const Json> value, std::string position);

    /// Keeps the whole document alive.
    std::shared_ptr<const Json> m_value;
    std::string m_position;
};

} // namespace tolvane::backend
