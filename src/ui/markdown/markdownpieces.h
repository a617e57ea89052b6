// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

namespace tolvane::markdown {

enum Style { emphasis = 1, strong = 2, strikethrough = 4, code = 8 };

/// A stretch of a text in one style.
struct Piece
{
    QString text = {};
    int styles = 0;
    /// Where it leads to, escaped as addresses are; else empty.
    QString link = {};

    /// For a run of * or _ or ~: what is not taken for a style yet, and which role it may play.
    QChar delimiter = {};
    int length = 0;
    int left = 0;
    bool canOpen = false;
    bool canClose = false;
};

using Pieces = QList<Piece>;

/// The pieces of a text, links and code recognised, and emphasis applied.
Pieces piecesOf(const QString &source);

/// Turns runs of delimiters from `first` on into styles of what lies between, by CommonMark's
/// rules; what is left of them stays as text.
void applyEmphasis(Pieces &pieces, qsizetype first);

/// The address of a link as it may stand in HTML; empty unless it is one for https, http or mailto.
QString allowedLink(const QString &address);

} // namespace tolvane::markdown
