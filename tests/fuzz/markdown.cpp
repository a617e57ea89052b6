// SPDX-License-Identifier: MIT
// Texts of messages: the HTML has only the allowed elements, properly nested.
#include "targets.h"
#include "ui/markdown/inlinemarkdown.h"

#include <QtCore/QStringList>

namespace tolvane::fuzz {

namespace {

using namespace Qt::StringLiterals;

const QString opening = u"<div style=\"white-space:pre-wrap\">"_s;
const QStringList elements = {u"b"_s, u"i"_s, u"s"_s, u"code"_s, u"a"_s};

bool isAllowedStart(const QString &tag)
{
    if (!tag.startsWith(u"a "_s))
        return elements.contains(tag) && tag != u"a"_s;
    const QString address = tag.mid(8).chopped(1);
    const bool isAddress = tag.startsWith(u"a href=\""_s) && tag.endsWith(u'"') &&
                           !address.contains(u'"') && !address.contains(u'<');
    const auto hasScheme = [&address](const QString &scheme) {
        return address.startsWith(scheme, Qt::CaseInsensitive);
    };
    return isAddress &&
           (hasScheme(u"https:"_s) || hasScheme(u"http:"_s) || hasScheme(u"mailto:"_s));
}

/// Parses the HTML strictly. Returns the text in it.
QString textIn(const QString &html)
{
    require(html.startsWith(opening) && html.endsWith(u"</div>"_s), "the HTML is one block");
    const QString body = html.sliced(opening.size()).chopped(6);
    QString text;
    QStringList open;
    for (qsizetype at = 0; at < body.size(); ++at) {
        if (body.at(at) != u'<') {
            text += body.at(at);
            continue;
        }
        const qsizetype end = body.indexOf(u'>', at);
        require(end > at, "tags end");
        const QString tag = body.mid(at + 1, end - at - 1);
        if (tag == u"br/"_s) {
            text += u'\n';
        } else if (tag.startsWith(u'/')) {
            require(!open.isEmpty() && open.takeLast() == tag.mid(1),
                    "elements are nested properly");
        } else {
            require(isAllowedStart(tag), "only allowed elements occur");
            open += tag.section(u' ', 0, 0);
        }
        at = end;
    }
    require(open.isEmpty(), "all elements are closed");
    text.replace(u"&lt;"_s, u"<"_s).replace(u"&gt;"_s, u">"_s).replace(u"&quot;"_s, u"\""_s);
    return text.replace(u"&amp;"_s, u"&"_s);
}

} // namespace

void markdown(Input input)
{
    const QString source = QString::fromUtf8(input.rest());
    const FormattedText styled = inlineMarkdown(source);
    const QString plain = withoutMarkdown(source);
    require(plain.size() <= source.size(), "the plain text is no longer than the source");
    require(styled.isRich ? textIn(styled.text) == plain : styled.text == plain,
            "rich and plain text agree");
    require(styled.isRich || styled.links.isEmpty(), "only rich text has a link");
    // Each character may have all styles and a link, and be escaped.
    require(styled.text.size() <=
                100 + 60 * source.size() + 6 * source.size() * styled.links.join(u' ').size(),
            "the size of the HTML is bounded");
}

} // namespace tolvane::fuzz
