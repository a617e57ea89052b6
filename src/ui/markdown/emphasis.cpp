// SPDX-License-Identifier: MIT
#include "ui/markdown/markdownpieces.h"

#include <algorithm>

namespace tolvane::markdown {

namespace {

bool matches(const Piece &opener, const Piece &closer)
{
    if (opener.delimiter != closer.delimiter || !opener.canOpen || opener.left == 0)
        return false;
    // Some runs that could both open and close do not match each other, as in a*b**c*.
    const bool isAmbiguous = opener.canClose || closer.canOpen;
    return !isAmbiguous || (opener.length + closer.length) % 3 != 0 ||
           (opener.length % 3 == 0 && closer.length % 3 == 0);
}

qsizetype openerOf(const Pieces &pieces, qsizetype first, qsizetype closer)
{
    for (qsizetype at = closer - 1; at >= first; --at) {
        if (matches(pieces.at(at), pieces.at(closer)))
            return at;
    }
    return -1;
}

void style(Pieces &pieces, qsizetype opener, qsizetype closer)
{
    const bool isDouble = pieces.at(opener).left > 1 && pieces.at(closer).left > 1;
    const int style = pieces.at(opener).delimiter == u'~' ? strikethrough
                      : isDouble                          ? strong
                                                          : emphasis;
    for (qsizetype at = opener + 1; at < closer; ++at) {
        pieces[at].styles |= style;
        // Styles nest: runs between the two can no longer open one.
        pieces[at].canOpen = false;
    }
    pieces[opener].left -= isDouble ? 2 : 1;
    pieces[closer].left -= isDouble ? 2 : 1;
}

} // namespace

void applyEmphasis(Pieces &pieces, qsizetype first)
{
    for (qsizetype closer = first; closer < pieces.size(); ++closer) {
        while (pieces.at(closer).canClose && pieces.at(closer).left > 0) {
            const qsizetype opener = openerOf(pieces, first, closer);
            if (opener < 0)
                break;
            style(pieces, opener, closer);
        }
    }
    for (qsizetype at = first; at < pieces.size(); ++at) {
        Piece &piece = pieces[at];
        if (piece.length > 0)
            piece.text = QString(piece.left, piece.delimiter);
        piece.canOpen = piece.canClose = false;
    }
}

} // namespace tolvane::markdown
