// SPDX-License-Identifier: MIT
// The branding that is stored on the device: decoded completely or not at all, with valid colours.
#include "backend/persistentstore.h"
#include "state/colorscheme.h"
#include "targets.h"
#include "testing/fixture.h"

#include <cmath>

namespace tolvane::fuzz {

namespace {

using namespace Qt::StringLiterals;

bool isChannel(double value)
{
    return std::isfinite(value) && value >= 0 && value <= 1;
}

void checkColor(const QString &text)
{
    const Color color = Color::fromHex(text);
    require(isChannel(color.red) && isChannel(color.green) && isChannel(color.blue),
            "colour channels are between 0 and 1");
    require(Color::fromHex(u" \t"_s + text + u"\r\n"_s) == color,
            "surrounding white space is ignored");
    require(color.name().size() == 7, "a colour has a name");
    if (!text.trimmed().startsWith(u'#'))
        require(Color::fromHex(u'#' + text.trimmed()) == color, "a leading number sign is ignored");
}

} // namespace

void branding(Input input)
{
    static auto &fixture = *new test::Fixture;
    const QByteArray bytes = input.rest();
    checkColor(QString::fromUtf8(bytes));
    fixture.preferences->values->insert(u"com.tolvane.sdk/branding"_s, bytes);
    const auto kept = persistentstore::branding();
    if (!kept)
        return;
    persistentstore::setBranding(kept);
    require(persistentstore::branding() == kept, "stored branding is read back unchanged");
    ColorScheme colors;
    colors.update(*kept);
    require(colors.logoLight == kept->logoLight, "logos are used unchanged");
    for (const QString &text : {kept->primaryLight, kept->accentDark, kept->bubbleAgentLight})
        checkColor(text);
}

} // namespace tolvane::fuzz
