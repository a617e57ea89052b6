// SPDX-License-Identifier: MIT
#include "ui/viewer/imagestate.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;

namespace {

constexpr QSizeF room(400, 300);

/// Runs a script of gestures: p1.5 is a pinch to the scale 1.5, e its end; d30,-40 a drag by this
/// distance, r its end; t a double tap; g200,100 another size of the view.
ImageState afterGestures(const QString &gestures)
{
    ImageState state;
    QSizeF geometry = room;
    for (const QString &gesture : gestures.split(u' ', Qt::SkipEmptyParts)) {
        const QStringList numbers = gesture.sliced(1).split(u',');
        const double x = numbers.first().toDouble();
        const double y = numbers.last().toDouble();
        switch (gesture.front().toLatin1()) {
        case 'p':
            state.pinchChanged(x);
            break;
        case 'e':
            state.pinchEnded(geometry);
            break;
        case 'd':
            state.dragChanged({x, y}, geometry);
            break;
        case 'r':
            state.dragEnded(geometry);
            break;
        case 't':
            state.doubleTapped();
            break;
        case 'g':
            geometry = {x, y};
            state.clampOffset(geometry);
            break;
        default:
            qFatal("unknown gesture: %s", qPrintable(gesture));
        }
    }
    return state;
}

QString text(const ImageState &state)
{
    const auto rounded = [](double number) { return QString::number(qRound(number * 1000) / 1e3); };
    QString text = rounded(state.scale);
    if (state.offset != QSizeF(0, 0))
        text += u" at %1,%2"_s.arg(rounded(state.offset.width()), rounded(state.offset.height()));
    return state.isDragging ? text + u", dragging"_s : text;
}

} // namespace

class ImageStateTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gestures()
    {
        const auto row = [](const char *name, const char *gestures, const char *expected) {
            const QString state = text(afterGestures(QString::fromLatin1(gestures)));
            QVERIFY2(state == QLatin1String(expected), name);
        };
        row("nothing", "", "1");
        row("a pinch", "p1.2 p1.5", "1.5");
        row("a second pinch starts at the last scale", "p1.5 e p2", "3");
        row("too small a pinch", "p1.009 p0.991 e", "1");
        row("a small change during a pinch", "p1.5 p1.505", "1.505");
        row("back to the beginning", "p1.5 p1", "1");
        row("no further than 4", "p3 p8 p9", "4");
        row("back from 4 at once", "p8 p4 e", "2");
        row("no less than 0.5", "p0.2", "0.5");
        row("released at 0.5", "p0.5 e", "1");
        row("released below 0.9", "p0.899 e", "1");
        row("released at 0.9", "p0.9 e", "0.9");
        row("not numbers", "p2 p0 p-1 pnan pinf p3 e", "3");

        row("a drag of the whole picture", "d100,100 r", "1");
        row("a drag below 1", "p0.95 e d100,100 r", "0.95");
        row("a drag", "t d30,-40", "2 at 30,-40, dragging");
        row("a drag in steps", "t d30,-40 d50,-20 r", "2 at 50,-20");
        row("another drag", "t d30,-40 r d10,10 r", "2 at 40,-30");
        row("as far as the edges", "t d500,-500", "2 at 200,-150, dragging");
        row("back from an edge by the whole way", "t d500,0 d150,0", "2 at 150,0, dragging");
        row("a drag back after the release at an edge", "t d500,0 r d-50,0",
            "2 at 150,0, dragging");

        row("zoomed out at the edge", "p4 e d600,450 r p0.5 e", "2 at 200,150");
        row("zoomed out at the edge, not released", "p4 e d600,450 r p0.5", "2 at 600,450");
        row("zoomed out below 1", "p4 e d600,450 r p0.24 e", "0.96");
        row("snapped back", "p2 e d100,0 r p0.4 e d10,10 r", "1");
        row("pinched and dragged at once", "t p1.5 d250,0 p2 d350,0 r e", "4 at 350,0");

        row("tapped", "t", "2");
        row("tapped at 2", "t d30,30 r t", "1");
        row("tapped a little above 1", "p1.02 e t", "1");
        row("tapped and dragged again", "t d90,0 r t t d5,0 r", "2 at 5,0");

        row("less room", "t d200,150 r g200,100", "2 at 100,50");
        row("no room", "t d200,150 r g0,0", "2");
    }
};

QTEST_GUILESS_MAIN(ImageStateTest)
#include "tst_imagestate.moc"
