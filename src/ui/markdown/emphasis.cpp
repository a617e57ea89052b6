// SPDX-License-Identifier: MIT
#include "ui/markdown/inlineparser.h"

#include <algorithm>

namespace tolvane::markdown {

namespace {

bool matches(const InlineSpan &opener, const InlineSpan &closer)
{
    if (opener.delimiter != closer.delimiter || !opener.canOpen || opener.unmatched == 0)
        return false;
    // CommonMark's "rule of 3" for runs that can both open and close, as in a*b**c*.
    const bool isAmbiguous = opener.canClose || closer.canOpen;
    return !isAmbiguous || (opener.length + closer.length) % 3 != 0 ||
           (opener.length % 3 == 0 && closer.length % 3 == 0);
}

qsizetype openerOf(const InlineSpans &spans, qsizetype first, qsizetype closer)
{
    for (qsizetype at = closer - 1; at >= first; --at) {
        if (matches(spans.at(at), spans.at(closer)))
            return at;
    }
    return -1;
}

void style(InlineSpans &spans, qsizetype opener, qsizetype closer)
{
    const bool isDouble = spans.at(opener).unmatched > 1 && spans.at(closer).unmatched > 1;
    const int style = spans.at(opener).delimiter == u'~' ? strikethrough
                      : isDouble                         ? strong
                                                         : emphasis;
    for (qsizetype at = opener + 1; at < closer; ++at) {
        spans[at].styles |= style;
        // Styles must nest, so runs between the two can no longer open one.
        spans[at].canOpen = false;
    }
    spans[opener].unmatched -= isDouble ? 2 : 1;
    spans[closer].unmatched -= isDouble ? 2 : 1;
}

} // namespace

void applyEmphasis(InlineSpans &spans, qsizetype first)
{
    for (qsizetype closer = first; closer < spans.size(); ++closer) {
        while (spans.at(closer).canClose && spans.at(closer).unmatched > 0) {
            const qsizetype opener = openerOf(spans, first, closer);
            if (opener < 0)
                break;
            style(spans, opener, closer);
        }
    }
    for (qsizetype at = first; at < spans.size(); ++at) {
        InlineSpan &span = spans[at];
        if (span.length > 0)
            span.text = QString(span.unmatched, span.delimiter);
        span.canOpen = span.canClose = false;
    }
}

} // namespace tolvane::markdown
