// SPDX-License-Identifier: MIT
#include "base/jsonnode.h"

#include "base/errors.h"

#include <algorithm>
#include <cmath>

namespace tolvane::backend {

namespace {

// Values are written recursively.
constexpr int maxDepth = 500;

bool checkDepth(int depth, Json::parse_event_t, const Json &)
{
    if (depth > maxDepth)
        throw InputError("is nested too deeply");
    return true;
}

} // namespace

std::string toText(const Json &json)
{
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

JsonNode::JsonNode(std::shared_ptr<const Json> value, std::string position)
    : m_value(std::move(value))
    , m_position(std::move(position))
{
}

JsonNode JsonNode::parse(std::string_view text)
{
    try {
        return {std::make_shared<const Json>(Json::parse(text, checkDepth)), {}};
    } catch (const Json::exception &error) {
        const std::string_view what = error.what();
        // The library's message begins with its own name in brackets.
        throw InputError("is not valid JSON: " + std::string(what.substr(what.find(' ') + 1)));
    }
}

void JsonNode::fail(const std::string &reason) const
{
    throw InputError(m_position.empty() ? reason : "at " + m_position + ": " + reason);
}

const JsonNode &JsonNode::object() const
{
    if (!m_value->is_object())
        fail("needs an object");
    return *this;
}

const JsonNode &JsonNode::withFields(std::initializer_list<std::string_view> fields) const
{
    for (const auto &field : object().value().items()) {
        if (std::find(fields.begin(), fields.end(), field.key()) == fields.end())
            fail("unknown field '" + field.key() + "'; the fields are " + toText(Json(fields)));
    }
    return *this;
}

JsonNode JsonNode::at(const std::string &key) const
{
    static const Json missing;
    const auto found = object().value().find(key);
    return {{m_value, found == m_value->end() ? &missing : &*found},
            m_position.empty() ? key : m_position + '.' + key};
}

std::vector<JsonNode> JsonNode::list() const
{
    if (!m_value->is_array())
        fail("needs a list");
    std::vector<JsonNode> nodes;
    for (const Json &element : *m_value)
        nodes.push_back(
            {{m_value, &element}, m_position + '[' + std::to_string(nodes.size()) + ']'});
    return nodes;
}

std::vector<JsonNode> JsonNode::list(const std::string &key) const
{
    return has(key) ? at(key).list() : std::vector<JsonNode>();
}

std::string JsonNode::text() const
{
    if (!m_value->is_string() || m_value->get_ref<const std::string &>().empty())
        fail("needs a string");
    return m_value->get<std::string>();
}

std::optional<std::string> JsonNode::optionalText(const std::string &key) const
{
    const JsonNode node = at(key);
    if (node.value().is_null())
        return std::nullopt;
    return node.value() == "" ? std::string() : node.text();
}

double JsonNode::number(double maximum) const
{
    const double number = m_value->is_number() ? m_value->get<double>() : -1;
    if (number < 0 || number > maximum)
        fail("needs a number from 0 to " + std::to_string(std::lround(maximum)));
    return number;
}

bool JsonNode::flag() const
{
    if (!m_value->is_boolean())
        fail("needs true or false");
    return m_value->get<bool>();
}

} // namespace tolvane::backend
