// SPDX-License-Identifier: MIT
#include "ui/markdown/inlinemarkdown.h"

#include "ui/markdown/markdownpieces.h"

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

QString html(const Piece &piece)
{
    QString html = piece.text.toHtmlEscaped();
    html.replace(u'\n', QStringLiteral("<br/>"));
    for (auto element = elements.rbegin(); element != elements.rend(); ++element) {
        if (piece.styles & element->style)
            html = enclosed(QString::fromLatin1(element->name), {}, html);
    }
    if (!piece.link.isEmpty())
        html = enclosed(QStringLiteral("a"),
                        QStringLiteral(" href=\"%1\"").arg(piece.link.toHtmlEscaped()), html);
    return html;
}

/// Merges adjacent spans that look alike, so that much punctuation adds no elements.
Pieces joined(const Pieces &pieces)
{
    Pieces result;
    for (const Piece &piece : pieces) {
        if (piece.text.isEmpty())
            continue;
        if (!result.isEmpty() && result.last().styles == piece.styles &&
            result.last().link == piece.link)
            result.last().text += piece.text;
        else
            result += piece;
    }
    return result;
}

QString textOf(const Pieces &pieces)
{
    QString text;
    for (const Piece &piece : pieces)
        text += piece.text;
    return text;
}

} // namespace

StyledText inlineMarkdown(const QString &source)
{
    const Pieces pieces = joined(piecesOf(source));
    StyledText result;
    QString body;
    for (const Piece &piece : pieces) {
        result.isRich = result.isRich || piece.styles != 0 || !piece.link.isEmpty();
        if (result.link.isEmpty())
            result.link = piece.link;
        body += html(piece);
    }
    result.text = result.isRich ? enclosed(QStringLiteral("div"),
                                           QStringLiteral(" style=\"white-space:pre-wrap\""), body)
                                : textOf(pieces);
    return result;
}

QString withoutMarkdown(const QString &source)
{
    return textOf(piecesOf(source));
}

} // namespace tolvane
