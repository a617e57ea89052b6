// SPDX-License-Identifier: MIT
#include "settings/branding.h"

#include "base/text.h"

#include <array>

namespace tolvane::backend {

namespace {

constexpr std::array colours = {
    "primary",
    "accent",
    "chatBackground",
    "fontColorBasic",
    "fontColorUserBubble",
    "fontColorAgentBubble",
    "bubbleUser",
    "bubbleAgent",
};
constexpr std::array appearances = {"Light", "Dark"};
constexpr const char *updatedAt = "updatedAt";

bool isColour(std::string_view text)
{
    if (text.starts_with('#'))
        text.remove_prefix(1);
    return text.size() == 6 && text.find_first_not_of("0123456789ABCDEFabcdef") == text.npos;
}

// Changes only logos that begin with `from`.
void replacePrefix(Branding &branding, const std::string &from, const std::string &to)
{
    for (const char *appearance : appearances) {
        const std::string key = std::string("logo") + appearance;
        const std::string url = branding.value(key, Json()).is_string() ? branding[key] : "";
        if (url.starts_with(from))
            branding[key] = to + url.substr(from.size());
    }
}

} // namespace

Branding parseBranding(std::string_view text)
{
    const JsonNode node = JsonNode::parse(text);
    for (const std::string appearance : appearances) {
        for (const std::string colour : colours) {
            const JsonNode value = node.at(colour + appearance);
            if (!isColour(value.text()))
                value.fail("needs a colour like \"#1F5C4D\"");
        }
        if (node.has("logo" + appearance))
            node.at("logo" + appearance).text();
    }
    Branding branding = node.value();
    // A hash of the content, so that clients fetch the branding again only after it was edited.
    if (!node.has(updatedAt))
        branding[updatedAt] = sha256Hex(toText(branding));
    else
        node.at(updatedAt).text();
    return branding;
}

Branding parseEditedBranding(std::string_view text, const std::string &baseUrl)
{
    Branding branding = JsonNode::parse(text).object().value();
    branding.erase(updatedAt);
    replacePrefix(branding, baseUrl + '/', "/");
    return parseBranding(toText(branding));
}

Json brandingJson(Branding branding, const std::string &baseUrl)
{
    replacePrefix(branding, "/", baseUrl + '/');
    return branding;
}

} // namespace tolvane::backend
