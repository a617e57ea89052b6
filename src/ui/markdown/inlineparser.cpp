// SPDX-License-Identifier: MIT
#include "ui/markdown/inlineparser.h"

#include "ui/markdown/links.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QStringView>

#include <algorithm>
#include <optional>

namespace tolvane::markdown {

namespace {

bool isAsciiPunctuation(QChar c)
{
    return c.unicode() < 0x80 && (c.isPunct() || c.isSymbol());
}

bool isPunctuation(QChar c)
{
    return c.isPunct() || c.isSymbol();
}

/// Parses a text from its beginning to its end.
class InlineParser
{
public:
    explicit InlineParser(const QString &source)
        : m_text(source)
    {
    }

    InlineSpans read()
    {
        while (m_at < m_source.size()) {
            if (!readSpecial())
                addText(m_source.sliced(m_at, 1), 1);
        }
        applyEmphasis(m_spans, 0);
        return std::move(m_spans);
    }

private:
    struct Bracket
    {
        qsizetype span;
        bool isImage;
    };

    /// A line break outside of the text.
    QChar at(qsizetype position) const
    {
        return position >= 0 && position < m_source.size() ? m_source.at(position) : QChar(u'\n');
    }

    bool readSpecial()
    {
        switch (at(m_at).unicode()) {
        case u'\\':
            return readEscape();
        case u'`':
            return readCode();
        case u'*':
        case u'_':
        case u'~':
            return readDelimiters();
        case u'<':
            return readAutolink();
        case u'[':
            return readBracket();
        case u']':
            return readLink();
        case u'h':
            return readBareUrl();
        default:
            return false;
        }
    }

    void addText(QStringView text, qsizetype length)
    {
        if (m_spans.isEmpty() || !m_isTextLast)
            m_spans += InlineSpan();
        m_spans.last().text += text;
        m_isTextLast = true;
        m_at += length;
    }

    void add(InlineSpan span, qsizetype length)
    {
        m_spans += std::move(span);
        m_isTextLast = false;
        m_at += length;
    }

    bool readEscape()
    {
        const bool isEscape = isAsciiPunctuation(at(m_at + 1)) || at(m_at + 1) == u'\n';
        if (isEscape && m_at + 1 < m_source.size())
            addText(m_source.sliced(m_at + 1, 1), 2);
        else
            addText(u"\\", 1);
        return true;
    }

    qsizetype runLength(qsizetype from) const
    {
        qsizetype end = from;
        while (end < m_source.size() && m_source.at(end) == m_source.at(from))
            ++end;
        return end - from;
    }

    bool readCode()
    {
        const qsizetype length = runLength(m_at);
        const qsizetype begin = m_at + length;
        for (qsizetype end = m_source.indexOf(u'`', begin); end >= 0;) {
            const qsizetype closing = runLength(end);
            if (closing == length) {
                QStringView text = m_source.sliced(begin, end - begin);
                // Spaces separate backticks at the ends of the code from its delimiters.
                if (text.startsWith(u' ') && text.endsWith(u' ') && !text.trimmed().isEmpty())
                    text = text.sliced(1).chopped(1);
                add({.text = text.toString(), .styles = code}, end + closing - m_at);
                return true;
            }
            end = m_source.indexOf(u'`', end + closing);
        }
        addText(m_source.sliced(m_at, length), length);
        return true;
    }

    bool readDelimiters()
    {
        const QChar delimiter = at(m_at);
        const qsizetype length = runLength(m_at);
        const QChar before = at(m_at - 1);
        const QChar after = at(m_at + length);
        const bool isLeftFlanking = !after.isSpace() && (!isPunctuation(after) ||
                                                         before.isSpace() || isPunctuation(before));
        const bool isRightFlanking = !before.isSpace() && (!isPunctuation(before) ||
                                                           after.isSpace() || isPunctuation(after));
        // Leaves snake_case_names and "about ~5" unchanged.
        const bool isUnderscore = delimiter == u'_';
        const bool isStyle = delimiter != u'~' || length == 2;
        InlineSpan span = {.delimiter = delimiter, .length = int(length), .unmatched = int(length)};
        span.canOpen = isStyle && isLeftFlanking &&
                       (!isUnderscore || !isRightFlanking || isPunctuation(before));
        span.canClose = isStyle && isRightFlanking &&
                        (!isUnderscore || !isLeftFlanking || isPunctuation(after));
        add(span, length);
        return true;
    }

    bool readAutolink()
    {
        static const QRegularExpression form(QStringLiteral(
            "<((?:https?://|mailto:)[^\\s<>]+|[\\w.+-]+@[A-Za-z0-9-]+(?:\\.[A-Za-z0-9-]+)+)>"));
        const auto match = form.match(m_text, m_at, QRegularExpression::NormalMatch,
                                      QRegularExpression::AnchorAtOffsetMatchOption);
        const QString text = match.captured(1);
        const bool isMail = text.contains(u'@') && !text.contains(u':');
        const QString link = allowedLink(isMail ? QStringLiteral("mailto:") + text : text);
        if (!match.hasMatch() || link.isEmpty())
            return false;
        add({.text = text, .link = link}, match.capturedLength());
        return true;
    }

    /// Reads a URL without delimiters around it.
    bool readBareUrl()
    {
        const QStringView rest = m_source.sliced(m_at);
        if (!(rest.startsWith(u"http://") || rest.startsWith(u"https://")) ||
            at(m_at - 1).isLetterOrNumber())
            return false;
        qsizetype end = 0;
        while (end < rest.size() && !rest.at(end).isSpace() && rest.at(end) != u'<')
            ++end;
        const QString text = rest.first(bareUrlLength(rest.first(end))).toString();
        const QString link = allowedLink(text);
        if (link.isEmpty())
            return false;
        add({.text = text, .link = link}, text.size());
        return true;
    }

    /// Excludes punctuation at the end, and a parenthesis that was opened before the URL.
    static qsizetype bareUrlLength(QStringView text)
    {
        qsizetype open = text.count(u'(') - text.count(u')');
        while (!text.isEmpty()) {
            const QChar last = text.back();
            const bool isOutside = last == u')' && open < 0;
            if (!isOutside && !QStringView(u"?!.,:;*_~'\"]").contains(last))
                break;
            open += isOutside;
            text.chop(1);
        }
        return text.size();
    }

    bool readBracket()
    {
        m_brackets += {.span = m_spans.size(), .isImage = at(m_at - 1) == u'!'};
        add({.text = QStringLiteral("[")}, 1);
        return true;
    }

    /// The end and the URL of the link target whose opening parenthesis is at `from`.
    std::optional<std::pair<qsizetype, QString>> linkTarget(qsizetype from) const
    {
        static const QRegularExpression form(
            QStringLiteral("\\(\\s*(?:<([^<>\\n]*)>|((?:[^\\s()]|\\([^\\s()]*\\))*))"
                           "(?:\\s+(?:\"[^\"]*\"|'[^']*'))?\\s*\\)"));
        const auto match = form.match(m_text, from, QRegularExpression::NormalMatch,
                                      QRegularExpression::AnchorAtOffsetMatchOption);
        if (!match.hasMatch())
            return std::nullopt;
        return std::pair(match.capturedEnd(), match.captured(1) + match.captured(2));
    }

    bool readLink()
    {
        if (m_brackets.isEmpty())
            return false;
        const Bracket bracket = m_brackets.takeLast();
        const auto found = bracket.isImage ? std::nullopt : linkTarget(m_at + 1);
        const QString link = found ? allowedLink(found->second) : QString();
        if (link.isEmpty())
            return false;
        applyEmphasis(m_spans, bracket.span + 1);
        m_spans.remove(bracket.span);
        QString text;
        for (qsizetype span = bracket.span; span < m_spans.size(); ++span) {
            m_spans[span].link = link;
            text += m_spans.at(span).text;
        }
        m_spans += {.text = linkAddition(text, link), .link = link};
        m_brackets.clear(); // Links do not nest.
        m_isTextLast = false;
        m_at = found->first;
        return true;
    }

    const QString m_text;
    const QStringView m_source = m_text;
    qsizetype m_at = 0;
    InlineSpans m_spans;
    bool m_isTextLast = false;
    QList<Bracket> m_brackets;
};

} // namespace

InlineSpans parseInline(const QString &source)
{
    QString text = source;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return InlineParser(text).read();
}

} // namespace tolvane::markdown
