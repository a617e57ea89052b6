// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <concepts>
#include <cstdio>
#include <string>
#include <string_view>

namespace tolvane::backend {

/// Writes JSON text directly. For a conversation of thousands of messages, building a QJsonDocument
/// would take longer than the query.
class JsonWriter
{
public:
    void open(char bracket)
    {
        separate();
        m_text += bracket;
        m_first = true;
    }

    void close(char bracket)
    {
        m_text += bracket;
        m_first = false;
    }

    void key(std::string_view name)
    {
        value(name);
        m_text += ':';
        m_first = true;
    }

    void value(std::string_view text)
    {
        separate();
        m_text += '"';
        for (const char character : text)
            escape(character);
        m_text += '"';
    }

    void raw(std::string_view json)
    {
        separate();
        m_text += json;
    }

    void field(std::string_view name, std::string_view text)
    {
        key(name);
        value(text);
    }

    // Constrained: a pointer to text would convert to bool.
    void field(std::string_view name, std::same_as<bool> auto value)
    {
        key(name);
        raw(value ? "true" : "false");
    }

    void optionalField(std::string_view name, std::string_view text)
    {
        if (!text.empty())
            field(name, text);
    }

    std::string take() { return std::move(m_text); }

private:
    void separate()
    {
        if (!m_first)
            m_text += ',';
        m_first = false;
    }

    void escape(char character)
    {
        if (character == '"' || character == '\\') {
            m_text += {'\\', character};
        } else if (static_cast<unsigned char>(character) < 0x20) {
            std::array<char, 8> code{};
            std::snprintf(code.data(), code.size(), "\\u%04x", static_cast<unsigned>(character));
            m_text += code.data();
        } else {
            m_text += character;
        }
    }

    std::string m_text;
    bool m_first = true;
};

} // namespace tolvane::backend
