// SPDX-License-Identifier: MIT
// Every screen in a pseudo-locale, whose texts are long and marked: finds texts that are not
// translated or do not have enough room. Nothing may log a warning.
#include "testing/ui/screens.h"

#include <QtCore/QRegularExpression>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

QString pseudo(const QString &text)
{
    static const QString plain = u"aeiouyAEIOUYcnsz"_s;
    static const QString accented = u"áëîöûÿÁËÎÖÛŸçñšž"_s;
    static const QString filling = u" ïpšûm dölör šït ámët çöñšëçtët ádïpïšçï vëlït"_s;
    QString changed = text;
    for (QChar &letter : changed) {
        const qsizetype place = plain.indexOf(letter);
        if (place >= 0)
            letter = accented.at(place);
    }
    return u"⟦"_s + changed + filling.repeated(4).first(text.size() * 4 / 10) + u"⟧"_s;
}

/// Texts that are the same in every language.
const QStringList &fixedTexts()
{
    static const QStringList texts = {u"👋"_s, u"🤖"_s, u"Send us a message"_s,
                                      u"We typically reply in a few minutes."_s};
    return texts;
}

bool isA(const QQuickItem *item, const char *type)
{
    return QByteArray(item->metaObject()->className()).startsWith(type);
}

const QQuickItem *ancestor(const QQuickItem *item, const char *type)
{
    for (; item; item = item->parentItem()) {
        if (isA(item, type))
            return item;
    }
    return nullptr;
}

const QQuickItem *scroller(const QQuickItem *item)
{
    for (; item; item = item->parentItem()) {
        if (item->inherits("QQuickFlickable"))
            return item;
    }
    return nullptr;
}

/// A visible text.
struct VisibleText
{
    const QQuickItem *item;
    QString text;
    /// The painted area in the window.
    QRectF place;

    QString name() const { return u"\"%1\" in %2"_s.arg(text.left(60), owner()); }
    QString owner() const
    {
        for (const QQuickItem *each = item; each; each = each->parentItem()) {
            const QByteArray type = each->metaObject()->className();
            if (type.contains("_QMLTYPE_"))
                return QString::fromLatin1(type.left(type.indexOf("_QMLTYPE_")));
        }
        return {};
    }
};

QRectF painted(const QQuickItem *item)
{
    // The content of rich text is as wide as its item.
    const QSizeF content(qMin(item->property("contentWidth").toReal(), item->implicitWidth()),
                         item->property("contentHeight").toReal());
    const int alignment = item->property("effectiveHorizontalAlignment").toInt();
    const double spare = item->width() - content.width();
    const double x = alignment == Qt::AlignRight     ? spare
                     : alignment == Qt::AlignHCenter ? spare / 2
                                                     : 0;
    const bool isCentred = item->property("verticalAlignment").toInt() == Qt::AlignVCenter;
    const double y = isCentred ? (item->height() - content.height()) / 2 : 0;
    return item->mapRectToScene(QRectF({x, y}, content));
}

void collect(const QQuickItem *item, QList<VisibleText> &shown)
{
    if (!item->isVisible() || item->opacity() == 0)
        return;
    const QString text = item->property("text").toString();
    if (item->inherits("QQuickText") && !text.isEmpty())
        shown += {item, text, painted(item)};
    for (const QQuickItem *child : item->childItems())
        collect(child, shown);
}

class PseudoLocaleTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { Appearance().apply(); }

    void allIsTranslatedAndFits_data() { Screens::addRows(); }

    void allIsTranslatedAndFits()
    {
        QFETCH(const QString, screen);
        QTest::failOnWarning(QRegularExpression(u"."_s));
        Screens screens(Appearance{});
        screens.bundle->dress = pseudo;
        screens.show(screen);
        // Size, palette and font change while it is open.
        const Appearance appearances[] = {{.size = {390, 844}},
                                          {.size = {320, 480}},
                                          {.size = {844, 390}},
                                          {.size = {320, 480}, .fontScale = 2},
                                          {.size = {320, 480}, .isDark = true, .fontScale = 2}};
        const auto brightness = [&screens] {
            const QImage picture = screens.host.grabWindow().scaled({1, 1}, Qt::IgnoreAspectRatio,
                                                                    Qt::SmoothTransformation);
            return picture.pixelColor(0, 0).lightness();
        };
        QList<int> brightnesses;
        QStringList faults;
        for (const Appearance &appearance : appearances) {
            appearance.apply();
            screens.host.resize(appearance.size);
            screens.waitForFrames(5);
            brightnesses += brightness();
            QList<VisibleText> shown;
            collect(screens.messenger(), shown);
            for (const QString &fault : faultsOf(shown, QRectF({}, appearance.size))) {
                faults += u"%1x%2 at %3: %4"_s.arg(appearance.size.width())
                              .arg(appearance.size.height())
                              .arg(appearance.fontScale)
                              .arg(fault);
            }
            QVERIFY(!shown.isEmpty() || screen == u"home-skeleton"_s);
        }
        QVERIFY2(faults.isEmpty(), qPrintable(u'\n' + faults.join(u'\n')));
        QVERIFY(brightnesses[4] < brightnesses[3] || screen.startsWith(u"viewer"_s));
    }

private:
    static QStringList faultsOf(const QList<VisibleText> &shown, const QRectF &window)
    {
        QStringList faults;
        for (const VisibleText &each : shown) {
            if (!isTranslated(each))
                faults += u"not translated: "_s + each.name();
            if (const QString fault = layoutFault(each, window); !fault.isEmpty())
                faults += fault + u": "_s + each.name();
        }
        for (qsizetype first = 0; first < shown.size(); ++first) {
            for (qsizetype second = first + 1; second < shown.size(); ++second) {
                if (overlap(shown.at(first), shown.at(second)))
                    faults += shown.at(first).name() + u" overlaps "_s + shown.at(second).name();
            }
        }
        return faults;
    }

    static bool isTranslated(const VisibleText &shown)
    {
        // Messages are not translated, and neither is the number of further pictures.
        if (ancestor(shown.item, "MessageBubble_") || shown.text.startsWith(u'+'))
            return true;
        static const QRegularExpression translated(u"⟦(?:[^⟦⟧]|(?R))*⟧"_s);
        QString rest = shown.text;
        rest.remove(translated);
        for (const QString &known : fixedTexts() + Screens::contentTexts()) {
            if (!known.isEmpty())
                rest.remove(known);
        }
        static const QRegularExpression fileName(u"^image_[0-9.]*jpg$"_s);
        rest.remove(fileName);
        static const QRegularExpression letter(u"\\p{L}"_s);
        return !rest.contains(letter);
    }

    static QString layoutFault(const VisibleText &shown, const QRectF &window)
    {
        const QQuickItem *item = shown.item;
        const QRectF own = item->mapRectToScene({QPointF(), item->size()});
        if (item->property("truncated").toBool() && item->property("elide").toInt() == 3)
            return u"cut without an ellipsis"_s;
        if (shown.place.width() > own.width() + 1)
            return u"too wide"_s;
        // With a given line height, the item still counts its lines as high as their font.
        const bool isGiven = item->property("lineHeightMode").toInt() == 1;
        if (!isGiven && shown.place.height() > own.height() + 1)
            return u"too high"_s;
        // The skeleton continues below the window, like the conversation that it stands for.
        const bool isScrolled = scroller(item) || ancestor(item, "TicketMessagesSkeletonView_");
        if (shown.place.left() < -1 || shown.place.right() > window.width() + 1 ||
            (!isScrolled && !shown.place.isEmpty() &&
             (shown.place.top() < -1 || shown.place.bottom() > window.height() + 1)))
            return u"out of the window"_s;
        return {};
    }

    static bool overlap(const VisibleText &first, const VisibleText &second)
    {
        // Scrolled content passes under fixed content and under the title of its section.
        if (scroller(first.item) != scroller(second.item) ||
            isOverlay(first.item) != isOverlay(second.item))
            return false;
        const QRectF both = first.place.intersected(second.place);
        return both.width() > 2 && both.height() > first.place.height() / 4;
    }

    /// Whether it lies over other content of its screen.
    static bool isOverlay(const QQuickItem *item)
    {
        for (const char *type : {"TicketListHeader_", "AttachmentDropArea_", "ShareMenu_",
                                 "BriefNotice_", "TicketBar_", "TolvaneHeader_"}) {
            if (ancestor(item, type))
                return true;
        }
        return false;
    }
};

} // namespace

QTEST_MAIN(PseudoLocaleTest)
#include "tst_pseudolocale.moc"
