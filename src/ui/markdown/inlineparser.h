// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

namespace tolvane::markdown {

enum Style { emphasis = 1, strong = 2, strikethrough = 4, code = 8 };

/// A span of text in one style.
struct InlineSpan
{
    QString text = {};
    int styles = 0;
    /// The percent-encoded URL of a link; else empty.
    QString link = {};

    /// For a run of * or _ or ~: its length, the number of unmatched characters, and its roles.
    QChar delimiter = {};
    int length = 0;
    int unmatched = 0;
    bool canOpen = false;
    bool canClose = false;
};

using InlineSpans = QList<InlineSpan>;

/// Parses links and code, and applies emphasis.
InlineSpans parseInline(const QString &source);

/// Converts runs of delimiters from `first` on into styles of the text between them, by the rules
/// of CommonMark; unmatched delimiters stay as text.
void applyEmphasis(InlineSpans &spans, qsizetype first);

} // namespace tolvane::markdown
