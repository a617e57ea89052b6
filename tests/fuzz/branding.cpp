// SPDX-License-Identifier: MIT
// The branding that is kept on the device: read whole or not at all, and every colour is one.
#include "backend/persistentstore.h"
#include "state/colorscheme.h"
#include "targets.h"
#include "testing/testplatform.h"

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
            "channels go from 0 to 1");
    require(Color::fromHex(u" \t"_s + text + u"\r\n"_s) == color, "blanks around it do not count");
    require(color.name().size() == 7, "it has a name");
    if (!text.trimmed().startsWith(u'#'))
        require(Color::fromHex(u'#' + text.trimmed()) == color, "a number sign does not count");
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
    require(persistentstore::branding() == kept, "what is kept again is the same");
    ColorScheme colors;
    colors.update(*kept);
    require(colors.logoLight == kept->logoLight, "logos are taken as they are");
    for (const QString &text : {kept->primaryLight, kept->accentDark, kept->bubbleAgentLight})
        checkColor(text);
}

} // namespace tolvane::fuzz
