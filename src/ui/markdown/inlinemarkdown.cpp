// SPDX-License-Identifier: MIT
#include "ui/markdown/inlinemarkdown.h"

#include "ui/markdown/emoji.h"
#include "ui/markdown/inlineparser.h"

#include <array>

namespace tolvane {

namespace {

using namespace markdown;

struct Element
{
    int style;
    const char *name;
};

// From the outermost to the innermost.
constexpr std::array elements = {Element{strong, "b"}, Element{emphasis, "i"},
                                 Element{strikethrough, "s"}, Element{code, "code"}};

QString enclosed(const QString &element, const QString &attributes, const QString &html)
{
    return QStringLiteral("<%1%2>%3</%1>").arg(element, attributes, html);
}

QString html(const InlineSpan &span, const QString &emojiFamily)
{
    QString html = withEmojiFont(span.text.toHtmlEscaped(), emojiFamily);
    html.replace(u'\n', QStringLiteral("<br/>"));
    for (auto element = elements.rbegin(); element != elements.rend(); ++element) {
        if (span.styles & element->style)
            html = enclosed(QString::fromLatin1(element->name), {}, html);
    }
    if (!span.link.isEmpty())
        html = enclosed(QStringLiteral("a"),
                        QStringLiteral(" href=\"%1\"").arg(span.link.toHtmlEscaped()), html);
    return html;
}

/// Merges adjacent spans with equal styles and links: unmatched delimiters are spans of their own.
InlineSpans merged(const InlineSpans &spans)
{
    InlineSpans result;
    for (const InlineSpan &span : spans) {
        if (span.text.isEmpty())
            continue;
        if (!result.isEmpty() && result.last().styles == span.styles &&
            result.last().link == span.link)
            result.last().text += span.text;
        else
            result += span;
    }
    return result;
}

QString textOf(const InlineSpans &spans)
{
    QString text;
    for (const InlineSpan &span : spans)
        text += span.text;
    return text;
}

} // namespace

FormattedText inlineMarkdown(const QString &source, const QString &emojiFamily)
{
    const InlineSpans spans = merged(parseInline(source));
    FormattedText result;
    QString body;
    for (const InlineSpan &span : spans) {
        const QString part = html(span, emojiFamily);
        result.isRich =
            result.isRich || span.styles != 0 || !span.link.isEmpty() || part.contains(u"<span");
        if (!span.link.isEmpty() && !result.links.contains(span.link))
            result.links += span.link;
        body += part;
    }
    result.text = result.isRich ? enclosed(QStringLiteral("div"),
                                           QStringLiteral(" style=\"white-space:pre-wrap\""), body)
                                : textOf(spans);
    return result;
}

QString withoutMarkdown(const QString &source)
{
    return textOf(parseInline(source));
}

} // namespace tolvane
