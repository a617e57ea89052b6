// SPDX-License-Identifier: MIT
#include "testing/ui/screens.h"

#include "state/navigation/destination.h"
#include "testing/ui/samples.h"
#include "ui/images/imagecache.h"
#include "ui/markdown/inlinemarkdown.h"

#include <tolvane/tolvane.h>

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QMimeData>
#include <QtCore/QTimeZone>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPalette>
#include <QtTest/QSignalSpy>

using namespace Qt::StringLiterals;

namespace tolvane::test {

namespace {

const QString cdn = u"https://cdn.example/"_s;

QByteArray photo()
{
    static const QByteArray bytes = [] {
        QImage image = solidImage({900, 600}, QColor(0x8fc7e8));
        QPainter painter(&image);
        painter.setBrush(QColor(0xf2b33d));
        painter.drawEllipse(QPoint(640, 250), 80, 80);
        painter.end();
        return encodedImage(image, "png");
    }();
    return bytes;
}

/// The branding of the demo, with logos of the replaced network.
BrandingDto demoBranding()
{
    QFile file(QStringLiteral(TOLVANE_SOURCES "/tools/demo/branding.json"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s", qPrintable(file.errorString()));
    QJsonObject branding = QJsonDocument::fromJson(file.readAll()).object();
    branding["logoLight"_L1] = cdn + u"logo"_s;
    branding["logoDark"_L1] = cdn + u"logo"_s;
    branding["updatedAt"_L1] = u"1"_s;
    return json::decode<BrandingDto>(QJsonDocument(branding).toJson());
}

struct Line
{
    const char *type;
    const char *name;
    const char *text;
    int pictures;
    /// Minutes before the present time, which is noon.
    int age;
};

// Texts of people, which are never translated.
constexpr Line lines[] = {
    {"customer", "", "Hello, my parcel has not arrived. Can you look where it is?", 0, 9000},
    {"ai agent", "Nova",
     "Of course! The carrier had it on **Tuesday** in `Leipzig`.\n\nDo you have "
     "a picture of the note? See [how to find it](https://help.example/note).",
     0, 4000},
    {"customer", "", "", 1, 2900},
    {"customer", "", "And two more of the parcel", 2, 2890},
    {"human agent", "Marisol Ferreira-Van den Bosch",
     "Thank you. I have asked the depot, and they have found it: a label had come off. It will be "
     "with you tomorrow before noon, and we refund what you paid for the sending. I am sorry that "
     "you had to write to us about it at all.",
     0, 1500},
    {"human agent", "", "Pictures of the depot", 3, 1400},
    {"human agent", "Ünal", "More of them", 6, 180},
    {"human agent", "ليلى", "شكراً لانتظارك، سيصل الطرد غداً قبل الظهر.", 0, 61},
    {"customer", "", "👍🎉", 0, 2},
    {"customer", "",
     "Donaudampfschifffahrtselektrizitätenhauptbetriebswerkbauunterbeamtengesellschaft", 0, 0},
};

QString timestamp(int age)
{
    return QDateTime(QDate(2026, 3, 14), QTime(12, 0), QTimeZone::utc())
               .addSecs(-60 * age)
               .toString(u"yyyy-MM-ddTHH:mm:ss"_s) +
           u"+0000"_s;
}

MessageDto messageOf(const Line &line, int number)
{
    MessageDto message = makeMessage(u"m%1"_s.arg(number), QString::fromUtf8(line.type));
    const QString name = QString::fromUtf8(line.name);
    if (!name.isEmpty()) {
        message.sender.name = name;
        if (message.sender.type == words::humanAgent)
            message.sender.profilePicture = cdn + u"person"_s;
    }
    message.content = QString::fromUtf8(line.text);
    message.timestamp = timestamp(line.age);
    message.isRead = number % 3 == 0;
    QList<QString> pictures;
    for (int index = 0; index < line.pictures; ++index)
        pictures += cdn + u"photo%1-%2"_s.arg(number).arg(index);
    if (!pictures.isEmpty())
        message.attachments = pictures;
    return message;
}

TicketDto sampleTicket()
{
    TicketDto ticket = makeTicket({});
    ticket.assignee = words::humanAgent;
    ticket.schedules = {{.id = u"s"_s,
                         .startTime = u"2026-03-14T00:00:00+0000"_s,
                         .endTime = u"2026-03-14T00:01:00+0000"_s,
                         .days = {u"Mon"_s}}};
    int number = 0;
    for (const Line &line : lines)
        ticket.messages += messageOf(line, number++);
    return ticket;
}

QByteArray sampleList()
{
    QList<TicketPreviewDto> tickets;
    int number = 0;
    for (const Line &line : lines) {
        TicketPreviewDto preview = makePreview(number == 0 ? u"t1"_s : u"t-%1"_s.arg(number));
        preview.lastMessage = messageOf(line, number);
        preview.state = number == 3 ? words::closed : u"open"_s;
        tickets += preview;
        ++number;
    }
    return encodeList(tickets);
}

} // namespace

void Appearance::apply() const
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(isDark ? 0x16181d : 0xf4f4f4));
    palette.setColor(QPalette::WindowText, QColor(isDark ? Qt::white : Qt::black));
    QGuiApplication::setPalette(palette);
    QFont font = QGuiApplication::font();
    font.setPixelSize(qRound(13 * fontScale));
    QGuiApplication::setFont(font);
}

std::span<const Screens::Screen> Screens::all()
{
    using S = Screens;
    static constexpr Screen screens[] = {
        {"home-skeleton", [](S &) { TolvaneViewController::present(); }},
        {"home-loading",
         [](S &s) {
             s.loadSettings();
             s.session->held = true;
             TolvaneViewController::present();
         }},
        {"home-list", [](S &s) { s.open(); }},
        {"home-current",
         [](S &s) {
             s.open();
             QTest::keyClick(&s.host, Qt::Key_Down);
             QTest::keyClick(&s.host, Qt::Key_Down);
         }},
        {"home-collapsed",
         [](S &s) {
             s.open();
             QQuickItem *list = s.lastVisible("QQuickListView");
             list->setProperty("contentY", list->property("contentY").toReal() + 190);
         }},
        {"home-empty",
         [](S &s) {
             s.listJson = "[]";
             s.open();
         }},
        {"home-error",
         [](S &s) {
             s.isFailing = true;
             s.open();
         }},
        {"home-unavailable",
         [](S &s) {
             s.m_hasSettings = false;
             s.loadSettings();
             TolvaneViewController::present();
         }},
        {"home-outdated",
         [](S &s) {
             s.open();
             s.isFailing = true;
             QTest::keyClick(&s.host, Qt::Key_F5);
         }},
        {"conversation-loading",
         [](S &s) {
             s.open();
             s.session->held = true;
             s.goTo(TolvaneDestination::ticket(s.preview(4)));
         }},
        {"conversation", [](S &s) { s.openTicket(); }},
        {"conversation-beginning",
         [](S &s) {
             s.openTicket();
             s.lastVisible("TicketMessageList_")->forceActiveFocus(Qt::TabFocusReason);
             QTest::keyClick(&s.host, Qt::Key_Home);
         }},
        {"conversation-typing",
         [](S &s) {
             s.ticket.assignee = words::aiAgent;
             s.openTicket();
         }},
        {"conversation-closed",
         [](S &s) {
             s.ticket.state = words::closed;
             s.ticket.assignee = words::aiAgent;
             s.openTicket();
         }},
        {"conversation-error",
         [](S &s) {
             s.open();
             s.isFailing = true;
             s.goTo(TolvaneDestination::ticket(makePreview()));
         }},
        {"conversation-new",
         [](S &s) {
             s.open();
             s.goTo(TolvaneDestination::newTicket());
         }},
        {"conversation-hovered",
         [](S &s) {
             s.openTicket();
             QMimeData files;
             files.setUrls({QUrl::fromLocalFile(u"/pictures/one.png"_s)});
             QDragEnterEvent event({100, 200}, Qt::CopyAction, &files, Qt::LeftButton, {});
             QCoreApplication::sendEvent(&s.host, &event);
             s.waitForAnimations();
         }},
        {"composer-text",
         [](S &s) {
             s.openTicket();
             s.composer().setMessage(
                 u"First of all, thank you.\n\n"_s +
                 u"Now there is one thing more that I would like to ask. "_s.repeated(12));
         }},
        {"composer-attachments", [](S &s) { s.attachPictures(); }},
        {"composer-sending",
         [](S &s) {
             s.openTicket();
             s.composer().setMessage(u"On its way"_s);
             s.session->held = true;
             s.composer().send();
         }},
        {"composer-failed",
         [](S &s) {
             s.openTicket();
             s.composer().setMessage(u"On its way"_s);
             s.isFailing = true;
             s.composer().send();
         }},
        {"viewer-loading",
         [](S &s) {
             s.m_hasPictures = false;
             s.openPicture();
         }},
        {"viewer",
         [](S &s) {
             s.openPicture();
             QTest::keyClick(&s.host, Qt::Key_Home); // Shows the buttons.
             s.waitForAnimations();
         }},
        {"viewer-menu",
         [](S &s) {
             s.openPicture();
             const QQuickItem *share = s.lastVisible("ImageActions_");
             QTest::mouseClick(&s.host, Qt::LeftButton, {},
                               share->mapRectToScene(share->boundingRect()).center().toPoint());
         }},
        {"viewer-notice",
         [](S &s) {
             s.openPicture();
             QTest::qWait(600);
             QTest::keyClick(&s.host, Qt::Key_C, Qt::ControlModifier);
         }},
    };
    return screens;
}

void Screens::addRows()
{
    QTest::addColumn<QString>("screen");
    for (const Screen &screen : all())
        QTest::newRow(screen.name) << QString::fromLatin1(screen.name);
}

Screens::Screens(const Appearance &appearance)
    : ticket(sampleTicket())
{
    if (QQuickWindow::sceneGraphBackend() == u"software"_s)
        m_fastAnimations.emplace();
    appearance.apply();
    if (appearance.form == Form::panel)
        Tolvane::setPresentation(Tolvane::Presentation::panel);
    bundle->speak(appearance.language);
    host.resize(appearance.size);
    if (appearance.form == Form::embedded) {
        place = createMessengerItem();
        place->setParent(host.contentItem());
        place->setParentItem(host.contentItem());
        place->setSize({400, double(appearance.size.height())});
    }
    listJson = sampleList();
    session->handler = [this](const UrlRequest &request) { return respond(request); };
}

UrlResponse Screens::respond(const UrlRequest &request)
{
    if (request.url.isLocalFile()) {
        QFile file(request.url.toLocalFile());
        return {.status = 200,
                .headers = {},
                .body = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray()};
    }
    const QString path = request.url.path();
    if (request.url.host() == u"cdn.example"_s) {
        if (!m_hasPictures)
            throw UrlError(UrlError::notConnectedToInternet);
        return {.status = 200, .headers = {}, .body = photo()};
    }
    if (path.endsWith(u"/settings"_s) && m_hasSettings)
        return jsonResponse(demoBranding());
    if (isFailing || !m_hasSettings)
        throw UrlError(UrlError::notConnectedToInternet);
    if (path.endsWith(u"/tickets"_s))
        return test::json(listJson);
    if (request.method == "POST") {
        const qsizetype begin = request.body.indexOf("\r\n\r\n") + 4;
        MessageDto message = makeMessage(u"m%1"_s.arg(ticket.messages.size()));
        message.content = QString::fromUtf8(
            request.body.sliced(begin, request.body.indexOf("\r\n", begin) - begin));
        ticket.messages += message;
        return jsonResponse(message);
    }
    return jsonResponse(ticket);
}

void Screens::show(const Screen &screen)
{
    if (!showHost())
        qFatal("The host has no window");
    screen.open(*this);
    waitForAnimations();
}

void Screens::show(const QString &name)
{
    const auto screens = all();
    const auto found = std::ranges::find(
        screens, name, [](const Screen &screen) { return QString::fromLatin1(screen.name); });
    if (found == screens.end())
        qFatal("No such screen: %s", qPrintable(name));
    show(*found);
}

QStringList Screens::contentTexts()
{
    QStringList texts;
    for (const Line &line : lines) {
        texts += QString::fromUtf8(line.name);
        texts += withoutMarkdown(QString::fromUtf8(line.text)).simplified();
        // The type's text on the wire.
        texts += QString::fromUtf8(line.type);
    }
    return texts;
}

ScreenData &Screens::screen() const
{
    return *messenger()->property("screen").value<ScreenData *>();
}

ComposerData &Screens::composer() const
{
    return *lastVisible("TicketComposer_")->property("composer").value<ComposerData *>();
}

bool Screens::hasFinishedAnimations() const
{
    const QQuickItem *stack = lastVisible("TolvaneNavigationStack_");
    return (!messenger() || isInPlace()) &&
           (!stack || stack->property("depth") == stack->property("pathLength"));
}

void Screens::waitForAnimations()
{
    settle();
    if (!QTest::qWaitFor([this] { return hasFinishedAnimations(); }, 30000))
        qFatal("The animations do not end");
    // Views still fade in and out.
    QTest::qWait(m_fastAnimations ? 400 / FastAnimations::factor : 400);
}

void Screens::waitForFrames(int count)
{
    for (int frame = 0; frame < count; ++frame) {
        QSignalSpy swapped(&host, &QQuickWindow::frameSwapped);
        host.update();
        if (!swapped.wait())
            qFatal("The window renders no frames");
    }
}

void Screens::open()
{
    loadSettings();
    TolvaneViewController::present();
    waitForAnimations();
    if (!QTest::qWaitFor([this] { return !screen().isLoading(); }))
        qFatal("The list was not loaded");
    waitForAnimations();
}

TicketPreviewDto Screens::preview(int message) const
{
    TicketPreviewDto preview = makePreview();
    preview.lastMessage = ticket.messages.at(message);
    return preview;
}

void Screens::goTo(const TolvaneDestination &page)
{
    screen().navigation()->navigate(page);
}

void Screens::openTicket()
{
    open();
    goTo(TolvaneDestination::ticket(preview(0)));
    waitForAnimations();
}

void Screens::openPicture()
{
    UrlRequest request;
    request.url = QUrl(cdn + u"photo2-0"_s);
    if (m_hasPictures)
        ImageCache::shared().responses().store(respond(request), request);
    openTicket();
    screen().attachmentSelection()->attachments = {request.url.toString(), cdn + u"photo2-1"_s};
    screen().attachmentSelection()->setSelectedAttachment(request.url);
    waitForAnimations();
}

void Screens::attachPictures()
{
    openTicket();
    QTemporaryDir folder;
    QList<QUrl> files;
    for (int number = 0; number < 4; ++number) {
        const QString path = folder.filePath(u"picture%1.png"_s.arg(number));
        solidImage({300, 200}, QColor::fromHsv(number * 80, 120, 220)).save(path);
        files += QUrl::fromLocalFile(path);
    }
    composer().addFiles(files);
    settle();
    waitForAnimations();
}

} // namespace tolvane::test
